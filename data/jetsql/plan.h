#pragma once

#include "data/jetsql/ast.h"

namespace jetsql {

/// Rewrites a resolved and typed statement into one that gives the same rows and leaves SQLite a better plan:
/// outer joins whose unmatched rows the WHERE drops become inner ones, and a sum taken row by row over a table without
/// a fitting index becomes one grouped table joined once.
void improvePlan(ParsedStatement &statement);

} // namespace jetsql
