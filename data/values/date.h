#pragma once

#include <QDateTime>
#include <QString>
#include <compare>
#include <optional>

/// A date with time as the platform counts it: days since 30 December 1899, the fraction being the time of day.
class Date
{
public:
    /// The serials of the first day of the year 100 and of the day behind the last one of 9999.
    static constexpr double Least = -657434, Beyond = 2958466;

    constexpr Date() = default;
    constexpr explicit Date(double serial) : m_serial(serial) {}
    explicit Date(QDate date);
    explicit Date(const QDateTime &moment);
    Date(int year, int month, int day);

    /// Today with no time part, and the present moment to the second; both from Clock.
    static Date today();
    static Date now();

    constexpr double serial() const { return m_serial; }
    QDate date() const;
    QTime time() const;

    /// The year that is meant by one written with up to two digits: 1930 to 2029.
    static constexpr int fullYear(int year) { return year < 30 ? 2000 + year : 1900 + year; }

    /// "3/30/2011", or "3/30/2011 2:05:09 PM" with a time part, or the time alone for the day 0.
    QString toText() const;
    /// "2011-03-30 14:05:09", the form in which the engine stores it (always with the time).
    QString toIso() const;
    /// Reads what toIso writes, the time part being optional; nothing when it is no such text.
    static std::optional<Date> fromIso(QStringView text);

    /// That many days later, fractions being times of day; beyond the years 100 to 9999 error 6.
    Date addDays(double days) const;
    /// Keeps the day and clamps it to the last day of the month reached.
    Date addMonths(int months) const;

    constexpr auto operator<=>(const Date &) const = default;

private:
    double m_serial = 0;
};
