#pragma once

#include "data/jetsql/dialect.h"

namespace postgres {

/// How statements are written for PostgreSQL. Texts are compared by their keys, which functions.sql makes; dates and
/// Yes/No are types of their own.
const jetsql::Dialect &dialect();

/// The name of a column type in casts.
QByteArray typeName(ColumnType type);

/// The column that numbers a table's rows as they were inserted: its AutoNumber where that is the key, or one that the
/// engine adds and nobody sees.
QString rowColumn(const TableDef &table);

} // namespace postgres
