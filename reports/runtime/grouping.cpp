#include "reports/runtime/grouping.h"

#include "data/values/textorder.h"
#include "reports/runtime/formulanodes.h"
#include "reports/runtime/rowstore.h"
#include <QHash>
#include <numeric>

namespace {

/// Numbers the different values of a group field by their order, so that sorting compares integers. Texts that differ
/// in case alone get one number.
std::vector<int> ranks(const Formula &by, FormulaContext context)
{
    std::vector<Value> distinct;
    std::vector<int> ids(context.rows->rowCount());
    QHash<QString, int> texts;
    QHash<double, int> numbers;
    int null = -1;
    const auto numbered = [&](auto &known, const auto &key, const Value &value) {
        const auto found = known.constFind(key);
        if (found != known.constEnd())
            return *found;
        distinct.push_back(value);
        return *known.insert(key, int(distinct.size()) - 1);
    };
    for (context.row = 0; context.row < int(ids.size()); ++context.row) {
        const Value value = by.evaluate(context);
        if (value.isNull() && null < 0) {
            null = int(distinct.size());
            distinct.push_back(value);
        }
        ids[context.row] = value.isNull()                      ? null
                           : value.type() == Value::Type::Text ? numbered(texts, value.toText(), value)
                           : value.type() == Value::Type::Date ? numbered(numbers, value.toDate().serial(), value)
                                                               : numbered(numbers, value.toDouble(), value);
    }

    // Texts are brought into the encoding they are compared in once, not at each comparison.
    std::vector<std::string> encoded(by.type() == FormulaType::Text ? distinct.size() : 0);
    for (size_t i = 0; i < encoded.size(); ++i)
        encoded[i] = distinct[i].joined().toStdString();
    const auto compared = [&](int a, int b) {
        if (encoded.empty() || distinct[a].isNull() || distinct[b].isNull())
            return compareValues(distinct[a], distinct[b]);
        return compareTexts(encoded[a], encoded[b]);
    };
    std::vector<int> sorted(distinct.size());
    std::iota(sorted.begin(), sorted.end(), 0);
    std::sort(sorted.begin(), sorted.end(), [&](int a, int b) { return compared(a, b) < 0; });
    std::vector<int> rank(distinct.size());
    for (size_t i = 1; i < sorted.size(); ++i) {
        const bool same = compared(sorted[i - 1], sorted[i]) == 0;
        rank[sorted[i]] = rank[sorted[i - 1]] + (same ? 0 : 1);
    }
    for (int &id : ids)
        id = rank[id];
    return ids;
}

} // namespace

void Grouping::arrange(const std::vector<FormulaPtr> &by, const FormulaContext &context)
{
    std::vector<std::vector<int>> keys;
    for (const FormulaPtr &group : by)
        keys.push_back(ranks(*group, context));
    m_order.resize(context.rows->rowCount());
    std::iota(m_order.begin(), m_order.end(), 0);
    const auto before = [&](int a, int b) {
        for (const std::vector<int> &key : keys) {
            if (key[a] != key[b])
                return key[a] < key[b];
        }
        return false;
    };
    if (!std::is_sorted(m_order.begin(), m_order.end(), before))
        std::stable_sort(m_order.begin(), m_order.end(), before);

    m_nodes.assign(by.size(), {});
    for (int position = 0; position < rowCount(); ++position) {
        bool begins = position == 0;
        for (size_t level = 0; level < by.size(); ++level) {
            begins = begins || keys[level][m_order[position]] != keys[level][m_order[position - 1]];
            if (begins)
                m_nodes[level].push_back({position, 0, level == 0 ? -1 : int(m_nodes[level - 1].size()) - 1});
            m_nodes[level].back().end = position + 1;
        }
    }
}

int Grouping::nodeAt(int level, int position) const
{
    const std::vector<Node> &nodes = m_nodes[level];
    const auto behind = std::upper_bound(nodes.begin(), nodes.end(), position,
                                         [](int wanted, const Node &node) { return wanted < node.first; });
    return int(behind - nodes.begin()) - 1;
}
