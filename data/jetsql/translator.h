#pragma once

#include "data/jetsql/translation.h"

/// The front end for the SQL dialect of forms and routines: lexer, parser, resolution against the table definitions,
/// and the writer of the statement that the engine underneath runs.
namespace jetsql {

/// Whether joins and sub-selects stay as written or are rewritten to be quick. The rows are the same.
enum class Plan { AsWritten, Improved };

class Dialect;

/// Translates one statement. Raises the engine's errors (3075, 3061, 3078, 3079 ...) by number and wording.
Translation translate(const QString &sql, const Catalog &catalog, const Dialect &dialect, Plan plan = Plan::Improved);

} // namespace jetsql
