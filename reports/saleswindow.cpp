#include "reports/saleswindow.h"
#include "data/values/date.h"

static int lastDayOf(int month)
{
    switch (month) {
    // In leap years too: sales of a 29 February count in no window that ends with it.
    case 2:
        return 28;
    case 4:
    case 6:
    case 9:
    case 11:
        return 30;
    default:
        return 31;
    }
}

SalesWindow salesWindow(int Months)
{
    const Date today = Date::today();
    // Moving back by months clamps to the last day, which matters to neither end: both become whole months.
    const QDate start = today.addMonths(-Months).date();
    const QDate end = today.addMonths(-1).date();
    return {QString("%1/1/%2").arg(start.month()).arg(start.year()),
            QString("%1/%2/%3").arg(end.month()).arg(lastDayOf(end.month())).arg(end.year())};
}
