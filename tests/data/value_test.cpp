#include "data/values/numbers.h"
#include "data/values/runtimeerror.h"
#include "tests/support/printers.h"

namespace {

TEST(Value, GivesTheLeadingNumberOfItsText)
{
    const Value values[] = {0.1 + 0.2, 1e14 / 3,   123456789.12345,  -7.25, -0.0,          1e15, 4.0e-5,
                            1e300,     2147483647, "12 Main Street", "",    Currency{-15}, true, Date(2011, 3, 30),
                            1 / 3.0};
    for (const Value &value : values)
        EXPECT_EQ(value.leadingNumber(), Val(value.toText())) << value.toText().toStdString();
    EXPECT_EQ(errorNumberOf([] { Value().leadingNumber(); }), 94);
}

TEST(Value, ConvertsToTextAsAnAssignmentDoes)
{
    const struct
    {
        Value value;
        const char *text;
    } rows[] = {{true, "True"},
                {false, "False"},
                {-7, "-7"},
                {12.30, "12.3"},
                {"Acme", "Acme"},
                {"", ""},
                {Date(2011, 3, 30), "3/30/2011"},
                {Currency{12300}, "1.23"},
                {Currency{-5}, "-0.0005"},
                {Currency{50000}, "5"},
                {Currency{std::numeric_limits<qint64>::min()}, "-922337203685477.5808"}};
    for (const auto &row : rows) {
        EXPECT_EQ(row.value.toText(), row.text);
        EXPECT_EQ(row.value.joined(), row.text);
    }
}

TEST(Value, ConvertsToNumbersWithTrueAsMinusOne)
{
    EXPECT_EQ(Value(true).toDouble(), -1);
    EXPECT_EQ(Value("$1,234.50").toDouble(), 1234.5);
    EXPECT_EQ(Value(Date(2011, 3, 30)).toDouble(), 40632);
    EXPECT_EQ(Value(Currency{25000}).toLong(), 2);
    EXPECT_EQ(Value(2.5).toLong(), 2);
    EXPECT_EQ(Value("3.5").toInteger(), 4);
    EXPECT_EQ(errorNumberOf([] { Value(40000).toInteger(); }), 6);
    EXPECT_EQ(errorNumberOf([] { Value(3e9).toLong(); }), 6);
    EXPECT_EQ(errorNumberOf([] { Value("").toDouble(); }), 13);
}

TEST(Value, ConvertsToBooleanAndDate)
{
    EXPECT_TRUE(Value(5).toBoolean());
    EXPECT_TRUE(Value("true").toBoolean());
    EXPECT_FALSE(Value("False").toBoolean());
    EXPECT_FALSE(Value("0").toBoolean());
    EXPECT_EQ(errorNumberOf([] { Value("yes please").toBoolean(); }), 13);
    EXPECT_EQ(Value("3/30/2011").toDate(), Date(2011, 3, 30));
    EXPECT_EQ(Value(40632.5).toDate(), Date(40632.5));
    EXPECT_EQ(errorNumberOf([] { Value("abc").toDate(); }), 13);
    EXPECT_EQ(errorNumberOf([] { Value(1e9).toDate(); }), 6);
}

TEST(Value, NullIsAnErrorWhereverAValueMustBeAndEmptyOnlyWhenJoined)
{
    const Value null;
    EXPECT_TRUE(null.isNull());
    EXPECT_EQ(null.joined(), "");
    EXPECT_NE(null, Value(""));
    const std::function<void()> uses[] = {[&] { null.toText(); },    [&] { null.toDouble(); },  [&] { null.toLong(); },
                                          [&] { null.toInteger(); }, [&] { null.toBoolean(); }, [&] { null.toDate(); }};
    for (const auto &use : uses)
        EXPECT_EQ(errorNumberOf(use), 94);
}

TEST(Currency, KeepsFourDecimalsRoundedToEven)
{
    EXPECT_EQ(Currency::of(1.23456).units, 12346);
    EXPECT_EQ(Currency::of(0.00005).units, 0);
    EXPECT_EQ(Currency::of(0.00025).units, 2);
    EXPECT_EQ(Currency::of(-3.5).amount(), -3.5);
    EXPECT_EQ(errorNumberOf([] { Currency::of(1e15); }), 6);
}

TEST(RuntimeErrors, CarryTheStandardWordingWithTheNamesPutIn)
{
    const struct
    {
        int number;
        QStringList names;
        const char *text;
    } rows[] = {
        {5, {}, "Invalid procedure call or argument"},
        {6, {}, "Overflow"},
        {13, {}, "Type mismatch"},
        {53, {}, "File not found"},
        {62, {}, "Input past end of file"},
        {94, {}, "Invalid use of Null"},
        {380, {}, "Invalid property value"},
        {383, {}, "'Text' property is read-only"},
        {3020, {}, "Update or CancelUpdate without AddNew or Edit."},
        {3021, {}, "No current record."},
        {3075, {"Syntax error", "a %1 b %2"}, "Syntax error in query expression 'a %1 b %2'."},
        {3265, {}, "Item not found in this collection."},
        {35787, {}, "Can't set value to NULL when CheckBox property = FALSE"},
    };
    for (const auto &row : rows) {
        const RuntimeError error = runtimeError(row.number, row.names);
        EXPECT_EQ(error.number(), row.number);
        EXPECT_EQ(error.description(), row.text);
    }
}

TEST(RuntimeErrors, KeepWhatHappenedUnderneathApartFromTheWording)
{
    const RuntimeError error = runtimeError(3021, {}, "SELECT * FROM Orders");
    EXPECT_EQ(error.description(), "No current record.");
    EXPECT_EQ(error.detail(), "SELECT * FROM Orders");
    EXPECT_STREQ(error.what(), "3021: No current record. [SELECT * FROM Orders]");
}

} // namespace
