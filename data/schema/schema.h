#pragma once

#include "data/schema/tabledef.h"
#include <QStringList>

/// What a new database holds: the permanent tables and the scratch tables that reports only empty.
namespace Schema {
const std::vector<TableDef> &permanentTables();
const std::vector<TableDef> &keptScratchTables();
/// Names and columns of the indexes that keep the program's statements quick; the logic never depends on them.
struct Index
{
    QString name, table;
    QStringList columns;
    QString where; ///< limits it to these rows; empty for all
};
const std::vector<Index> &indexes();

/// The database's password, held by the program and its tools alike.
inline constexpr QStringView Password = u"QZV";
} // namespace Schema
