#include "reportengine/pages/grouping.h"

#include "reportengine/formula/formulanodes.h"
#include "reportengine/rows/rowstore.h"
#include <numeric>

namespace {

/// Where each of some things stands among them, from 0, when `order` compares two by their numbers; equal ones share
/// a rank.
template <class Order> std::vector<int> ranksOf(int count, const Order &order)
{
    std::vector<int> sorted(count);
    std::iota(sorted.begin(), sorted.end(), 0);
    const auto before = [&](int a, int b) { return order(a, b) < 0; };
    // Mostly the rows come in order, and so do their different values.
    if (!std::is_sorted(sorted.begin(), sorted.end(), before))
        std::sort(sorted.begin(), sorted.end(), before);
    std::vector<int> rank(count);
    for (int i = 1; i < count; ++i)
        rank[sorted[i]] = rank[sorted[i - 1]] + (order(sorted[i - 1], sorted[i]) != 0);
    return rank;
}

/// The beginning of a text as a number that sorts alike; none where a letter beyond ASCII stands in it.
std::optional<std::pair<quint64, quint64>> sortPrefix(QStringView text)
{
    // Blanks at the end do not count in the database's order either.
    while (text.endsWith(u' '))
        text.chop(1);
    std::array<quint64, 2> parts{};
    for (qsizetype i = 0; i < std::min<qsizetype>(text.size(), 16); ++i) {
        const char16_t c = text[i].unicode();
        if (c >= 0x80)
            return {};
        // The first character highest, so that the numbers compare as the texts do; a text that ends has zeros there,
        // which are below any character.
        parts[i / 8] |= quint64(c >= u'A' && c <= u'Z' ? c + 32 : c) << (56 - i % 8 * 8);
    }
    return std::pair(parts[0], parts[1]);
}

std::vector<int> rankedTexts(const FieldFormula &field, const RowStore &rows)
{
    // Each different text is compared once with the others, not each row's.
    const std::vector<QString> &texts = rows.texts(field.field());
    std::vector<std::optional<std::pair<quint64, quint64>>> prefixes;
    for (const QString &text : texts)
        prefixes.push_back(sortPrefix(text));
    const std::vector<int> rank = ranksOf(int(texts.size()), [&](int a, int b) {
        if (a == 0 || b == 0)
            return a - b; // 0 is Null
        // Equal beginnings decide nothing: the texts may be longer.
        if (prefixes[a] && prefixes[b] && prefixes[a] != prefixes[b])
            return prefixes[a] < prefixes[b] ? -1 : 1;
        return textOrder(texts[a], texts[b]);
    });
    std::vector<int> ranks(rows.rowCount());
    for (int row = 0; row < rows.rowCount(); ++row)
        ranks[row] = rank[rows.textId(row, field.field())];
    return ranks;
}

std::vector<int> rankedNumbers(const Formula &by, const FormulaContext &context, std::span<const int> rows)
{
    std::vector<double> numbers(rows.size());
    for (size_t first = 0; first < rows.size(); first += Formula::Batch)
        by.numbers(context, rows.subspan(first, std::min(Formula::Batch, rows.size() - first)), &numbers[first]);
    // Null comes first.
    std::replace_if(
        numbers.begin(), numbers.end(), [](double number) { return std::isnan(number); }, -HUGE_VAL);
    std::vector<double> distinct = numbers;
    if (!std::is_sorted(distinct.begin(), distinct.end()))
        std::sort(distinct.begin(), distinct.end());
    distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
    std::vector<int> ranks(numbers.size());
    auto at = distinct.begin();
    for (size_t row = 0; row < numbers.size(); ++row) {
        // Neighbouring rows mostly share their value, which saves the search.
        if (*at != numbers[row])
            at = std::lower_bound(distinct.begin(), distinct.end(), numbers[row]);
        ranks[row] = int(at - distinct.begin());
    }
    return ranks;
}

/// Texts that a formula makes stand in no pool, so each row's is compared.
std::vector<int> rankedValues(const Formula &by, const FormulaContext &context, std::span<const int> rows)
{
    std::vector<Value> values;
    for (const int row : rows)
        values.push_back(by.value(context, row));
    return ranksOf(int(values.size()), [&](int a, int b) { return compareTextValues(values[a], values[b]); });
}

/// Numbers the rows by the order of their group values, so that sorting compares integers. Texts that differ in case
/// alone get one number.
std::vector<int> ranks(const Formula &by, const FormulaContext &context, std::span<const int> rows)
{
    if (by.type() != FormulaType::Text)
        return rankedNumbers(by, context, rows);
    const auto *field = dynamic_cast<const FieldFormula *>(&by);
    return field ? rankedTexts(*field, *context.rows) : rankedValues(by, context, rows);
}

} // namespace

void Grouping::arrange(const std::vector<FormulaPtr> &by, const FormulaContext &context)
{
    m_order.resize(context.rows->rowCount());
    std::iota(m_order.begin(), m_order.end(), 0);
    std::vector<std::vector<int>> keys;
    for (const FormulaPtr &group : by)
        keys.push_back(ranks(*group, context, m_order));
    // From the innermost group out: each sort keeps the order that the one before left among equal rows.
    for (size_t level = keys.size(); level-- > 0;)
        sortBy(keys[level]);

    m_nodes.assign(by.size(), {});
    for (int position = 0; position < rowCount(); ++position) {
        bool begins = position == 0;
        for (size_t level = 0; level < by.size(); ++level) {
            // A group begins with every group around it.
            begins = begins || keys[level][m_order[position]] != keys[level][m_order[position - 1]];
            if (begins)
                m_nodes[level].push_back({position, 0, level == 0 ? -1 : int(m_nodes[level - 1].size()) - 1});
            m_nodes[level].back().end = position + 1;
        }
    }
}

/// By counting, which keeps the order of equal ones.
void Grouping::sortBy(const std::vector<int> &key)
{
    const auto before = [&](int a, int b) { return key[a] < key[b]; };
    if (std::is_sorted(m_order.begin(), m_order.end(), before))
        return;
    // Each rank is counted one place further on, so that the sums tell where a rank begins and not where it ends.
    std::vector<int> places(size_t(*std::max_element(key.begin(), key.end())) + 2);
    for (const int rank : key)
        ++places[rank + 1];
    std::partial_sum(places.begin(), places.end(), places.begin());
    std::vector<int> sorted(m_order.size());
    for (const int row : m_order)
        sorted[places[key[row]]++] = row;
    m_order = std::move(sorted);
}

int Grouping::nodeAt(int level, int position) const
{
    const std::vector<Node> &nodes = m_nodes[level];
    const auto behind = std::upper_bound(nodes.begin(), nodes.end(), position,
                                         [](int wanted, const Node &node) { return wanted < node.first; });
    return int(behind - nodes.begin()) - 1;
}
