#pragma once

#include "data/schema/tabledef.h"
#include "data/values/value.h"
#include <string_view>

/// One column of a row as an engine hands it out.
struct Cell
{
    enum Kind { Null, Integer, Real, Text } kind = Null;
    qint64 whole = 0;           ///< of an Integer
    double real = 0;            ///< of a Real
    std::string_view utf8 = {}; ///< of a Text

    qint64 integer() const { return kind == Integer ? whole : 0; }
};

/// How values stand in a database: Yes/No as 0 and 1, money as a real number, dates as "YYYY-MM-DD HH:MM:SS",
/// text as UTF-8. These turn what an engine hands out into a value of the column's type; other tools may have
/// stored something else in a column than it declares, which is read as well as it can be.
namespace StoredValue {
Value from(const Cell &cell, ColumnType type);
Value fromInteger(qint64 number, ColumnType type);
Value fromReal(double number, ColumnType type);
Value fromText(std::string_view utf8, ColumnType type);
} // namespace StoredValue
