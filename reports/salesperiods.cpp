#include "reports/salesperiods.h"
#include "data/values/numbers.h"

namespace {

struct DateParts
{
    QString month, day, year;
};

DateParts partsOf(const QString &text)
{
    const auto first = text.indexOf('/');
    const auto second = text.indexOf('/', first + 1);
    return {text.left(first), text.mid(first + 1, second - first - 1), text.mid(second + 1)};
}

/// Moves a 29 February to the day before it.
void leaveLeapDay(DateParts &date)
{
    const QString monthDay = date.month + "/" + date.day;
    // Short dates come with or without leading zeros, as the workstation is set up.
    if (monthDay == "02/29" || monthDay == "2/29")
        date.day = "28";
}

} // namespace

/// Dates are cut as texts, and both ends of last year's period take the year of the end date. So a period that runs
/// over New Year has none a year before; that is meant.
SalesPeriods salesPeriods(const QString &BeginDate, const QString &EndDate)
{
    DateParts begin = partsOf(BeginDate);
    DateParts end = partsOf(EndDate);
    const QString LastYear = textOf(Val(end.year) - 1);
    // The whole of the leap year rule: two digits, by four.
    if (CInt(Val(LastYear.right(2))) % 4 != 0) {
        leaveLeapDay(begin);
        leaveLeapDay(end);
    }
    return {end.year, LastYear, begin.month + "/" + begin.day + "/" + LastYear,
            end.month + "/" + end.day + "/" + LastYear};
}
