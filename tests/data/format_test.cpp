#include "data/values/format.h"
#include "data/values/numbers.h"
#include "tests/support/printers.h"

namespace {

TEST(Format, PrintsTheThreeMoneyPictures)
{
    const struct
    {
        double number;
        const char *box, *grid, *total;
    } rows[] = {
        {0, "$0.00", "$.", "$0.00"},
        {0.004, "$0.00", "$.", "$0.00"},
        {0.005, "$0.01", "$.01", "$0.01"},
        {0.01, "$0.01", "$.01", "$0.01"},
        {0.5, "$0.50", "$.5", "$0.50"},
        {0.995, "$1.00", "$1.", "$1.00"},
        {1.005, "$1.01", "$1.01", "$1.01"},
        {2.675, "$2.68", "$2.68", "$2.68"},
        {5, "$5.00", "$5.", "$5.00"},
        {12.3, "$12.30", "$12.3", "$12.30"},
        {100, "$100.00", "$100.", "$100.00"},
        {999.995, "$1,000.00", "$1,000.", "$1,000.00"},
        {1234, "$1,234.00", "$1,234.", "$1,234.00"},
        {1234.5, "$1,234.50", "$1,234.5", "$1,234.50"},
        {1234.567, "$1,234.57", "$1,234.57", "$1,234.57"},
        {1234567.891, "$1,234,567.89", "$1,234,567.89", "$1,234,567.89"},
        {-0.004, "($0.00)", "-$.", "-$0.00"},
        {-0.005, "($0.01)", "-$.01", "-$0.01"},
        {-0.5, "($0.50)", "-$.5", "-$0.50"},
        {-3, "($3.00)", "-$3.", "-$3.00"},
        {-1234.5, "($1,234.50)", "-$1,234.5", "-$1,234.50"},
        {1e15, "$1,000,000,000,000,000.00", "$1,000,000,000,000,000.", "$1,000,000,000,000,000.00"},
        {123456789012345.678, "$123,456,789,012,346.00", "$123,456,789,012,346.", "$123,456,789,012,346.00"},
        {-5.55111512312578e-17, "($0.00)", "-$.", "-$0.00"},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(Format(row.number, MoneyBoxFormat), row.box) << row.number;
        EXPECT_EQ(Format(row.number, MoneyGridFormat), row.grid) << row.number;
        EXPECT_EQ(Format(row.number, InvoiceTotalFormat), row.total) << row.number;
    }
}

TEST(Format, PrintsThePointAlsoWhenNoDigitStandsBesideIt)
{
    const struct
    {
        double number;
        QStringView picture;
        const char *text;
    } rows[] = {{123456789, u"#,#.#", "123,456,789."},
                {0.0049, u"#.##", "."},
                {-0.1, u".#", "-.1"},
                {0.0999, u"#.##", ".1"},
                {7, u"000", "007"},
                {0.125, u"0.00", "0.13"},
                {12, u"0 pcs", "12 pcs"}};
    for (const auto &row : rows)
        EXPECT_EQ(Format(row.number, row.picture), row.text) << row.number;
}

TEST(Format, ConvertsNumericTextAndLeavesOtherTextAlone)
{
    const struct
    {
        const char *text, *printed;
    } rows[] = {{"1234.5", "$1,234.50"}, {"(5)", "($5.00)"}, {"$5", "$5.00"},
                {"1,2", "$12.00"},       {"", ""},           {"abc", "abc"}};
    for (const auto &row : rows)
        EXPECT_EQ(Format(QString::fromUtf8(row.text), MoneyBoxFormat), row.printed);
}

TEST(Format, CanBeReadBackAsANumber)
{
    EXPECT_EQ(CDbl(Format(1234.5, InvoiceTotalFormat)), 1234.5);
    EXPECT_EQ(CDbl(Format(-5, InvoiceTotalFormat)), -5);
    EXPECT_EQ(CDbl(Format(-5, MoneyBoxFormat)), -5);
    EXPECT_EQ(CDbl(Format(0, InvoiceTotalFormat)), 0);
}

} // namespace
