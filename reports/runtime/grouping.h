#pragma once

#include "reports/runtime/formula.h"

/// The rows in printing order, and the groups they form. A position is an index in printing order.
class Grouping
{
public:
    /// A group: its rows are the positions from `first` up to, not including, `end`.
    struct Node
    {
        int first;
        int end;
        int parent; ///< index in the level above; -1 at the outermost level
    };

    /// Brings the rows into the order of the group values, ascending and case-blind, equal ones as they came.
    void arrange(const std::vector<FormulaPtr> &by, const FormulaContext &context);

    int rowCount() const { return int(m_order.size()); }
    int rowAt(int position) const { return m_order[position]; }
    int levels() const { return int(m_nodes.size()); }
    const std::vector<Node> &nodes(int level) const { return m_nodes[level]; }
    /// The node of that level that a position belongs to.
    int nodeAt(int level, int position) const;

private:
    std::vector<int> m_order;
    std::vector<std::vector<Node>> m_nodes;
};
