#pragma once

#include "reportengine/pages/layout.h"

/// The columns a layout falls into on a spreadsheet: those of its detail rows (without them of its
/// group totals), to which everything else is fitted.
class SheetColumns
{
public:
    explicit SheetColumns(const Layout &layout);

    int count() const { return int(m_columns.size()); }
    /// In points.
    double width(int column) const { return m_columns[column].right - m_columns[column].left; }
    /// The column in which something from `left` to `right` stands; what is aligned right goes by its right edge.
    int columnAt(double left, double right, Align align) const;

private:
    struct Span
    {
        double left;
        double right;
    };
    std::vector<Span> m_columns;
};
