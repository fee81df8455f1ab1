#include "toolkit/controls/combolist.h"

#include <algorithm>

int ComboList::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : int(m_items.size());
}

QVariant ComboList::data(const QModelIndex &index, int role) const
{
    if (index.isValid() && (role == Qt::DisplayRole || role == Qt::EditRole))
        return m_items.value(index.row());
    return {};
}

void ComboList::append(const QStringList &items)
{
    if (items.isEmpty())
        return;
    beginInsertRows({}, int(m_items.size()), int(m_items.size() + items.size()) - 1);
    m_items += items;
    endInsertRows();
}

/// The first of equal entries: two open orders of one number and date cannot be told apart by their text.
int ComboList::find(const QString &text) const
{
    for (int i = 0; i < m_items.size(); ++i)
        // The length first, which saves most of the comparing in a list of many thousands.
        if (m_items[i].size() == text.size() && m_items[i].compare(text, Qt::CaseInsensitive) == 0)
            return i;
    return -1;
}

int ComboList::findPrefix(const QString &prefix, int from) const
{
    for (int i = from; i < m_items.size(); ++i)
        if (m_items[i].startsWith(prefix, Qt::CaseInsensitive))
            return i;
    return -1;
}

QStringList ComboList::longest(int count) const
{
    QStringList result(std::min<qsizetype>(count, m_items.size()));
    // Only the first few have to be in order.
    std::partial_sort_copy(m_items.begin(), m_items.end(), result.begin(), result.end(),
                           [](const QString &one, const QString &other) { return one.size() > other.size(); });
    return result;
}
