#include "reportengine/viewer/grouptreemodel.h"

#include "reportengine/pages/reportpages.h"

void GroupTreeModel::setPages(const ReportPages *pages)
{
    beginResetModel();
    m_pages = pages;
    endResetModel();
}

QModelIndex GroupTreeModel::indexOf(int level, int node, int row) const
{
    return createIndex(row, 0, (quintptr(level) << 32) | quintptr(quint32(node)));
}

/// The node, one level below, that the parent begins with.
int GroupTreeModel::firstChild(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return 0;
    const Grouping &groups = m_pages->groups();
    return groups.nodeAt(level(parent) + 1, groups.nodes(level(parent))[node(parent)].first);
}

QModelIndex GroupTreeModel::index(int row, int column, const QModelIndex &parent) const
{
    if (!hasIndex(row, column, parent))
        return {};
    return indexOf(parent.isValid() ? level(parent) + 1 : 0, firstChild(parent) + row, row);
}

QModelIndex GroupTreeModel::parent(const QModelIndex &child) const
{
    if (!child.isValid() || level(child) == 0)
        return {};
    const int above = level(child) - 1;
    const int node = m_pages->groups().nodes(level(child))[GroupTreeModel::node(child)].parent;
    const int grandparent = m_pages->groups().nodes(above)[node].parent;
    if (grandparent < 0)
        return indexOf(above, node, node);
    const int first = m_pages->groups().nodeAt(above, m_pages->groups().nodes(above - 1)[grandparent].first);
    return indexOf(above, node, node - first);
}

int GroupTreeModel::rowCount(const QModelIndex &parent) const
{
    if (!m_pages || m_pages->groups().levels() == 0)
        return 0;
    const Grouping &groups = m_pages->groups();
    if (!parent.isValid())
        return int(groups.nodes(0).size());
    if (level(parent) + 1 == groups.levels())
        return 0;
    const int last = groups.nodes(level(parent))[node(parent)].end - 1;
    return groups.nodeAt(level(parent) + 1, last) - firstChild(parent) + 1;
}

QVariant GroupTreeModel::data(const QModelIndex &index, int role) const
{
    if (role != Qt::DisplayRole)
        return {};
    const QString label = m_pages->groupLabel(level(index), node(index));
    return label.isEmpty() ? QString("(none)") : label;
}
