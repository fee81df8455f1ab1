#include "reportengine/formula/formula.h"

#include <QVarLengthArray>

namespace {

/// Room for one value, which is what a page asks for; a batch of them goes to the heap.
using Values = QVarLengthArray<Value, 1>;

double numberOf(const Value &value)
{
    if (value.isNull())
        return Formula::Null;
    return value.type() == Value::Type::Date ? value.toDate().serial() : value.toDouble();
}

} // namespace

Value valueOf(FormulaType type, double number)
{
    if (std::isnan(number))
        return {};
    if (type == FormulaType::Boolean)
        return Formula::isTrue(number);
    return type == FormulaType::Date ? Value(Date(number)) : Value(number);
}

void Formula::numbers(const FormulaContext &context, std::span<const int> rows, double *out) const
{
    if (rows.empty())
        return;
    // What is the same for all rows is asked for once and copied.
    Values values(variesByRow() ? qsizetype(rows.size()) : 1);
    this->values(context, rows.first(values.size()), values.data());
    std::transform(values.cbegin(), values.cend(), out, numberOf);
    std::fill(out + values.size(), out + rows.size(), *out);
}

void Formula::values(const FormulaContext &context, std::span<const int> rows, Value *out) const
{
    Numbers numbers;
    this->numbers(context, rows, numbers.data());
    std::transform(numbers.data(), numbers.data() + rows.size(), out,
                   [this](double number) { return valueOf(type(), number); });
}

Value Formula::value(const FormulaContext &context, int row) const
{
    Value value;
    values(context, {&row, 1}, &value);
    return value;
}

bool Formula::holds(const FormulaContext &context) const
{
    double flag = 0;
    numbers(context, {&context.row, 1}, &flag);
    return isTrue(flag);
}
