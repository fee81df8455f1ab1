#pragma once

#include "reportengine/formula/formula.h"
#include <functional>

// The pieces a formula is put together from. They trust their parser to have checked the operands' types.

class ConstantFormula : public Formula
{
public:
    ConstantFormula(FormulaType type, Value value) : Formula(type), m_value(std::move(value)) {}
    void values(const FormulaContext &context, std::span<const int> rows, Value *out) const override;
    bool variesByRow() const override { return false; }

private:
    Value m_value;
};

/// Anything that is computed row by row, from evaluated operands or from the context alone.
class ComputedFormula : public Formula
{
public:
    using Function = std::function<Value(const FormulaContext &, int row)>;
    ComputedFormula(FormulaType type, Function function, bool varies)
        : Formula(type), m_function(std::move(function)), m_varies(varies)
    {
    }
    void values(const FormulaContext &context, std::span<const int> rows, Value *out) const override;
    bool variesByRow() const override { return m_varies; }

private:
    Function m_function;
    bool m_varies;
};

/// A field of the row.
class FieldFormula : public Formula
{
public:
    FieldFormula(FormulaType type, int field) : Formula(type), m_field(field) {}
    void numbers(const FormulaContext &context, std::span<const int> rows, double *out) const override;
    void values(const FormulaContext &context, std::span<const int> rows, Value *out) const override;
    int field() const { return m_field; }

private:
    int m_field;
};

/// The value of an operand inside an operation: Null becomes the type's default where the report wants that.
Value operand(const Formula &formula, const FormulaContext &context, int row);
/// 0, "", False or the day 0.
Value defaultOf(FormulaType type);
/// Two texts, either of which may be Null, which stands first: below 0, 0 or above 0.
int compareTextValues(const Value &left, const Value &right);
/// The same for texts that are there, in the order that the database sorts them: without regard to case.
int textOrder(const QString &left, const QString &right);

FormulaPtr computed(FormulaType type, ComputedFormula::Function function, bool variesByRow = true);
FormulaPtr negated(FormulaPtr operand);
FormulaPtr inverted(FormulaPtr condition);
FormulaPtr arithmetic(QChar symbol, FormulaPtr left, FormulaPtr right);
FormulaPtr joined(FormulaPtr left, FormulaPtr right);
FormulaPtr comparison(const QString &symbol, FormulaPtr left, FormulaPtr right);
FormulaPtr logical(bool isAnd, FormulaPtr left, FormulaPtr right);
/// `otherwise` may be null: the default of the type then.
FormulaPtr conditional(FormulaPtr condition, FormulaPtr then, FormulaPtr otherwise);
