#pragma once

#include "data/schema/tabledef.h"
#include "data/values/value.h"
#include <string_view>

/// How values stand in the file: Yes/No as 0 and 1, money as a real number, dates as "YYYY-MM-DD HH:MM:SS",
/// text as UTF-8. These turn what SQLite hands out into a value of the column's type; other tools may have
/// stored something else in a column than it declares, which is read as well as it can be.
namespace StoredValue {
Value fromInteger(qint64 number, ColumnType type);
Value fromReal(double number, ColumnType type);
Value fromText(std::string_view utf8, ColumnType type);
} // namespace StoredValue
