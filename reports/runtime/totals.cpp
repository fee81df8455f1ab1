#include "reports/runtime/totals.h"

#include "reports/runtime/formulanodes.h"
#include "reports/runtime/grouping.h"
#include <numeric>

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
    // Totals over the same formula stand together, so that it is evaluated once for a row.
    std::vector<int> byArgument(aggregates.size());
    std::iota(byArgument.begin(), byArgument.end(), 0);
    std::stable_sort(byArgument.begin(), byArgument.end(),
                     [&](int a, int b) { return std::less<>()(aggregates[a].of.get(), aggregates[b].of.get()); });
    std::vector<int> nodes(grouping.levels(), 0);
    context.groupNodes = nodes.data();
    for (int position = 0; position < grouping.rowCount(); ++position) {
        context.row = grouping.rowAt(position);
        for (int level = 0; level < grouping.levels(); ++level) {
            if (grouping.nodes(level)[nodes[level]].end == position)
                ++nodes[level];
        }
        const Formula *last = nullptr;
        std::optional<double> number;
        for (const int i : byArgument) {
            Column &column = m_columns[i];
            Cell &cell = column.cells[column.level < 0 ? 0 : nodes[column.level]];
            const Formula &of = *aggregates[i].of;
            if (column.kind != Kind::Sum && column.kind != Kind::Average) {
                addValue(column, cell, of.evaluate(context));
                continue;
            }
            if (&of != last)
                number = of.number(context);
            last = &of;
            if (number)
                addNumber(cell, *number);
        }
    }
}

void Totals::addNumber(Cell &cell, double number)
{
    ++cell.count;
    cell.sum += number;
}

void Totals::addValue(Column &column, Cell &cell, const Value &value)
{
    if (value.isNull())
        return;
    ++cell.count;
    if (column.kind == Kind::Count)
        return;
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
