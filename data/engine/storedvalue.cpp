#include "data/engine/storedvalue.h"

#include "data/values/datetext.h"
#include "data/values/numbers.h"
#include <chrono>
#include <limits>

namespace {

/// `count` digits as a number, or -1.
int digits(const char *text, int count)
{
    int number = 0;
    for (int i = 0; i < count; ++i) {
        const unsigned digit = static_cast<unsigned char>(text[i]) - '0';
        if (digit > 9)
            return -1;
        number = number * 10 + int(digit);
    }
    return number;
}

/// Days from 30 December 1899 to a day of the Gregorian calendar.
/// A day beyond the month's last counts on into the next, so that "2011-02-30" reads as it always has.
int daySerial(int year, int month, int day)
{
    using namespace std::chrono;
    constexpr sys_days dayZero = December / 30 / 1899;
    const sys_days first = std::chrono::year(year) / month / 1;
    return int((first - dayZero).count()) + day - 1;
}

/// Reads the stored form alone and without allocating, since every date of every row walked passes here.
std::optional<Date> storedDate(std::string_view text)
{
    if (text.size() != 19 || text[4] != '-' || text[7] != '-' || text[10] != ' ' || text[13] != ':' || text[16] != ':')
        return {};
    const int year = digits(&text[0], 4), month = digits(&text[5], 2), day = digits(&text[8], 2);
    const int hour = digits(&text[11], 2), minute = digits(&text[14], 2), second = digits(&text[17], 2);
    if (year < 100 || month < 1 || month > 12 || day < 1 || day > 31 || hour < 0 || minute < 0 || second < 0)
        return {};
    const int serial = daySerial(year, month, day);
    const double time = (hour * 3600 + minute * 60 + second) / 86400.0;
    // The platform counts the time of a day before its day 0 away from zero as well.
    return Date(serial < 0 ? serial - time : serial + time);
}

Value dateFrom(std::string_view utf8)
{
    if (const auto date = storedDate(utf8))
        return *date;
    const QString text = QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
    // Files taken over from elsewhere hold dates in other forms. What is none reads as Null.
    auto date = Date::fromIso(text);
    if (!date)
        date = dateFromText(text);
    return date ? Value(*date) : Value();
}

} // namespace

Value StoredValue::from(const Cell &cell, ColumnType type)
{
    switch (cell.kind) {
    case Cell::Null:
        return {};
    case Cell::Integer:
        return fromInteger(cell.whole, type);
    case Cell::Real:
        return fromReal(cell.real, type);
    case Cell::Text:
        break;
    }
    return fromText(cell.utf8, type);
}

Value StoredValue::fromInteger(qint64 number, ColumnType type)
{
    switch (type) {
    case ColumnType::YesNo:
        return number != 0;
    case ColumnType::Long:
        // Another tool may have put more into the column than 32 bits; the number is shown, not cut.
        if (number < std::numeric_limits<qint32>::min() || number > std::numeric_limits<qint32>::max())
            return double(number);
        return qint32(number);
    case ColumnType::Text:
    case ColumnType::Memo:
        return QString::number(number);
    default:
        return fromReal(double(number), type);
    }
}

Value StoredValue::fromReal(double number, ColumnType type)
{
    switch (type) {
    case ColumnType::YesNo:
        return number != 0;
    case ColumnType::Currency:
        return Currency::of(number);
    case ColumnType::Date:
        return Date(number);
    case ColumnType::Text:
    case ColumnType::Memo:
        return textOf(number);
    default:
        return number;
    }
}

Value StoredValue::fromText(std::string_view utf8, ColumnType type)
{
    if (type == ColumnType::Date)
        return dateFrom(utf8);
    QString text = QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
    if (type == ColumnType::Text || type == ColumnType::Memo)
        return text;
    // SQLite lets any column hold a text; what number begins it is all that counts.
    return fromReal(Val(text), type);
}
