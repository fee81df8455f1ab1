#pragma once

#include "data/schema/tabledef.h"
#include "data/values/value.h"

/// A value as a column takes it on assignment: converted to the column's type, Null staying Null. Error 3421 for
/// what the type cannot hold, 3163 for a text longer than the column.
Value assignedTo(const ColumnDef &column, const Value &value);
