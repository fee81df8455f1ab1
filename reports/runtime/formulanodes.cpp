#include "reports/runtime/formulanodes.h"

#include "data/values/textorder.h"
#include "data/values/runtimeerror.h"
#include "reports/runtime/rowstore.h"

bool Formula::holds(const FormulaContext &context) const
{
    const Value value = evaluate(context);
    return !value.isNull() && value.toBoolean();
}

Value FieldFormula::evaluate(const FormulaContext &context) const
{
    return context.row < 0 ? Value() : context.rows->value(context.row, m_field);
}

Value defaultOf(FormulaType type)
{
    switch (type) {
    case FormulaType::Boolean:
        return false;
    case FormulaType::Number:
        return 0.0;
    case FormulaType::Text:
        return QString();
    case FormulaType::Date:
        break;
    }
    return Date();
}

Value operand(const Formula &formula, const FormulaContext &context)
{
    Value value = formula.evaluate(context);
    if (value.isNull() && context.nullsAsDefaults)
        return defaultOf(formula.type());
    return value;
}

int textOrder(const QString &left, const QString &right)
{
    return left == right ? 0 : compareTexts(left.toStdString(), right.toStdString());
}

int compareValues(const Value &left, const Value &right)
{
    if (left.isNull())
        return right.isNull() ? 0 : -1;
    if (right.isNull())
        return 1;
    if (left.type() == Value::Type::Text)
        return textOrder(left.toText(), right.toText());
    const double a = left.type() == Value::Type::Date ? left.toDate().serial() : left.toDouble();
    const double b = right.type() == Value::Type::Date ? right.toDate().serial() : right.toDouble();
    return a < b ? -1 : a > b ? 1 : 0;
}

FormulaPtr computed(FormulaType type, ComputedFormula::Function function)
{
    return std::make_shared<ComputedFormula>(type, std::move(function));
}

namespace {

double asNumber(const Value &value)
{
    return value.type() == Value::Type::Date ? value.toDate().serial() : value.toDouble();
}

double calculated(QChar symbol, double left, double right)
{
    switch (symbol.unicode()) {
    case '+':
        return left + right;
    case '-':
        return left - right;
    case '*':
        return left * right;
    }
    if (right == 0)
        throw runtimeError(11);
    return left / right;
}

bool fits(const QString &symbol, int order)
{
    if (symbol == "=")
        return order == 0;
    if (symbol == "<>")
        return order != 0;
    if (symbol == "<")
        return order < 0;
    if (symbol == ">")
        return order > 0;
    return symbol == "<=" ? order <= 0 : order >= 0;
}

} // namespace

FormulaPtr negated(FormulaPtr of)
{
    return computed(FormulaType::Number, [of = std::move(of)](const FormulaContext &context) {
        const Value value = operand(*of, context);
        return value.isNull() ? value : Value(-value.toDouble());
    });
}

FormulaPtr inverted(FormulaPtr condition)
{
    return computed(FormulaType::Boolean, [condition = std::move(condition)](const FormulaContext &context) {
        return Value(!condition->holds(context));
    });
}

FormulaPtr arithmetic(QChar symbol, FormulaPtr left, FormulaPtr right)
{
    // A day moved by a number of days is a day; the way from one day to another is a number.
    const bool isDate = (left->type() == FormulaType::Date) != (right->type() == FormulaType::Date);
    const FormulaType type = isDate ? FormulaType::Date : FormulaType::Number;
    return computed(type, [=](const FormulaContext &context) {
        const Value a = operand(*left, context);
        const Value b = operand(*right, context);
        if (a.isNull() || b.isNull())
            return Value();
        const double result = calculated(symbol, asNumber(a), asNumber(b));
        return isDate ? Value(Date(result)) : Value(result);
    });
}

FormulaPtr joined(FormulaPtr left, FormulaPtr right)
{
    return computed(FormulaType::Text, [=](const FormulaContext &context) {
        const Value a = operand(*left, context);
        const Value b = operand(*right, context);
        return a.isNull() || b.isNull() ? Value() : Value(a.toText() + b.toText());
    });
}

FormulaPtr comparison(const QString &symbol, FormulaPtr left, FormulaPtr right)
{
    return computed(FormulaType::Boolean, [=](const FormulaContext &context) {
        const Value a = operand(*left, context);
        const Value b = operand(*right, context);
        return a.isNull() || b.isNull() ? Value() : Value(fits(symbol, compareValues(a, b)));
    });
}

FormulaPtr logical(bool isAnd, FormulaPtr left, FormulaPtr right)
{
    return computed(FormulaType::Boolean, [=](const FormulaContext &context) {
        return Value(left->holds(context) == isAnd ? right->holds(context) : !isAnd);
    });
}

FormulaPtr conditional(FormulaPtr condition, FormulaPtr then, FormulaPtr otherwise)
{
    const FormulaType type = then->type();
    return computed(type, [=](const FormulaContext &context) {
        if (condition->holds(context))
            return then->evaluate(context);
        return otherwise ? otherwise->evaluate(context) : defaultOf(type);
    });
}
