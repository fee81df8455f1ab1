#pragma once

#include "reportengine/formula/formula.h"

class Grouping;

/// The totals a layout asks for, over all rows and over each group. They stand before the first line is printed, so
/// that headers and suppress conditions can use them.
class Totals
{
public:
    void compute(const std::vector<Aggregate> &aggregates, const Grouping &grouping, FormulaContext context);

    /// The total for the row and groups of the context. A sum over nothing is 0, a minimum or average Null.
    Value total(int aggregate, const FormulaContext &context) const;

private:
    struct Cell
    {
        double sum = 0; ///< or, of numbers and dates, the minimum or maximum
        int count = 0;  ///< of values that are not Null
        int best = -1;  ///< of other values the position in `extremes` of the minimum or maximum
    };
    struct Column
    {
        Aggregate::Kind kind;
        int level;
        FormulaType type;
        std::vector<Cell> cells; ///< by group node; one for all rows
        std::vector<Value> extremes;
        int node = 0; ///< that the rows have got to
    };
    static void addNumbers(Aggregate::Kind kind, Cell &cell, std::span<const double> numbers);
    static void addValues(Column &column, Cell &cell, const Formula &of, FormulaContext &context,
                          std::span<const int> rows);

    std::vector<Column> m_columns;
};
