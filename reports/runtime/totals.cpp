#include "reports/runtime/totals.h"

#include "reports/runtime/formulanodes.h"
#include "reports/runtime/grouping.h"

using Kind = Aggregate::Kind;

void Totals::compute(const std::vector<Aggregate> &aggregates, const Grouping &grouping, FormulaContext context)
{
    m_columns.clear();
    for (const Aggregate &aggregate : aggregates) {
        const size_t cells = aggregate.level < 0 ? 1 : grouping.nodes(aggregate.level).size();
        m_columns.push_back({aggregate.kind, aggregate.level, std::vector<Cell>(cells), {}});
    }
    if (aggregates.empty())
        return;
    std::vector<int> nodes(grouping.levels(), 0);
    context.groupNodes = nodes.data();
    for (int position = 0; position < grouping.rowCount(); ++position) {
        context.row = grouping.rowAt(position);
        for (int level = 0; level < grouping.levels(); ++level) {
            if (grouping.nodes(level)[nodes[level]].end == position)
                ++nodes[level];
        }
        for (size_t i = 0; i < aggregates.size(); ++i) {
            const Value value = aggregates[i].of->evaluate(context);
            if (!value.isNull())
                add(m_columns[i], m_columns[i].cells[aggregates[i].level < 0 ? 0 : nodes[aggregates[i].level]], value);
        }
    }
}

void Totals::add(Column &column, Cell &cell, const Value &value)
{
    ++cell.count;
    if (column.kind == Kind::Sum || column.kind == Kind::Average) {
        cell.sum += value.toDouble();
    } else if (column.kind != Kind::Count) {
        if (cell.best < 0) {
            cell.best = int(column.extremes.size());
            column.extremes.push_back(value);
            return;
        }
        Value &best = column.extremes[cell.best];
        const int order = compareValues(value, best);
        if (column.kind == Kind::Minimum ? order < 0 : order > 0)
            best = value;
    }
}

Value Totals::total(int aggregate, const FormulaContext &context) const
{
    const Column &column = m_columns[aggregate];
    const bool isCount = column.kind == Kind::Count || column.kind == Kind::Sum;
    if (column.level >= 0 && (!context.groupNodes || column.cells.empty()))
        return isCount ? Value(0.0) : Value();
    const Cell &cell = column.cells[column.level < 0 ? 0 : context.groupNodes[column.level]];
    switch (column.kind) {
    case Kind::Sum:
        return cell.sum;
    case Kind::Count:
        return double(cell.count);
    case Kind::Average:
        return cell.count == 0 ? Value() : Value(cell.sum / cell.count);
    case Kind::Minimum:
    case Kind::Maximum:
        break;
    }
    return cell.best < 0 ? Value() : column.extremes[cell.best];
}
