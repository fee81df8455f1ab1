#pragma once

#include "reportengine/formula/formula.h"

class Grouping;

/// The totals a layout asks for, over all rows and over each group. They stand before the first line is printed, so
/// that headers and suppress conditions can use them.
class Totals
{
public:
    void compute(const std::vector<Aggregate> &aggregates, const Grouping &grouping, const FormulaContext &context);

    /// The total for the row and groups of the context. A sum over nothing is 0, a minimum or average Null.
    Value total(int aggregate, const FormulaContext &context) const;

private:
    /// One total with its values by group node, or one value for all rows. Of the lists but `counts` it has the one
    /// that its kind and type need.
    struct Column
    {
        Aggregate::Kind kind;
        int level;
        FormulaType type;
        std::vector<int> counts;     ///< of the values that are not Null
        std::vector<double> sums;    ///< of Sum and Average
        std::vector<double> numbers; ///< the Minimum or Maximum of anything but texts; Formula::numbers tells how
        std::vector<Value> texts;    ///< the Minimum or Maximum of texts
        int node = 0;                ///< that the rows have got to
    };
    static Column column(const Aggregate &aggregate, const Grouping &grouping);
    static void addNumbers(Column &column, int node, std::span<const double> numbers);
    static void addTexts(Column &column, int node, std::span<const Value> texts);

    std::vector<Column> m_columns;
};
