#include "reportengine/pages/totals.h"

#include "reportengine/formula/formulanodes.h"
#include "reportengine/pages/grouping.h"
#include <numeric>

using Kind = Aggregate::Kind;

namespace {

bool isNumeric(const Formula &formula)
{
    return formula.type() == FormulaType::Number || formula.type() == FormulaType::Date;
}

} // namespace

void Totals::compute(const std::vector<Aggregate> &aggregates, const Grouping &grouping, FormulaContext context)
{
    m_columns.clear();
    for (const Aggregate &aggregate : aggregates) {
        const size_t cells = aggregate.level < 0 ? 1 : grouping.nodes(aggregate.level).size();
        m_columns.push_back({aggregate.kind, aggregate.level, aggregate.of->type(), std::vector<Cell>(cells), {}});
    }
    // Totals over the same formula stand together, so that it is evaluated once for a row.
    std::vector<int> byArgument(aggregates.size());
    std::iota(byArgument.begin(), byArgument.end(), 0);
    std::stable_sort(byArgument.begin(), byArgument.end(),
                     [&](int a, int b) { return std::less<>()(aggregates[a].of.get(), aggregates[b].of.get()); });
    std::vector<double> numbers(Formula::Batch);
    for (int first = 0; first < grouping.rowCount(); first += int(Formula::Batch)) {
        const int end = std::min(first + int(Formula::Batch), grouping.rowCount());
        const auto rows = grouping.rows(first, end);
        const Formula *last = nullptr;
        for (const int i : byArgument) {
            const Formula &of = *aggregates[i].of;
            if (isNumeric(of) && &of != last)
                of.numbers(context, rows, numbers.data());
            last = &of;
            Column &column = m_columns[i];
            for (int position = first; position < end;) {
                const int node = column.level < 0 ? 0 : grouping.nodeAt(column.level, position, column.node);
                const int nodeEnd = column.level < 0 ? end : std::min(end, grouping.nodes(column.level)[node].end);
                column.node = node;
                if (isNumeric(of))
                    addNumbers(column.kind, column.cells[node],
                               std::span(numbers).subspan(position - first, nodeEnd - position));
                else
                    addValues(column, column.cells[node], of, context,
                              rows.subspan(position - first, nodeEnd - position));
                position = nodeEnd;
            }
        }
    }
}

void Totals::addNumbers(Kind kind, Cell &cell, std::span<const double> numbers)
{
    for (const double number : numbers) {
        if (std::isnan(number))
            continue;
        if (kind == Kind::Minimum)
            cell.sum = cell.count == 0 ? number : std::min(cell.sum, number);
        else if (kind == Kind::Maximum)
            cell.sum = cell.count == 0 ? number : std::max(cell.sum, number);
        else
            cell.sum += number;
        ++cell.count;
    }
}

void Totals::addValues(Column &column, Cell &cell, const Formula &of, FormulaContext &context,
                       std::span<const int> rows)
{
    for (const int row : rows) {
        context.row = row;
        const Value value = of.evaluate(context);
        if (value.isNull())
            continue;
        ++cell.count;
        if (column.kind == Kind::Count)
            continue;
        if (cell.best < 0) {
            cell.best = int(column.extremes.size());
            column.extremes.push_back(value);
            continue;
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
    if (cell.count == 0)
        return {};
    if (column.type == FormulaType::Number)
        return cell.sum;
    return column.type == FormulaType::Date ? Value(Date(cell.sum)) : column.extremes[cell.best];
}
