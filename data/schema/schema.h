#pragma once

#include "data/schema/tabledef.h"
#include <QStringList>

/// What a new database holds: the permanent tables and the scratch tables that reports only empty.
namespace Schema {
const std::vector<TableDef> &permanentTables();
/// The permanent table of that name, in any case; null for any other.
const TableDef *permanentTable(QAnyStringView name);
const std::vector<TableDef> &keptScratchTables();
/// Names and columns of the indexes that keep the program's statements quick; the logic never depends on them.
struct Index
{
    QString name, table;
    QStringList columns;
    QString where; ///< limits it to these rows; empty for all
};
const std::vector<Index> &indexes();

/// The connect string of every database of this program, and the password in it.
inline constexpr QLatin1String Connect(";pwd=QZV"), Password = Connect.sliced(5);
} // namespace Schema
