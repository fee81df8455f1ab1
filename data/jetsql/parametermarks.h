#pragma once

#include "data/jetsql/dialect.h"
#include "data/jetsql/translation.h"

namespace jetsql {

/// Marks the constants of a resolved and typed statement that the writer passes on without looking at their values:
/// those compared with a column of their kind, and those assigned to one. All others stay what they are, among them
/// constants in lists of results, in GROUP BY and ORDER BY, and those compared with a column that an index's condition
/// names, since the engine has to see these to use the index.
std::vector<BindParameter> markParameters(ParsedStatement &statement);
/// False where the statement has the character itself that a mark begins with.
bool canHaveParameters(const QString &sql);

/// What the writer writes for a marked constant.
QString parameterMark(const Constant &constant);

/// Turns a text with parameter marks into `sqlWithParameters` and `parameters`.
void setParameters(Translation &translation, const QString &marked, const std::vector<BindParameter> &known,
                   const Dialect &dialect);

} // namespace jetsql
