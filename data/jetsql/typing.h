#pragma once

#include "data/jetsql/ast.h"
#include "data/jetsql/translation.h"

namespace jetsql {

/// Gives every expression of a resolved statement its type. Errors 3464 (a text set against a number or a date),
/// 3103 (an alias used in its own expression), 3091 (HAVING without groups), 3093 and 3122 (an output or order that
/// DISTINCT or the grouping does not cover).
void typeExpressions(ParsedStatement &statement);

/// The columns of a typed SELECT's result.
std::vector<ResultColumn> resultColumns(const Select &select);

/// Whether two resolved expressions are the same, so that grouping by one covers the other.
bool sameExpression(const Expr &a, const Expr &b);

} // namespace jetsql
