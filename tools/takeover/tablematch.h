#pragma once

#include "data/schema/tabledef.h"
#include "tools/takeover/jetfile.h"

/// How the columns of an old table find those of ours, by name in any case.
class TableMatch
{
public:
    TableMatch(const TableDef &ours, const JetTable &old);

    const TableDef &table() const { return *m_table; }
    QStringList names() const;   ///< of our columns that the old table has, in our order
    QStringList missing() const; ///< our columns that it has not
    const std::vector<int> &further() const { return m_further; } ///< places of its columns that are not ours

    /// False without the column of the AutoNumber: other tables refer to the rows by it.
    bool isUsable() const;
    /// A row as our columns take it, in the order of `names`. A ToolError names the column and says why not.
    std::vector<Value> converted(const std::vector<JetCell> &cells) const;
    /// What people know the row by, such as "ID 7" or "OrderID 7, ItemNumber 2"; of what it holds even where that
    /// cannot be converted.
    QString key(const std::vector<JetCell> &cells) const;

private:
    const TableDef *m_table;
    std::vector<int> m_ours;   ///< places of our columns that the old table has, in our order
    std::vector<int> m_places; ///< where each of them stands in the old table
    std::vector<int> m_further;
};

/// The places of the columns that tell a row of the table from the others.
std::vector<int> keyColumns(const TableDef &table);
/// The key in words, from a row of all columns of the table.
QString keyText(const TableDef &table, const std::vector<Value> &row);
