#pragma once

#include "data/schema/tabledef.h"
#include "data/values/value.h"

/// A value out of another program's data as a column of ours takes it: converted as an assignment in the program does
/// it, but nothing is rounded or cut on the way. A ToolError says in words what is wrong with it.
Value takenInto(const ColumnDef &column, const Value &value);
