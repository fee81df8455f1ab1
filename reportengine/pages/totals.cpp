#include "reportengine/pages/totals.h"

#include "reportengine/formula/formulanodes.h"
#include "reportengine/pages/grouping.h"
#include <numeric>

using Kind = Aggregate::Kind;

Totals::Column Totals::column(const Aggregate &aggregate, const Grouping &grouping)
{
    Column column{aggregate.kind, aggregate.level, aggregate.of->type(), {}, {}, {}, {}};
    const size_t nodes = aggregate.level < 0 ? 1 : grouping.nodes(aggregate.level).size();
    column.counts.resize(nodes);
    if (column.kind == Kind::Sum || column.kind == Kind::Average)
        column.sums.resize(nodes);
    else if (column.kind != Kind::Count && column.type == FormulaType::Text)
        column.texts.resize(nodes);
    else if (column.kind != Kind::Count)
        column.numbers.resize(nodes);
    return column;
}

void Totals::compute(const std::vector<Aggregate> &aggregates, const Grouping &grouping, const FormulaContext &context)
{
    m_columns.clear();
    for (const Aggregate &aggregate : aggregates)
        m_columns.push_back(column(aggregate, grouping));
    // Totals over the same formula stand together, so that it is evaluated once for a row.
    std::vector<int> byArgument(aggregates.size());
    std::iota(byArgument.begin(), byArgument.end(), 0);
    std::stable_sort(byArgument.begin(), byArgument.end(),
                     [&](int a, int b) { return std::less<>()(aggregates[a].of.get(), aggregates[b].of.get()); });
    std::vector<double> numbers(Formula::Batch);
    std::vector<Value> texts(Formula::Batch);
    for (int first = 0; first < grouping.rowCount(); first += int(Formula::Batch)) {
        const int end = std::min(first + int(Formula::Batch), grouping.rowCount());
        const auto rows = grouping.rows(first, end);
        const Formula *last = nullptr;
        for (const int i : byArgument) {
            const Formula &of = *aggregates[i].of;
            const bool isText = of.type() == FormulaType::Text;
            if (&of != last && isText)
                of.values(context, rows, texts.data());
            else if (&of != last)
                of.numbers(context, rows, numbers.data());
            last = &of;
            Column &column = m_columns[i];
            // In the groups' order, so that the rows of one group stand together; a batch may run over the end of one.
            for (int position = first; position < end;) {
                const int node = column.level < 0 ? 0 : grouping.nodeAt(column.level, position, column.node);
                const int nodeEnd = column.level < 0 ? end : std::min(end, grouping.nodes(column.level)[node].end);
                column.node = node;
                if (isText)
                    addTexts(column, node, std::span(texts).subspan(position - first, nodeEnd - position));
                else
                    addNumbers(column, node, std::span(numbers).subspan(position - first, nodeEnd - position));
                position = nodeEnd;
            }
        }
    }
}

void Totals::addNumbers(Column &column, int node, std::span<const double> numbers)
{
    int &count = column.counts[node];
    double *sum = column.sums.empty() ? nullptr : &column.sums[node];
    double *best = column.numbers.empty() ? nullptr : &column.numbers[node];
    for (const double number : numbers) {
        // Null is left out of everything: of sums, counts, averages and extremes alike.
        if (std::isnan(number))
            continue;
        // As Doubles and without any rounding, as routines add money; what is left over is too small for any picture.
        if (sum)
            *sum += number;
        else if (best && count == 0)
            *best = number;
        else if (best)
            *best = column.kind == Kind::Minimum ? std::min(*best, number) : std::max(*best, number);
        ++count;
    }
}

void Totals::addTexts(Column &column, int node, std::span<const Value> texts)
{
    for (const Value &text : texts) {
        if (text.isNull())
            continue;
        const bool isFirst = column.counts[node]++ == 0;
        if (column.kind == Kind::Count)
            continue;
        Value &best = column.texts[node];
        const int order = isFirst ? 0 : compareTextValues(text, best);
        if (isFirst || (column.kind == Kind::Minimum ? order < 0 : order > 0))
            best = text;
    }
}

Value Totals::total(int aggregate, const FormulaContext &context) const
{
    const Column &column = m_columns[aggregate];
    const bool isZeroOverNothing = column.kind == Kind::Count || column.kind == Kind::Sum;
    // A report without rows has no groups; its headers and footers print sums and counts of nothing.
    if (column.level >= 0 && (context.groupNodes.empty() || column.counts.empty()))
        return isZeroOverNothing ? Value(0.0) : Value();
    const int node = column.level < 0 ? 0 : context.groupNodes[column.level];
    const int count = column.counts[node];
    switch (column.kind) {
    case Kind::Sum:
        return column.sums[node];
    case Kind::Count:
        return double(count);
    case Kind::Average:
        return count == 0 ? Value() : Value(column.sums[node] / count);
    case Kind::Minimum:
    case Kind::Maximum:
        break;
    }
    if (count == 0)
        return {};
    return column.type == FormulaType::Text ? column.texts[node] : valueOf(column.type, column.numbers[node]);
}
