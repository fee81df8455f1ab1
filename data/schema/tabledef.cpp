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

QStringList TableDef::columnNames() const
{
    QStringList names;
    for (const ColumnDef &column : columns)
        names += column.name;
    return names;
}

const TableDef *Catalog::find(QAnyStringView name) const
{
    const auto found = m_index.constFind(folded(name));
    return found == m_index.constEnd() ? nullptr : &m_tables[*found];
}

void Catalog::add(TableDef table)
{
    m_index.insert(folded(table.Name), int(m_tables.size()));
    m_tables.push_back(std::move(table));
}
