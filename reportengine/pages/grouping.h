#pragma once

#include "reportengine/formula/formula.h"

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
    /// The rows at the positions from `first` up to, not including, `end`.
    std::span<const int> rows(int first, int end) const { return {m_order.data() + first, size_t(end - first)}; }
    int levels() const { return int(m_nodes.size()); }
    const std::vector<Node> &nodes(int level) const { return m_nodes[level]; }
    /// The node of that level that a position belongs to.
    int nodeAt(int level, int position) const;
    /// The same, quickly where it is that node or the next.
    int nodeAt(int level, int position, int guess) const
    {
        const std::vector<Node> &nodes = m_nodes[level];
        if (position >= nodes[guess].first && position < nodes[guess].end)
            return guess;
        const bool isNext = position == nodes[guess].end && guess + 1 < int(nodes.size());
        return isNext ? guess + 1 : nodeAt(level, position);
    }

private:
    void sortBy(const std::vector<int> &key);

    std::vector<int> m_order;
    std::vector<std::vector<Node>> m_nodes;
};
