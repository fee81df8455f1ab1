#include "data/values/value.h"

#include "data/values/datetext.h"
#include "data/values/numbers.h"
#include "data/values/runtimeerror.h"
#include <cmath>

namespace {

/// Calls the visitor with the value held; Null is the error of using it where a value must be.
template <typename Result, typename Variant, typename Visitor> Result convert(const Variant &variant, Visitor visitor)
{
    return std::visit(
        [&](const auto &held) -> Result {
            if constexpr (std::is_same_v<std::decay_t<decltype(held)>, std::monostate>)
                throw runtimeError(94);
            else
                return visitor(held);
        },
        variant);
}

/// How each type turns into text.
struct ToText
{
    QString operator()(bool value) const { return textOf(value); }
    QString operator()(qint32 value) const { return QString::number(value); }
    QString operator()(double value) const { return textOf(value); }
    QString operator()(const QString &value) const { return value; }
    QString operator()(::Date value) const { return value.toText(); }

    QString operator()(::Currency value) const
    {
        // Through the unsigned type, since the least amount has no positive counterpart.
        const quint64 units = value.units < 0 ? 0 - quint64(value.units) : quint64(value.units);
        QString text = QString::number(units / 10000);
        if (const int fraction = int(units % 10000)) {
            text += QString(".%1").arg(fraction, 4, 10, QLatin1Char('0'));
            while (text.endsWith(u'0'))
                text.chop(1);
        }
        return value.units < 0 ? u'-' + text : text;
    }
};

/// How each type counts as a number. True is -1, all bits set.
struct ToDouble
{
    double operator()(bool value) const { return value ? -1 : 0; }
    double operator()(qint32 value) const { return value; }
    double operator()(double value) const { return value; }
    double operator()(::Currency value) const { return value.amount(); }
    double operator()(::Date value) const { return value.serial(); }
    double operator()(const QString &value) const { return CDbl(value); }
};

/// The two words in any case, or a number of which 0 is False.
bool booleanFromText(const QString &text)
{
    if (text.compare(u"True", Qt::CaseInsensitive) == 0)
        return true;
    if (text.compare(u"False", Qt::CaseInsensitive) == 0)
        return false;
    return CDbl(text) != 0;
}

::Date dateFromNumber(double serial)
{
    if (!(serial >= ::Date::Least && serial < ::Date::Beyond))
        throw runtimeError(6);
    return ::Date(serial);
}

} // namespace

Currency Currency::of(double amount)
{
    const double units = std::nearbyint(amount * 10000.0);
    constexpr double limit = 9223372036854775808.0;
    if (!(units >= -limit && units < limit))
        throw runtimeError(6);
    return {qint64(units)};
}

QString Value::toText() const
{
    return convert<QString>(m_value, ToText());
}

double Value::toDouble() const
{
    return convert<double>(m_value, ToDouble());
}

double Value::leadingNumber() const
{
    if (type() == Type::Long)
        return toLong();
    if (type() == Type::Double) {
        // A number of up to four decimals comes out of its text as it went in.
        const double number = toDouble();
        const double units = std::nearbyint(number * 10000);
        if (std::abs(units) < 1e15 && units / 10000 == number)
            // A zero below zero becomes the plain one.
            return number + 0.0;
    }
    return Val(toText());
}

qint32 Value::toLong() const
{
    return CLng(toDouble());
}

qint16 Value::toInteger() const
{
    return CInt(toDouble());
}

bool Value::toBoolean() const
{
    if (type() == Type::Text)
        return booleanFromText(toText());
    return toDouble() != 0;
}

::Date Value::toDate() const
{
    switch (type()) {
    case Type::Date:
        return std::get<::Date>(m_value);
    case Type::Text:
        return CDate(toText());
    default:
        return dateFromNumber(toDouble());
    }
}
