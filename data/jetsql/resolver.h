#pragma once

#include "data/jetsql/ast.h"

namespace jetsql {

/// Finds what every name of a statement means and replaces each star by its columns. Errors 3061 (counting the
/// distinct unknown names of the whole statement), 3063, 3067, 3078, 3079, 3095, 3096, 3098, 3099, 3127, 3346.
/// Returns the stored tables that the statement names as sources of rows.
QStringList resolveNames(ParsedStatement &statement, const Catalog &catalog);

/// The names of a SELECT's result: an alias; the bare name of a column; "Table.Column", or with another `joiner`,
/// where the bare name occurs twice; "Expr1000" and so on for the rest.
QStringList resultNames(const Select &select, QChar joiner = u'.');

} // namespace jetsql
