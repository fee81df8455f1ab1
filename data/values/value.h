#pragma once

#include "data/values/date.h"
#include <QString>
#include <variant>

/// The platform's money type, a whole number of ten-thousandths.
struct Currency
{
    qint64 units = 0;
    static Currency of(double amount); ///< rounds half to even at four decimals
    double amount() const { return double(units) / 10000.0; }
    auto operator<=>(const Currency &) const = default;
};

/// One value of a column, a field or an expression. Null and the empty text are different values.
/// The to... functions convert as an assignment to such a variable does: Null is error 94, unfit text error 13,
/// a number out of range error 6.
class Value
{
public:
    enum class Type { Null, Boolean, Long, Double, Currency, Date, Text };

    Value() = default;
    Value(bool value) : m_value(value) {}
    Value(int value) : m_value(qint32(value)) {}
    Value(double value) : m_value(value) {}
    Value(::Currency value) : m_value(value) {}
    Value(::Date value) : m_value(value) {}
    Value(QString value) : m_value(std::move(value)) {}
    Value(const char *value) : m_value(QString::fromUtf8(value)) {}

    Type type() const { return Type(m_value.index()); }
    bool isNull() const { return m_value.index() == 0; }

    QString toText() const;
    /// The text as `&` joins it: Null counts as empty.
    QString joined() const { return isNull() ? QString() : toText(); }
    double toDouble() const;
    /// What Val makes of the text: a Double is rounded to its 15 digits on the way.
    double leadingNumber() const;
    qint32 toLong() const;
    qint16 toInteger() const;
    bool toBoolean() const;
    ::Date toDate() const;

    /// Same type and same value (texts by code points); Null equals Null. For tests and containers, not for SQL.
    bool operator==(const Value &) const = default;

private:
    std::variant<std::monostate, bool, qint32, double, ::Currency, ::Date, QString> m_value;
};
