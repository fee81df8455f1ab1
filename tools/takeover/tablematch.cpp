#include "tools/takeover/tablematch.h"

#include "data/schema/schema.h"
#include "tools/conversion.h"
#include "tools/oneline.h"
#include "tools/toolerror.h"

std::vector<int> keyColumns(const TableDef &table)
{
    for (size_t i = 0; i < table.columns.size(); ++i) {
        if (table.columns[i].autoNumber)
            return {int(i)};
    }
    // The masters are known by their first column. Everything else is a line of something, or a pair.
    const bool named = table.Name == u"Customer" || table.Name == u"Part" || table.Name == u"Warehouse";
    return named ? std::vector{0} : std::vector{0, 1};
}

QString keyText(const TableDef &table, const std::vector<Value> &row)
{
    QStringList parts;
    for (int place : keyColumns(table)) {
        const Value &value = row[size_t(place)];
        const QString &name = table.columns[size_t(place)].name;
        parts += value.isNull() ? name + " empty" : name + u' ' + oneLine(value.toText());
    }
    return parts.join(", ");
}

TableMatch::TableMatch(const TableDef &ours, const JetTable &old) : m_table(&ours)
{
    std::vector<bool> used(size_t(old.columns.size()));
    for (size_t column = 0; column < ours.columns.size(); ++column) {
        for (int place = 0; place < old.columns.size(); ++place) {
            if (old.columns[place].compare(ours.columns[column].name, Qt::CaseInsensitive) != 0)
                continue;
            m_ours.push_back(int(column));
            m_places.push_back(place);
            used[size_t(place)] = true;
            break;
        }
    }
    for (int place = 0; place < old.columns.size(); ++place) {
        if (!used[size_t(place)])
            m_further.push_back(place);
    }
}

QStringList TableMatch::names() const
{
    QStringList names;
    for (int column : m_ours)
        names += m_table->columns[size_t(column)].name;
    return names;
}

QStringList TableMatch::missing() const
{
    QStringList missing;
    const QStringList there = names();
    for (const ColumnDef &column : m_table->columns) {
        if (!there.contains(column.name))
            missing += column.name;
    }
    return missing;
}

bool TableMatch::isUsable() const
{
    const QStringList lacking = missing();
    // Without their numbers documents would get others, and everything that points at them would point elsewhere.
    return std::none_of(m_table->columns.begin(), m_table->columns.end(),
                        [&](const ColumnDef &column) { return column.autoNumber && lacking.contains(column.name); });
}

std::vector<Value> TableMatch::converted(const std::vector<JetCell> &cells) const
{
    std::vector<Value> row;
    for (size_t i = 0; i < m_ours.size(); ++i) {
        const ColumnDef &column = m_table->columns[size_t(m_ours[i])];
        const JetCell &cell = cells[size_t(m_places[i])];
        try {
            if (!cell)
                throw ToolError{"what it holds cannot be read"};
            // An AutoNumber left out would be given anew, and perhaps one that a later row has.
            if (column.autoNumber && cell->isNull())
                throw ToolError{"no number"};
            // By the conversions of an assigned field, so that what the program itself could not have stored is refused
            // here.
            row.push_back(takenInto(column, *cell));
        } catch (const ToolError &error) {
            throw ToolError{QString("column %1: %2").arg(column.name, error.message)};
        }
    }
    return row;
}

QString TableMatch::key(const std::vector<JetCell> &cells) const
{
    std::vector<Value> row(m_table->columns.size());
    for (size_t i = 0; i < m_ours.size(); ++i) {
        if (const JetCell &cell = cells[size_t(m_places[i])])
            row[size_t(m_ours[i])] = *cell;
    }
    return keyText(*m_table, row);
}
