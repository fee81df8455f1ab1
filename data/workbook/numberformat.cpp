#include "data/workbook/numberformat.h"

#include "data/values/limits.h"

namespace {

/// The first section of a format without what it prints literally: quoted and escaped characters, and colours and
/// conditions in brackets. An elapsed time ("[h]") stays.
QString placeholders(const QString &format)
{
    QString result;
    for (qsizetype i = 0; i < format.size(); ++i) {
        const QChar c = format[i];
        if (c == ';')
            break;
        if (c == '"') {
            const auto end = format.indexOf('"', i + 1);
            i = end < 0 ? format.size() : end;
        } else if (c == '\\' || c == '_' || c == '*') {
            ++i;
        } else if (c == '[') {
            const auto end = format.indexOf(']', i + 1);
            const QString inside = format.mid(i + 1, end - i - 1).toLower();
            if (inside.startsWith('$') || inside == "h" || inside == "m" || inside == "s")
                result += inside;
            i = end < 0 ? format.size() : end;
        } else {
            result += c.toLower();
        }
    }
    return result;
}

/// Formats that a file names by number alone; those from 27 to 36 and from 50 on are East Asian dates.
bool isBuiltInDate(int identifier)
{
    return (identifier >= 14 && identifier <= 22) || (identifier >= 27 && identifier <= 36) ||
           (identifier >= 45 && identifier <= 47) || (identifier >= 50 && identifier <= 58);
}

} // namespace

NumberKind kindOfNumberFormat(int identifier, const QString &format)
{
    if (isBuiltInDate(identifier))
        return NumberKind::Date;
    if ((identifier >= 5 && identifier <= 8) || identifier == 42 || identifier == 44)
        return NumberKind::Money;
    const QString text = placeholders(format);
    if (text.contains('$'))
        return NumberKind::Money;
    for (const QChar c : QStringView(u"dmyhs")) {
        if (text.contains(c))
            return NumberKind::Date;
    }
    return NumberKind::Plain;
}

Value numberValue(double number, NumberKind kind, double firstDay)
{
    if (kind == NumberKind::Money && std::abs(number) < BeyondMoney)
        return Currency::of(number);
    if (kind == NumberKind::Date && number >= 0 && firstDay + number < Date::Beyond)
        return Date(firstDay + number);
    return number;
}

Value isoDate(const QString &text)
{
    if (const auto date = Date::fromIso(text.left(19)))
        return *date;
    return text;
}
