#include "reports/runtime/formulanodes.h"

#include "data/values/runtimeerror.h"
#include "data/values/textorder.h"
#include "reports/runtime/rowstore.h"

bool Formula::holds(const FormulaContext &context) const
{
    const Value value = evaluate(context);
    return !value.isNull() && value.toBoolean();
}

std::optional<double> Formula::number(const FormulaContext &context) const
{
    const Value value = evaluate(context);
    if (value.isNull())
        return {};
    return value.type() == Value::Type::Date ? value.toDate().serial() : value.toDouble();
}

std::optional<double> FieldFormula::number(const FormulaContext &context) const
{
    return context.row < 0 ? std::nullopt : context.rows->number(context.row, m_field);
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

/// An operand that is a number or a date; Null as the report wants it.
std::optional<double> numberOperand(const Formula &formula, const FormulaContext &context)
{
    const std::optional<double> number = formula.number(context);
    return !number && context.nullsAsDefaults ? std::optional(0.0) : number;
}

/// Numbers and dates are reckoned with as numbers, since totals do it for every row.
class ArithmeticFormula : public Formula
{
public:
    ArithmeticFormula(FormulaType type, QChar symbol, FormulaPtr left, FormulaPtr right)
        : Formula(type), m_symbol(symbol), m_left(std::move(left)), m_right(std::move(right))
    {
    }
    std::optional<double> number(const FormulaContext &context) const override
    {
        const std::optional<double> left = numberOperand(*m_left, context);
        const std::optional<double> right = numberOperand(*m_right, context);
        return left && right ? std::optional(calculated(m_symbol, *left, *right)) : std::nullopt;
    }
    Value evaluate(const FormulaContext &context) const override
    {
        const std::optional<double> result = number(context);
        if (!result)
            return {};
        return type() == FormulaType::Date ? Value(Date(*result)) : Value(*result);
    }

private:
    QChar m_symbol;
    FormulaPtr m_left;
    FormulaPtr m_right;
};

class ConditionalFormula : public Formula
{
public:
    ConditionalFormula(FormulaPtr condition, FormulaPtr then, FormulaPtr otherwise)
        : Formula(then->type()), m_condition(std::move(condition)), m_then(std::move(then)),
          m_otherwise(std::move(otherwise))
    {
    }
    std::optional<double> number(const FormulaContext &context) const override
    {
        const Formula *branch = branchFor(context);
        return branch ? branch->number(context) : 0.0;
    }
    Value evaluate(const FormulaContext &context) const override
    {
        const Formula *branch = branchFor(context);
        return branch ? branch->evaluate(context) : defaultOf(type());
    }

private:
    const Formula *branchFor(const FormulaContext &context) const
    {
        return m_condition->holds(context) ? m_then.get() : m_otherwise.get();
    }

    FormulaPtr m_condition;
    FormulaPtr m_then;
    FormulaPtr m_otherwise;
};

class ComparisonFormula : public Formula
{
public:
    ComparisonFormula(const QString &symbol, FormulaPtr left, FormulaPtr right)
        : Formula(FormulaType::Boolean), m_below(fits(symbol, -1)), m_equal(fits(symbol, 0)), m_above(fits(symbol, 1)),
          m_left(std::move(left)), m_right(std::move(right))
    {
    }
    Value evaluate(const FormulaContext &context) const override
    {
        const std::optional<bool> result = compared(context);
        return result ? Value(*result) : Value();
    }
    bool holds(const FormulaContext &context) const override { return compared(context).value_or(false); }

private:
    std::optional<bool> compared(const FormulaContext &context) const
    {
        if (m_left->type() == FormulaType::Number || m_left->type() == FormulaType::Date) {
            const std::optional<double> left = numberOperand(*m_left, context);
            const std::optional<double> right = numberOperand(*m_right, context);
            if (!left || !right)
                return {};
            return *left < *right ? m_below : *left > *right ? m_above : m_equal;
        }
        const Value left = operand(*m_left, context);
        const Value right = operand(*m_right, context);
        if (left.isNull() || right.isNull())
            return {};
        const int order = compareValues(left, right);
        return order < 0 ? m_below : order > 0 ? m_above : m_equal;
    }

    bool m_below, m_equal, m_above; ///< the answers
    FormulaPtr m_left;
    FormulaPtr m_right;
};

class LogicalFormula : public Formula
{
public:
    LogicalFormula(bool isAnd, FormulaPtr left, FormulaPtr right)
        : Formula(FormulaType::Boolean), m_isAnd(isAnd), m_left(std::move(left)), m_right(std::move(right))
    {
    }
    bool holds(const FormulaContext &context) const override
    {
        return m_left->holds(context) == m_isAnd ? m_right->holds(context) : !m_isAnd;
    }
    Value evaluate(const FormulaContext &context) const override { return holds(context); }

private:
    bool m_isAnd;
    FormulaPtr m_left;
    FormulaPtr m_right;
};

} // namespace

FormulaPtr negated(FormulaPtr of)
{
    return arithmetic('-', std::make_shared<ConstantFormula>(FormulaType::Number, 0.0), std::move(of));
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
    return std::make_shared<ArithmeticFormula>(type, symbol, std::move(left), std::move(right));
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
    return std::make_shared<ComparisonFormula>(symbol, std::move(left), std::move(right));
}

FormulaPtr logical(bool isAnd, FormulaPtr left, FormulaPtr right)
{
    return std::make_shared<LogicalFormula>(isAnd, std::move(left), std::move(right));
}

FormulaPtr conditional(FormulaPtr condition, FormulaPtr then, FormulaPtr otherwise)
{
    return std::make_shared<ConditionalFormula>(std::move(condition), std::move(then), std::move(otherwise));
}
