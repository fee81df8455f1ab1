#include "reports/salesperiods.h"
#include "reports/saleswindow.h"
#include "tests/support/printers.h"
#include "tests/support/testclock.h"

namespace {

TEST(SalesPeriods, TakeLastYearFromTheEndDateAlone)
{
    const struct
    {
        const char *begin, *end, *lastBegin, *lastEnd;
    } cases[] = {
        {"3/15/2010", "9/30/2010", "3/15/2009", "9/30/2009"},
        {"2/29/2004", "3/31/2004", "2/28/2003", "3/31/2003"},
        {"02/29/2004", "02/29/2004", "02/28/2003", "02/28/2003"},
        {"2/29/2004", "2/28/2005", "2/29/2004", "2/28/2004"},
        {"2/1/2005", "2/28/2005", "2/1/2004", "2/28/2004"},
        {"2/29/1900", "2/29/1901", "2/29/1900", "2/29/1900"}, // two digits modulo four is the whole test
        {"12/15/2010", "1/15/2011", "12/15/2010", "1/15/2010"},
        {"1/29/2004", "1/31/2004", "1/29/2003", "1/31/2003"},
    };
    for (const auto &c : cases) {
        const SalesPeriods periods = salesPeriods(c.begin, c.end);
        EXPECT_EQ(periods.LastYearBegin, c.lastBegin) << c.begin;
        EXPECT_EQ(periods.LastYearEnd, c.lastEnd) << c.end;
        EXPECT_EQ(periods.EndYear, QString(c.end).section('/', 2));
    }
}

TEST(SalesWindow, IsFullMonthsBeforeThisOne)
{
    const struct
    {
        const char *today;
        int months;
        const char *start, *end;
    } cases[] = {
        {"2010-05-01", 3, "2/1/2010", "4/30/2010"},   {"2010-05-31", 3, "2/1/2010", "4/30/2010"},
        {"2010-05-15", 1, "4/1/2010", "4/30/2010"},   {"2010-05-15", 0, "5/1/2010", "4/30/2010"},
        {"2010-03-31", 1, "2/1/2010", "2/28/2010"},   {"2012-03-31", 1, "2/1/2012", "2/28/2012"},
        {"2010-01-31", 2, "11/1/2009", "12/31/2009"}, {"2010-07-10", 12, "7/1/2009", "6/30/2010"},
        {"2010-10-05", 1, "9/1/2010", "9/30/2010"},   {"2010-12-31", 1, "11/1/2010", "11/30/2010"},
        {"2012-02-29", 12, "2/1/2011", "1/31/2012"},
    };
    for (const auto &c : cases) {
        const TestClock clock(QString(c.today) + " 12:00:00");
        const SalesWindow window = salesWindow(c.months);
        EXPECT_EQ(window.StartDate, c.start) << c.today;
        EXPECT_EQ(window.EndDate, c.end) << c.today;
    }
}

} // namespace
