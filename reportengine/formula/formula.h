#pragma once

#include "data/values/value.h"
#include <QDateTime>
#include <array>
#include <cmath>
#include <limits>
#include <memory>
#include <span>
#include <vector>

class RowStore;
class Totals;
struct TextParameter;

/// What a formula sees when it is evaluated: the rows, the groups it stands in, and where the page has got to.
struct FormulaContext
{
    const RowStore *rows = nullptr;
    int row = -1; ///< index in `rows` of the row being printed; -1 when there is none: every field is then Null
    const Totals *totals = nullptr;
    std::vector<int> groupNodes; ///< per group level the node of the row's group
    std::vector<double> running; ///< running totals up to and including the row
    const std::vector<TextParameter> *parameters = nullptr;
    bool nullsAsDefaults = true; ///< Null counts as 0 or "" in operations, instead of making the result Null
    int pageNumber = 0;
    int pageCount = 0; ///< 0 while it is not known yet
    bool repeatedHeader = false;
    QDateTime printed;
};

enum class FormulaType { Boolean, Number, Text, Date };

/// A formula, parsed and checked for types. It is evaluated for some rows at once, up to Batch of them, since totals
/// and groups want every row's value; -1 stands for no row. A kind of formula overrides `numbers`, `values` or both:
/// each goes by way of the other otherwise.
class Formula
{
public:
    static constexpr size_t Batch = 256;
    using Numbers = std::array<double, Batch>;
    static constexpr double Null = std::numeric_limits<double>::quiet_NaN();
    static constexpr double True = -1;
    static constexpr double False = 0;
    static bool isTrue(double number) { return number != False && !std::isnan(number); }

    explicit Formula(FormulaType type) : m_type(type) {}
    virtual ~Formula() = default;
    FormulaType type() const { return m_type; }

    /// The value for each row; no texts. A date is its days.
    virtual void numbers(const FormulaContext &context, std::span<const int> rows, double *out) const;
    /// The value for each row.
    virtual void values(const FormulaContext &context, std::span<const int> rows, Value *out) const;
    /// False when the value is the same for all rows.
    virtual bool variesByRow() const { return true; }

    /// The value for one row.
    Value value(const FormulaContext &context, int row) const;
    /// The value for the context's row.
    Value evaluate(const FormulaContext &context) const { return value(context, context.row); }
    /// Whether a condition is True for the context's row; Null counts as False.
    bool holds(const FormulaContext &context) const;

private:
    FormulaType m_type;
};

using FormulaPtr = std::shared_ptr<const Formula>;

/// A total over rows, as asked for by Sum({f}, {g}) and its like.
struct Aggregate
{
    enum class Kind { Sum, Count, Average, Minimum, Maximum };
    Kind kind;
    FormulaPtr of;
    QString argument; ///< the text of `of`: totals over the same text are taken together
    int level;        ///< of the group it is taken over; -1: all rows
};

/// The value that a number of Formula::numbers stands for, in a formula of that type.
Value valueOf(FormulaType type, double number);
