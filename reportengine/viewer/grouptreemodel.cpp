#include "reportengine/viewer/grouptreemodel.h"

#include "reportengine/pages/reportpages.h"

/// Nothing is kept per entry but how many are known: the pages hold the rest, and a report may have a hundred thousand
/// groups.
void GroupTreeModel::setPages(const ReportPages *pages)
{
    beginResetModel();
    m_pages = pages;
    m_known.clear();
    for (int level = 0; pages && level < pages->groups().levels(); ++level)
        m_known.push_back(int(pages->printedGroups().nodes[level].size()));
    endResetModel();
}

void GroupTreeModel::pagesChanged()
{
    // Paging goes on in printing order, so that on each level entries are added behind the last one of the last group;
    // what stands below new entries comes with them. From the inside out, since a view asks when it is told.
    for (int level = int(m_known.size()) - 1; level >= 0; --level) {
        const int known = m_known[level];
        const int now = int(m_pages->printedGroups().nodes[level].size());
        const QModelIndex parent =
            level > 0 && m_known[level - 1] > 0 ? entry(level - 1, m_known[level - 1] - 1) : QModelIndex();
        const bool hasParent = level == 0 || parent.isValid();
        const Entries before = hasParent ? entriesBelow(parent) : Entries();
        // How many come is reckoned with the new count, which is then taken back: a view that looks while it is being
        // told of the entries must not find them yet.
        m_known[level] = now;
        const int added = hasParent ? entriesBelow(parent).end - before.end : 0;
        if (added <= 0)
            continue;
        m_known[level] = known;
        const int row = before.end - before.first;
        beginInsertRows(parent, row, row + added - 1);
        m_known[level] = now;
        endInsertRows();
    }
}

int GroupTreeModel::node(const QModelIndex &index) const
{
    return m_pages->printedGroups().nodes[level(index)][place(index)];
}

/// The printed groups one level below that lie in the parent.
GroupTreeModel::Entries GroupTreeModel::entriesBelow(const QModelIndex &parent) const
{
    const int below = parent.isValid() ? level(parent) + 1 : 0;
    if (below >= int(m_known.size()))
        return {};
    if (!parent.isValid())
        return {0, m_known[0]};
    const std::vector<Grouping::Node> &nodes = m_pages->groups().nodes(below);
    const Grouping::Node &group = m_pages->groups().nodes(below - 1)[node(parent)];
    const auto begin = m_pages->printedGroups().nodes[below].begin();
    const auto end = begin + m_known[below];
    const auto firstAt = [&](int position) {
        return int(std::partition_point(begin, end, [&](int node) { return nodes[node].first < position; }) - begin);
    };
    return {firstAt(group.first), firstAt(group.end)};
}

QModelIndex GroupTreeModel::entry(int level, int place) const
{
    // Known by level and place on the level alone; views want its number below the parent.
    int row = place;
    if (level > 0) {
        const int above = m_pages->groups().nodes(level)[m_pages->printedGroups().nodes[level][place]].parent;
        row -= entriesBelow(indexOf(level - 1, above)).first;
    }
    return createIndex(row, 0, idOf(level, place));
}

QModelIndex GroupTreeModel::indexOf(int level, int node) const
{
    if (!m_pages || level >= int(m_known.size()))
        return {};
    const auto begin = m_pages->printedGroups().nodes[level].begin();
    const auto end = begin + m_known[level];
    // Groups come to paper in their order.
    const auto found = std::lower_bound(begin, end, node);
    return found != end && *found == node ? entry(level, int(found - begin)) : QModelIndex();
}

QModelIndex GroupTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    const int level = parent.isValid() ? GroupTreeModel::level(parent) + 1 : 0;
    const int place = entriesBelow(parent).first + row;
    return createIndex(row, 0, idOf(level, place));
}

QModelIndex GroupTreeModel::parent(const QModelIndex &child) const
{
    if (!child.isValid() || level(child) == 0)
        return {};
    return indexOf(level(child) - 1, m_pages->groups().nodes(level(child))[node(child)].parent);
}

int GroupTreeModel::rowCount(const QModelIndex &parent) const
{
    if (!m_pages)
        return 0;
    const Entries entries = entriesBelow(parent);
    return entries.end - entries.first;
}

QVariant GroupTreeModel::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
        return {};
    // Reckoned when it is shown.
    const QString label = m_pages->groupLabel(level(index), node(index));
    return label.isEmpty() ? QString("(none)") : label;
}
