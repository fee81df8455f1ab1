#include "reportengine/formula/formulanodes.h"

#include "data/values/runtimeerror.h"
#include "data/values/textorder.h"
#include "reportengine/rows/rowstore.h"
#include <array>
#include <limits>

constexpr double Null = std::numeric_limits<double>::quiet_NaN();

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

void Formula::numbers(FormulaContext &context, std::span<const int> rows, double *out) const
{
    if (rows.empty())
        return;
    context.row = rows.front();
    if (!variesByRow()) {
        std::fill_n(out, rows.size(), number(context).value_or(Null));
        return;
    }
    for (const int row : rows) {
        context.row = row;
        *out++ = number(context).value_or(Null);
    }
}

void Formula::conditions(FormulaContext &context, std::span<const int> rows, bool *out) const
{
    for (const int row : rows) {
        context.row = row;
        *out++ = holds(context);
    }
}

void FieldFormula::numbers(FormulaContext &context, std::span<const int> rows, double *out) const
{
    const std::vector<double> &numbers = context.rows->numbers(m_field);
    for (const int row : rows)
        *out++ = numbers[row];
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
    // Mostly a difference between two ASCII characters other than blanks decides, which needs no other encoding.
    const qsizetype common = std::min(left.size(), right.size());
    for (qsizetype i = 0; i < common; ++i) {
        const char16_t a = left[i].unicode();
        const char16_t b = right[i].unicode();
        if (a >= 0x80 || b >= 0x80)
            break;
        const auto lower = [](char16_t c) { return c >= u'A' && c <= u'Z' ? c + 32 : c; };
        if (lower(a) == lower(b))
            continue;
        if (a == u' ' || b == u' ')
            break;
        return lower(a) - lower(b);
    }
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

FormulaPtr computed(FormulaType type, ComputedFormula::Function function, bool variesByRow)
{
    return std::make_shared<ComputedFormula>(type, std::move(function), variesByRow);
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

/// numberOperand for several rows.
void numberOperands(const Formula &formula, FormulaContext &context, std::span<const int> rows, double *out)
{
    formula.numbers(context, rows, out);
    if (context.nullsAsDefaults)
        std::replace_if(
            out, out + rows.size(), [](double number) { return std::isnan(number); }, 0.0);
}

using Numbers = std::array<double, Formula::Batch>;
using Flags = std::array<bool, Formula::Batch>;

/// Some of a batch's rows, for what must not be evaluated for the others.
struct Choice
{
    Choice(std::span<const int> rows, const Flags &flags, bool wanted)
    {
        for (size_t i = 0; i < rows.size(); ++i) {
            if (flags[i] != wanted)
                continue;
            places[count] = int(i);
            chosen[count++] = rows[i];
        }
    }
    std::span<const int> rows() const { return {chosen.data(), count}; }

    size_t count = 0;
    std::array<int, Formula::Batch> chosen;
    std::array<int, Formula::Batch> places; ///< of the chosen ones in the batch
};

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
    bool variesByRow() const override { return m_left->variesByRow() || m_right->variesByRow(); }
    void numbers(FormulaContext &context, std::span<const int> rows, double *out) const override
    {
        Numbers right;
        numberOperands(*m_left, context, rows, out);
        numberOperands(*m_right, context, rows, right.data());
        for (size_t i = 0; i < rows.size(); ++i) {
            const bool isNull = std::isnan(out[i]) || std::isnan(right[i]);
            out[i] = isNull ? Null : calculated(m_symbol, out[i], right[i]);
        }
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
    void numbers(FormulaContext &context, std::span<const int> rows, double *out) const override
    {
        Flags flags;
        m_condition->conditions(context, rows, flags.data());
        for (const bool wanted : {true, false}) {
            const Choice choice(rows, flags, wanted);
            const Formula *branch = wanted ? m_then.get() : m_otherwise.get();
            Numbers results{};
            if (branch)
                branch->numbers(context, choice.rows(), results.data());
            for (size_t i = 0; i < choice.count; ++i)
                out[choice.places[i]] = results[i];
        }
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
    void conditions(FormulaContext &context, std::span<const int> rows, bool *out) const override
    {
        if (!comparesNumbers())
            return Formula::conditions(context, rows, out);
        Numbers left;
        Numbers right;
        numberOperands(*m_left, context, rows, left.data());
        numberOperands(*m_right, context, rows, right.data());
        for (size_t i = 0; i < rows.size(); ++i) {
            const bool isNull = std::isnan(left[i]) || std::isnan(right[i]);
            out[i] = !isNull && (left[i] < right[i] ? m_below : left[i] > right[i] ? m_above : m_equal);
        }
    }

private:
    bool comparesNumbers() const
    {
        return m_left->type() == FormulaType::Number || m_left->type() == FormulaType::Date;
    }

    std::optional<bool> compared(const FormulaContext &context) const
    {
        if (comparesNumbers()) {
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
    void conditions(FormulaContext &context, std::span<const int> rows, bool *out) const override
    {
        Flags flags;
        m_left->conditions(context, rows, flags.data());
        const Choice undecided(rows, flags, m_isAnd);
        std::fill_n(out, rows.size(), !m_isAnd);
        m_right->conditions(context, undecided.rows(), flags.data());
        for (size_t i = 0; i < undecided.count; ++i)
            out[undecided.places[i]] = flags[i];
    }

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
