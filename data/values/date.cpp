#include "data/values/date.h"

#include "data/values/clock.h"
#include "data/values/runtimeerror.h"

namespace {

constexpr int SecondsPerDay = 86400;

/// The day that counts as 0.
const QDate &dayZero()
{
    static const QDate day(1899, 12, 30);
    return day;
}

double serialOf(QDate date, QTime time)
{
    const double days = double(dayZero().daysTo(date));
    const double fraction = double(time.msecsSinceStartOfDay() / 1000) / SecondsPerDay;
    // Before day zero the fraction still counts forward within its day, so it moves the number away from zero.
    return days < 0 ? days - fraction : days + fraction;
}

/// A serial taken apart into its day and the seconds in it, the seconds rounded.
struct DayAndSecond
{
    explicit DayAndSecond(double serial)
    {
        const double whole = std::trunc(serial);
        day = qint64(whole);
        second = int(std::lround(std::fabs(serial - whole) * SecondsPerDay));
        // The last half second of a day belongs to the next one.
        if (second == SecondsPerDay) {
            second = 0;
            ++day;
        }
    }

    QDate date() const { return dayZero().addDays(day); }
    QTime time() const { return QTime(0, 0).addSecs(second); }

    qint64 day;
    int second;
};

/// "2:05:09 PM": no leading zero in the hour, and seconds always.
QString timeText(QTime time)
{
    const int hour = time.hour() % 12 == 0 ? 12 : time.hour() % 12;
    return QString("%1:%2:%3 %4")
        .arg(hour)
        .arg(time.minute(), 2, 10, QLatin1Char('0'))
        .arg(time.second(), 2, 10, QLatin1Char('0'))
        .arg(time.hour() < 12 ? QLatin1String("AM") : QLatin1String("PM"));
}

/// The digits at a fixed place, or -1.
int digitsAt(QStringView text, int from, int count)
{
    int number = 0;
    for (const QChar c : text.mid(from, count)) {
        if (c < u'0' || c > u'9')
            return -1;
        number = number * 10 + (c.unicode() - u'0');
    }
    return number;
}

} // namespace

Date::Date(QDate date) : m_serial(serialOf(date, QTime(0, 0))) {}

Date::Date(const QDateTime &moment) : m_serial(serialOf(moment.date(), moment.time())) {}

Date::Date(int year, int month, int day) : Date(QDate(year, month, day)) {}

Date Date::today()
{
    return Date(Clock::now().date());
}

Date Date::now()
{
    return Date(Clock::now());
}

QDate Date::date() const
{
    return DayAndSecond(m_serial).date();
}

QTime Date::time() const
{
    return DayAndSecond(m_serial).time();
}

QString Date::toText() const
{
    const DayAndSecond parts(m_serial);
    // A time without a day prints without one.
    if (parts.day == 0)
        return timeText(parts.time());
    const QDate date = parts.date();
    QString text =
        QString::number(date.month()) + u'/' + QString::number(date.day()) + u'/' + QString::number(date.year());
    if (parts.second != 0)
        text += u' ' + timeText(parts.time());
    return text;
}

QString Date::toIso() const
{
    const DayAndSecond parts(m_serial);
    return parts.date().toString(u"yyyy-MM-dd") + parts.time().toString(u" HH:mm:ss");
}

std::optional<Date> Date::fromIso(QStringView text)
{
    const bool hasTime = text.size() == 19;
    if (!hasTime && text.size() != 10)
        return std::nullopt;
    if (text[4] != u'-' || text[7] != u'-')
        return std::nullopt;
    const QDate date(digitsAt(text, 0, 4), digitsAt(text, 5, 2), digitsAt(text, 8, 2));
    QTime time(0, 0);
    if (hasTime) {
        if ((text[10] != u' ' && text[10] != u'T') || text[13] != u':' || text[16] != u':')
            return std::nullopt;
        time = QTime(digitsAt(text, 11, 2), digitsAt(text, 14, 2), digitsAt(text, 17, 2));
    }
    if (!date.isValid() || !time.isValid())
        return std::nullopt;
    // In UTC, where no hour is left out and none comes twice.
    return Date(QDateTime(date, time, Qt::UTC));
}

Date Date::addDays(double days) const
{
    const Date sum(m_serial + days);
    // The least day's times of day lie below it, since they count away from zero.
    if (!(sum.m_serial > Least - 1 && sum.m_serial < Beyond))
        throw runtimeError(6);
    return sum;
}

Date Date::addMonths(int months) const
{
    const DayAndSecond parts(m_serial);
    return Date(QDateTime(parts.date().addMonths(months), parts.time(), Qt::UTC));
}
