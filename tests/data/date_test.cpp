#include "data/values/clock.h"
#include "data/values/date.h"
#include "tests/support/printers.h"

namespace {

Date at(int year, int month, int day, int hour = 0, int minute = 0, int second = 0)
{
    return Date(QDateTime(QDate(year, month, day), QTime(hour, minute, second)));
}

TEST(Date, CountsDaysSinceTheEndOf1899)
{
    EXPECT_EQ(Date(1899, 12, 30).serial(), 0);
    EXPECT_EQ(Date(1900, 1, 1).serial(), 2);
    EXPECT_EQ(Date(2011, 3, 30).serial(), 40632);
    EXPECT_EQ(at(2011, 3, 30, 12).serial(), 40632.5);
    EXPECT_EQ(at(1899, 12, 29, 6).serial(), -1.25);
    EXPECT_EQ(Date(-1.25).date(), QDate(1899, 12, 29));
    EXPECT_EQ(Date(-1.25).time(), QTime(6, 0));
    EXPECT_EQ(Date(40632.999999).toText(), "3/31/2011");
}

TEST(Date, EverySecondOfADaySurvivesStorage)
{
    for (int second = 0; second < 86400; ++second) {
        const Date date(QDateTime(QDate(2011, 3, 30), QTime(0, 0).addSecs(second)));
        ASSERT_EQ(Date::fromIso(date.toIso()), date) << second;
    }
}

TEST(Date, MovesByMonthsToTheLastDayWhereTheDayIsMissing)
{
    const struct
    {
        Date from;
        int months;
        Date to;
    } rows[] = {{Date(2011, 3, 31), -1, Date(2011, 2, 28)},  {Date(2012, 3, 31), -1, Date(2012, 2, 29)},
                {Date(2011, 1, 31), 1, Date(2011, 2, 28)},   {Date(2011, 3, 30), -1, Date(2011, 2, 28)},
                {Date(2011, 1, 15), -3, Date(2010, 10, 15)}, {at(2011, 3, 31, 8), 1, at(2011, 4, 30, 8)}};
    for (const auto &row : rows)
        EXPECT_EQ(row.from.addMonths(row.months), row.to);
}

TEST(Date, TodayHasNoTimeAndNowHasWholeSeconds)
{
    Clock::setSource([] { return QDateTime(QDate(2011, 3, 30), QTime(14, 5, 9, 700)); });
    EXPECT_EQ(Date::today(), Date(2011, 3, 30));
    EXPECT_EQ(Date::now(), at(2011, 3, 30, 14, 5, 9));
    Clock::setSource({});
}

} // namespace
