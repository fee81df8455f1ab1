#include "reportengine/formula/formulanodes.h"

#include "data/values/runtimeerror.h"
#include "data/values/textorder.h"
#include "reportengine/rows/rowstore.h"
#include <QVarLengthArray>
#include <array>

void ConstantFormula::values(const FormulaContext &, std::span<const int> rows, Value *out) const
{
    std::fill_n(out, rows.size(), m_value);
}

void ComputedFormula::values(const FormulaContext &context, std::span<const int> rows, Value *out) const
{
    for (const int row : rows)
        *out++ = m_function(context, row);
}

void FieldFormula::numbers(const FormulaContext &context, std::span<const int> rows, double *out) const
{
    const std::vector<double> &numbers = context.rows->numbers(m_field);
    for (const int row : rows)
        *out++ = row < 0 ? Null : numbers[row];
}

void FieldFormula::values(const FormulaContext &context, std::span<const int> rows, Value *out) const
{
    for (const int row : rows)
        *out++ = row < 0 ? Value() : context.rows->value(row, m_field);
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

Value operand(const Formula &formula, const FormulaContext &context, int row)
{
    Value value = formula.value(context, row);
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
        // It may be one of those at the end, which do not count.
        if (a == u' ' || b == u' ')
            break;
        return lower(a) - lower(b);
    }
    return left == right ? 0 : compareTexts(left.toStdString(), right.toStdString());
}

int compareTextValues(const Value &left, const Value &right)
{
    if (left.isNull() || right.isNull())
        return int(right.isNull()) - int(left.isNull());
    return textOrder(left.toText(), right.toText());
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
    // A formula that divides guards itself by an if; one that does not stops the report.
    if (right == 0)
        throw runtimeError(11);
    return left / right;
}

/// What a comparison answers for that order of its operands.
double answer(const QString &symbol, int order)
{
    const bool orEqual = symbol.endsWith('=');
    const bool fits = order == 0 ? orEqual : symbol.contains(order < 0 ? '<' : '>');
    return fits ? Formula::True : Formula::False;
}

/// An operand that is no text, for each row; Null as the report wants it.
void numberOperands(const Formula &formula, const FormulaContext &context, std::span<const int> rows, double *out)
{
    formula.numbers(context, rows, out);
    if (context.nullsAsDefaults)
        std::replace_if(
            out, out + rows.size(), [](double number) { return std::isnan(number); }, 0.0);
}

/// Those of a batch's rows for which a condition came out as wanted. What must not be evaluated for the others, since
/// it may fail for them, is evaluated for these.
struct Choice
{
    Choice(std::span<const int> rows, const double *flags, bool wanted)
    {
        for (size_t i = 0; i < rows.size(); ++i) {
            if (Formula::isTrue(flags[i]) != wanted)
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
    bool variesByRow() const override { return m_left->variesByRow() || m_right->variesByRow(); }
    void numbers(const FormulaContext &context, std::span<const int> rows, double *out) const override
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
          m_otherwise(otherwise ? std::move(otherwise) : std::make_shared<ConstantFormula>(type(), defaultOf(type())))
    {
    }
    void numbers(const FormulaContext &context, std::span<const int> rows, double *out) const override
    {
        Numbers results;
        choose(context, rows, &Formula::numbers, results.data(), out);
    }
    void values(const FormulaContext &context, std::span<const int> rows, Value *out) const override
    {
        QVarLengthArray<Value, 1> results(qsizetype(rows.size()));
        choose(context, rows, &Formula::values, results.data(), out);
    }

private:
    /// `results` is room for a branch's results on their way to their places in `out`.
    template <class T>
    void choose(const FormulaContext &context, std::span<const int> rows,
                void (Formula::*results)(const FormulaContext &, std::span<const int>, T *) const, T *branchOut,
                T *out) const
    {
        Numbers flags;
        m_condition->numbers(context, rows, flags.data());
        for (const bool wanted : {true, false}) {
            // A branch meets its own rows alone: a division guarded by its if never sees the zero.
            const Choice choice(rows, flags.data(), wanted);
            const Formula &branch = wanted ? *m_then : *m_otherwise;
            // As with the switches that routines set: one branch for all, straight to its places.
            if (choice.count == rows.size())
                return (branch.*results)(context, rows, out);
            (branch.*results)(context, choice.rows(), branchOut);
            for (size_t i = 0; i < choice.count; ++i)
                out[choice.places[i]] = branchOut[i];
        }
    }

    FormulaPtr m_condition;
    FormulaPtr m_then;
    FormulaPtr m_otherwise;
};

class ComparisonFormula : public Formula
{
public:
    ComparisonFormula(const QString &symbol, FormulaPtr left, FormulaPtr right)
        : Formula(FormulaType::Boolean), m_below(answer(symbol, -1)), m_equal(answer(symbol, 0)),
          m_above(answer(symbol, 1)), m_left(std::move(left)), m_right(std::move(right))
    {
    }
    void numbers(const FormulaContext &context, std::span<const int> rows, double *out) const override
    {
        if (m_left->type() == FormulaType::Text) {
            for (const int row : rows)
                *out++ = comparedTexts(operand(*m_left, context, row), operand(*m_right, context, row));
            return;
        }
        Numbers right;
        numberOperands(*m_left, context, rows, out);
        numberOperands(*m_right, context, rows, right.data());
        for (size_t i = 0; i < rows.size(); ++i) {
            const bool isNull = std::isnan(out[i]) || std::isnan(right[i]);
            out[i] = isNull ? Null : out[i] < right[i] ? m_below : out[i] > right[i] ? m_above : m_equal;
        }
    }

private:
    double comparedTexts(const Value &left, const Value &right) const
    {
        if (left.isNull() || right.isNull())
            return Null;
        const int order = compareTextValues(left, right);
        return order < 0 ? m_below : order > 0 ? m_above : m_equal;
    }

    double m_below, m_equal, m_above; ///< the answers
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
    void numbers(const FormulaContext &context, std::span<const int> rows, double *out) const override
    {
        Numbers flags;
        m_left->numbers(context, rows, flags.data());
        // Where the left side has decided, the right one may be what it guards against.
        const Choice undecided(rows, flags.data(), m_isAnd);
        std::fill_n(out, rows.size(), m_isAnd ? False : True);
        m_right->numbers(context, undecided.rows(), flags.data());
        for (size_t i = 0; i < undecided.count; ++i)
            out[undecided.places[i]] = isTrue(flags[i]) ? True : False;
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
    // Null counts as False before it is turned round, so that "not" of Null is True.
    return conditional(std::move(condition), std::make_shared<ConstantFormula>(FormulaType::Boolean, false),
                       std::make_shared<ConstantFormula>(FormulaType::Boolean, true));
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
    return computed(FormulaType::Text, [=](const FormulaContext &context, int row) {
        const Value a = operand(*left, context, row);
        const Value b = operand(*right, context, row);
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
