#include "tools/demo/company.h"

namespace demo {

namespace {

/// The three on which nothing at all moves.
bool isHoliday(QDate date)
{
    const int day = date.month() * 100 + date.day();
    return day == 101 || day == 704 || day == 1225;
}

bool isBusinessDay(QDate date)
{
    return date.dayOfWeek() <= 5 && !isHoliday(date);
}

} // namespace

void makeCalendar(Company &company)
{
    // Three years: reports that compare a period with the year before find both, and have one to spare.
    company.start = company.options.until.addYears(-3).addDays(1);
    for (QDate day = company.start; day <= company.options.until; day = day.addDays(1)) {
        if (isBusinessDay(day))
            company.businessDays.push_back(day);
    }
}

QDate Company::businessDayFrom(QDate date) const
{
    return businessDaysAfter(date, 0);
}

QDate Company::businessDaysAfter(QDate date, int count) const
{
    const auto first = std::lower_bound(businessDays.begin(), businessDays.end(), date);
    return businessDays.end() - first > count ? *(first + count) : QDate();
}

std::vector<QDate> invoiceRuns(const Company &company)
{
    std::vector<QDate> runs;
    for (size_t i = 0; i + 1 < company.businessDays.size(); ++i) {
        const QDate day = company.businessDays[i], next = company.businessDays[i + 1];
        const bool lastOfMonth = next.month() != day.month();
        // The last business day of each half month; the last day of all may still have a later one to come.
        const bool lastOfHalf = day.day() <= 15 && next.day() > 15;
        if (lastOfMonth || lastOfHalf)
            runs.push_back(day);
    }
    return runs;
}

} // namespace demo
