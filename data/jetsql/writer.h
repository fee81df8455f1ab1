#pragma once

#include "data/jetsql/ast.h"

namespace jetsql {

/// Writes a resolved and typed statement for SQLite. What SQLite leaves to accident is written out: rows without an
/// order come as they were inserted, groups and distinct rows sorted by their keys.

/// `withRowid` adds the row's rowid as an extra last column of a SELECT of one table.
QString writtenSelect(const Select &select, bool withRowid);
/// The INSERT that fills the new table of a SELECT INTO.
QString writtenSelectInto(const Select &select, const TableDef &newTable);
QString written(const Insert &insert);
QString written(const Update &update);
QString written(const Delete &statement);

} // namespace jetsql
