#pragma once

#include "data/jetsql/dialect.h"

/// How statements are written for SQLite. Values stand in the form they are stored in: dates as text, Yes/No as 1 or
/// 0, so that indexes serve and results need no conversion. Texts are compared by the collation of their columns.
const jetsql::Dialect &sqliteDialect();
