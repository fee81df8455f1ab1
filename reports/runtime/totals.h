#pragma once

#include "reports/runtime/formula.h"

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
        double sum = 0;
        int count = 0; ///< of values that are not Null
        int best = -1; ///< the position in m_extremes of the minimum or maximum
    };
    struct Column
    {
        Aggregate::Kind kind;
        int level;
        std::vector<Cell> cells; ///< by group node; one for all rows
        std::vector<Value> extremes;
    };
    static void addNumber(Cell &cell, double number);
    static void addValue(Column &column, Cell &cell, const Value &value);

    std::vector<Column> m_columns;
};
