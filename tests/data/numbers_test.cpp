#include "data/values/format.h"
#include "data/values/numbers.h"
#include "tests/support/printers.h"

namespace {

struct TextToNumber
{
    const char *text;
    double number;
};

TEST(Val, TakesTheLeadingNumberOfAnyText)
{
    const TextToNumber rows[] = {
        {"", 0},
        {"abc", 0},
        {"$5", 0},
        {"(5.00)", 0},
        {"-5", -5},
        {"+5", 5},
        {"1e3", 1000},
        {"1D3", 1000},
        {"1E+2x", 100},
        {"24 and 57", 24},
        {" 2 45 7", 2457},
        {"1 615 198th St", 1615198},
        {"1,234", 1},
        {"1.5.2", 1.5},
        {"-.5", -0.5},
        {"1e", 1},
        {"1e+", 1},
        {"5%", 5},
        {"50.5%", 50.5},
        {"&HFF", 255},
        {"&HFFFF", -1},
        {"&O17", 15},
        {"&17", 15},
        {"&H10000", 65536},
        {"&HFFFFFFFF", -1},
        {"&H", 0},
        {"-", 0},
        {"+", 0},
        {".", 0},
        {"--5", 0},
        {"5-", 5},
        {"3/30/2011", 3},
        {"12 34", 1234},
        {"\t1\n2", 12},
        {"7E-1", 0.7},
        {"1e-400", 0},
        {"- 5", -5},
        {"5.", 5},
    };
    for (const TextToNumber &row : rows)
        EXPECT_EQ(Val(QString::fromUtf8(row.text)), row.number) << row.text;
}

TEST(Val, OverflowsOnlyBeyondTheRangeOfADouble)
{
    EXPECT_EQ(errorNumberOf([] { Val(u"1e400"); }), 6);
    EXPECT_EQ(errorNumberOf([] { Val(u"&H100000000"); }), 6);
    EXPECT_EQ(Val(u"1e308"), 1e308);
}

TEST(IsNumeric, AcceptsWhatReadsAsANumberAsAWholeAndGivesItsValue)
{
    const TextToNumber rows[] = {
        {"30", 30},
        {"  30 ", 30},
        {"-5", -5},
        {"- 5", -5},
        {"5-", -5},
        {"5 -", -5},
        {"+5", 5},
        {"5+", 5},
        {"1,234", 1234},
        {"1,2,3,4", 1234},
        {"12,", 12},
        {".5", 0.5},
        {"5.", 5},
        {"-.5", -0.5},
        {"1e5", 100000},
        {"1E-2", 0.01},
        {"1d5", 100000},
        {"&H1F", 31},
        {"&O17", 15},
        {"$1,234.50", 1234.5},
        {"($1,234.50)", -1234.5},
        {"(5.00)", -5},
        {"(5)", -5},
        {"-$5", -5},
        {"$-5", -5},
        {"5$", 5},
        {"$ ( 5 )", -5},
        {"0.0", 0},
    };
    for (const TextToNumber &row : rows) {
        EXPECT_TRUE(IsNumeric(QString::fromUtf8(row.text))) << row.text;
        EXPECT_EQ(CDbl(QString::fromUtf8(row.text)), row.number) << row.text;
    }
}

TEST(IsNumeric, RefusesAllOtherTextWhichIsATypeMismatchWhenConverted)
{
    const char *const rows[] = {"",      " ",         "--5", "-5-",  "(5",   "5)",  ",5",  ".",
                                "-",     "$",         "1e",  "$1e5", "0x1F", "5%",  "1/2", "12 34",
                                "1.2.3", "3/30/2011", "abc", "True", "&H",   "(5))"};
    for (const char *row : rows) {
        EXPECT_FALSE(IsNumeric(QString::fromUtf8(row))) << row;
        EXPECT_EQ(errorNumberOf([&] { CDbl(QString::fromUtf8(row)); }), 13) << row;
    }
}

TEST(IsNumeric, IsFalseForANumberBeyondTheRangeWhichConvertsToOverflow)
{
    for (const char16_t *text : {u"1e400", u"-1e400", u"&H100000000", u"&HFFFFFFFFFFFFFFFFFFFF", u"&O777777777777"}) {
        EXPECT_FALSE(IsNumeric(text));
        EXPECT_EQ(Format(QString::fromUtf16(text), MoneyBoxFormat), QString::fromUtf16(text));
        EXPECT_EQ(errorNumberOf([&] { CDbl(text); }), 6);
        EXPECT_EQ(errorNumberOf([&] { CInt(text); }), 6);
    }
}

TEST(IsNumeric, PassesTextsWhoseLeadingNumberIsAnotherFigure)
{
    const struct
    {
        const char *text;
        double value, leading;
    } rows[] = {{"$5", 5, 0}, {"1,234", 1234, 1}, {"(5)", -5, 0}, {"5-", -5, 5}};
    for (const auto &row : rows) {
        EXPECT_EQ(CDbl(QString::fromUtf8(row.text)), row.value);
        EXPECT_EQ(Val(QString::fromUtf8(row.text)), row.leading);
    }
}

TEST(TextOfNumber, ShowsFifteenDigitsWithoutTrailingZeros)
{
    const struct
    {
        double number;
        const char *text;
    } rows[] = {
        {0, "0"},
        {-0.0, "0"},
        {5, "5"},
        {-3.25, "-3.25"},
        {12.30, "12.3"},
        {100, "100"},
        {2.0 / 3, "0.666666666666667"},
        {1.0 / 3, "0.333333333333333"},
        {1.0 / 24, "4.16666666666667E-02"},
        {1.0 / 15, "6.66666666666667E-02"},
        {100.0 / 3, "33.3333333333333"},
        {0.00001, "0.00001"},
        {0.0001, "0.0001"},
        {0.00001234, "0.00001234"},
        {0.1 + 0.2, "0.3"},
        {1.1 * 1.1, "1.21"},
        {0.3 - 0.1 * 3, "-5.55111512312578E-17"},
        {999999999999999.0, "999999999999999"},
        {1e15, "1E+15"},
        {1e16, "1E+16"},
        {123456789012345678.0, "1.23456789012346E+17"},
        {1e100, "1E+100"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(textOf(row.number), row.text);
}

TEST(WholeNumbers, RoundHalvesToEvenAndOverflowBeyondTheirRange)
{
    const struct
    {
        double number;
        int whole;
    } rows[] = {{0.5, 0},    {1.5, 2},    {2.5, 2},         {-0.5, 0},         {-1.5, -2},
                {2.4999, 2}, {2.5001, 3}, {32767.4, 32767}, {-32768.5, -32768}};
    for (const auto &row : rows) {
        EXPECT_EQ(CInt(row.number), row.whole) << row.number;
        EXPECT_EQ(CLng(row.number), row.whole) << row.number;
    }
    EXPECT_EQ(errorNumberOf([] { CInt(32767.5); }), 6);
    EXPECT_EQ(errorNumberOf([] { CInt(-32769.0); }), 6);
    EXPECT_EQ(errorNumberOf([] { CInt(std::nan("")); }), 6);
    EXPECT_EQ(CLng(2147483647.4), 2147483647);
    EXPECT_EQ(errorNumberOf([] { CLng(2147483647.5); }), 6);
}

TEST(WholeNumbers, ComeOutOfNumericText)
{
    EXPECT_EQ(CInt(u"7"), 7);
    EXPECT_EQ(CInt(u"$7"), 7);
    EXPECT_EQ(CInt(u"(7)"), -7);
    EXPECT_EQ(errorNumberOf([] { CInt(u"40000"); }), 6);
    EXPECT_EQ(errorNumberOf([] { CInt(u""); }), 13);
    EXPECT_EQ(errorNumberOf([] { CLng(u"abc"); }), 13);
}

TEST(RoundTo2, LetsTheMultiplicationDecideWhetherThereIsATie)
{
    const struct
    {
        double number, rounded;
    } rows[] = {{0.005, 0},    {1.005, 1},      {2.675, 2.68},       {0.015, 0.02},       {1.015, 1.01},
                {2.665, 2.66}, {0.025, 0.02},   {1.025, 1.02},       {2.685, 2.68},       {0.125, 0.12},
                {0.375, 0.38}, {10.125, 10.12}, {1234.565, 1234.56}, {1234.575, 1234.58}, {-2.665, -2.66}};
    for (const auto &row : rows)
        EXPECT_EQ(roundTo2(row.number), row.rounded) << row.number;
}

} // namespace
