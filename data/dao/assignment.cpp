#include "data/dao/assignment.h"

#include "data/values/datetext.h"
#include "data/values/numbers.h"
#include "data/values/runtimeerror.h"
#include <limits>

namespace {

[[noreturn]] void refuse(const ColumnDef &column, const Value &value)
{
    throw runtimeError(3421, {}, QString("value '%1' into column %2").arg(value.joined(), column.name));
}

/// A text counts as a whole or not at all: of "12 boxes" nothing is stored, where Val would take the 12.
double number(const ColumnDef &column, const Value &value)
{
    if (value.type() != Value::Type::Text)
        return value.toDouble();
    const auto number = numberFromText(value.toText());
    if (!number)
        refuse(column, value);
    return *number;
}

Value wholeNumber(const ColumnDef &column, const Value &value)
{
    if (value.type() == Value::Type::Long)
        return value;
    const double rounded = std::nearbyint(number(column, value)); // halves to even
    if (!(rounded >= std::numeric_limits<qint32>::min() && rounded <= std::numeric_limits<qint32>::max()))
        refuse(column, value);
    return qint32(rounded);
}

Value date(const ColumnDef &column, const Value &value)
{
    if (value.type() == Value::Type::Date)
        return value;
    std::optional<Date> date;
    if (value.type() == Value::Type::Text)
        date = dateFromText(value.toText());
    // A number is the days since day 0, as everywhere; beyond the calendar there is no date to store.
    else if (const double serial = value.toDouble(); serial >= Date::Least && serial < Date::Beyond)
        date = Date(serial);
    if (!date)
        refuse(column, value);
    return *date;
}

Value yesNo(const ColumnDef &column, const Value &value)
{
    if (value.type() == Value::Type::Text) {
        const QString text = value.toText();
        if (text.compare(u"True", Qt::CaseInsensitive) == 0)
            return true;
        if (text.compare(u"False", Qt::CaseInsensitive) == 0)
            return false;
    }
    // Any number but 0 is True, also one written as a text.
    return number(column, value) != 0;
}

Value text(const ColumnDef &column, const Value &value)
{
    Value text = value.type() == Value::Type::Text ? value : Value(value.toText());
    // The engines underneath end a text there.
    if (text.toText().contains(QChar(0)))
        refuse(column, value);
    // Never cut: a name without its end is another name, and nobody would notice.
    if (column.type == ColumnType::Text && text.toText().size() > column.size)
        throw runtimeError(3163, {}, QString("value '%1' into column %2").arg(text.toText(), column.name));
    return text;
}

} // namespace

Value assignedTo(const ColumnDef &column, const Value &value)
{
    if (value.isNull())
        return value;
    switch (column.type) {
    case ColumnType::Double:
        return number(column, value);
    case ColumnType::Currency:
        return Currency::of(number(column, value));
    case ColumnType::Long:
        return wholeNumber(column, value);
    case ColumnType::Date:
        return date(column, value);
    case ColumnType::YesNo:
        return yesNo(column, value);
    default:
        return text(column, value);
    }
}
