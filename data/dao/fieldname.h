#pragma once

#include "data/jetsql/translation.h"

/// Which column of a result a name means.
namespace FieldName {

/// The column by its result name, by a bare name that only one column bears, or by "Table.Column"; any case.
/// -1 for a name that is unknown or means several.
int find(const std::vector<jetsql::ResultColumn> &columns, QAnyStringView name);

} // namespace FieldName
