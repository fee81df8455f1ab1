#include "data/values/clock.h"
#include "data/values/datetext.h"
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
}

TEST(Date, ShowsMonthDayYearAndTheTimeOnlyWhenThereIsOne)
{
    const struct
    {
        Date date;
        const char *text;
    } rows[] = {
        {Date(2011, 3, 30), "3/30/2011"},
        {Date(2000, 1, 1), "1/1/2000"},
        {at(2011, 3, 30, 14, 5, 9), "3/30/2011 2:05:09 PM"},
        {at(2011, 3, 30, 0, 0, 1), "3/30/2011 12:00:01 AM"},
        {at(2011, 3, 30, 12), "3/30/2011 12:00:00 PM"},
        {Date(0.5), "12:00:00 PM"},
        {Date(), "12:00:00 AM"},
        {Date(40632.999999), "3/31/2011"},
    };
    for (const auto &row : rows)
        EXPECT_EQ(row.date.toText(), row.text);
}

TEST(Date, EverySecondOfADaySurvivesStorage)
{
    for (int second = 0; second < 86400; ++second) {
        const Date date(QDateTime(QDate(2011, 3, 30), QTime(0, 0).addSecs(second)));
        ASSERT_EQ(Date::fromIso(date.toIso()), date) << second;
    }
}

TEST(Date, ReadsOnlyTheStoredForm)
{
    EXPECT_EQ(Date::fromIso(u"2011-03-30 14:05:09"), at(2011, 3, 30, 14, 5, 9));
    EXPECT_EQ(Date::fromIso(u"2011-03-30"), Date(2011, 3, 30));
    for (QStringView text : {u"", u"2011-3-30", u"3/30/2011", u"2011-02-29", u"2011-03-30 25:00:00",
                             u"2011-03-30 14:05", u"2011x03-30", u"2011-03-30 14:05:0x"})
        EXPECT_FALSE(Date::fromIso(text)) << text.toString().toStdString();
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

TEST(DateFromText, ReadsTheFormsPeopleType)
{
    Clock::setSource([] { return QDateTime(QDate(2011, 6, 1), QTime(8, 0)); });
    const struct
    {
        const char *text;
        Date date;
    } rows[] = {
        {"3/30/2011", Date(2011, 3, 30)},
        {"03/30/2011", Date(2011, 3, 30)},
        {"3-30-2011", Date(2011, 3, 30)},
        {"3/30/11", Date(2011, 3, 30)},
        {"3/30", Date(2011, 3, 30)},
        {"30 Mar 2011", Date(2011, 3, 30)},
        {"March 30, 2011", Date(2011, 3, 30)},
        {"30-mar-11", Date(2011, 3, 30)},
        {"Mar 30", Date(2011, 3, 30)},
        {"2011-03-30", Date(2011, 3, 30)},
        {"30/3/2011", Date(2011, 3, 30)},
        {"1/2/2011", Date(2011, 1, 2)},
        {"1/1/29", Date(2029, 1, 1)},
        {"1/1/30", Date(1930, 1, 1)},
        {"2/29/01", Date(2029, 2, 1)},
        {"45/1/2", Date(1945, 1, 2)},
        {"3/30/2011 2:05:09 PM", at(2011, 3, 30, 14, 5, 9)},
        {"3/30/2011 14:05:09", at(2011, 3, 30, 14, 5, 9)},
        {"3/30/2011 12:00 am", at(2011, 3, 30)},
        {"2011-03-30 14:05:09", at(2011, 3, 30, 14, 5, 9)},
        {" 3/30/2011 ", Date(2011, 3, 30)},
        {"2:00 PM", Date(14.0 / 24)},
    };
    for (const auto &row : rows)
        EXPECT_EQ(CDate(QString::fromUtf8(row.text)), row.date) << row.text;
    Clock::setSource({});
}

TEST(DateFromText, RefusesWhatIsNoDateInAnyReading)
{
    for (const char *text :
         {"", " ", "abc", "2/29/2011", "13/13/2011", "2004/20/12", "3/30/2011 25:00", "3/30/2011 13:00 PM", "3//2011",
          "3/30/2011/5", "30 Foo 2011", "Mar", "12", ":", "1:2:3:4", "/", "99999999999/1/1", "99999999999:30"}) {
        EXPECT_FALSE(dateFromText(QString::fromUtf8(text))) << text;
        EXPECT_EQ(errorNumberOf([&] { CDate(QString::fromUtf8(text)); }), 13) << text;
    }
}

} // namespace
