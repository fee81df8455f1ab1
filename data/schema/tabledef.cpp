#include "data/schema/tabledef.h"

namespace {
QString folded(QAnyStringView name)
{
    return name.toString().toCaseFolded();
}
} // namespace

int TableDef::indexOf(QAnyStringView column) const
{
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const ColumnDef &c) {
        return QAnyStringView::compare(c.name, column, Qt::CaseInsensitive) == 0;
    });
    return found == columns.end() ? -1 : int(found - columns.begin());
}

const TableDef *Catalog::find(QAnyStringView name) const
{
    const auto found = m_index.constFind(folded(name));
    return found == m_index.constEnd() ? nullptr : &m_tables[*found];
}

void Catalog::add(TableDef table)
{
    // A table made anew takes the former one's place.
    remove(table.Name);
    m_index.insert(folded(table.Name), int(m_tables.size()));
    m_tables.push_back(std::move(table));
}

void Catalog::remove(QAnyStringView name)
{
    const auto found = m_index.constFind(folded(name));
    if (found == m_index.constEnd())
        return;
    // The tables behind it move up, and the index with them.
    const int position = *found;
    m_tables.erase(m_tables.begin() + position);
    m_index.erase(found);
    for (int &other : m_index)
        other -= other > position;
}
