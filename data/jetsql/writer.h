#pragma once

#include "data/jetsql/dialect.h"

namespace jetsql {

/// Writes a resolved and typed statement for an engine. What engines leave to accident is written out: rows without an
/// order come as they were inserted, groups and distinct rows sorted by their keys.

/// `withRow` adds the row's number as an extra last column of a SELECT of one table.
QString writtenSelect(const Dialect &dialect, const Select &select, bool withRow);
/// The INSERT that fills the new table of a SELECT INTO.
QString writtenSelectInto(const Dialect &dialect, const Select &select, const TableDef &newTable);
QString written(const Dialect &dialect, const Insert &insert);
QString written(const Dialect &dialect, const Update &update);
QString written(const Dialect &dialect, const Delete &statement);

} // namespace jetsql
