#pragma once

#include "data/jetsql/dialect.h"
#include "data/jetsql/translation.h"

namespace jetsql {

/// Marks the constants of a resolved and typed statement that the writer passes on without looking at their values:
/// those compared with a column of their kind, and those assigned to one. All others stay what they are, among them
/// constants in lists of results, in GROUP BY and ORDER BY, and those compared with a column that an index's condition
/// names, since the engine has to see these to use the index.
std::vector<Place> markPlaces(Statement &statement);
/// False where the statement has the character itself that a placemark begins with.
bool canHavePlaces(const QString &sql);

/// What the writer writes for a marked constant.
QString placemark(const Expr &constant);

/// Turns a text with placemarks into `sqlWithPlaces` and `places`.
void setPlaces(Translation &translation, const QString &marked, const std::vector<Place> &known,
               const Dialect &dialect);

} // namespace jetsql
