#pragma once

#include "data/values/value.h"
#include <QString>

/// Rows to be read once, first to last: a recordset, or rows made up by a test.
class RowSource
{
public:
    virtual ~RowSource() = default;
    /// Index of the column that a dataset field names (in any case, perhaps as "Table.Column"); -1 when there is none.
    virtual int column(const QString &field) = 0;
    /// Goes to the next row, at the start to the first; false behind the last.
    virtual bool next() = 0;
    virtual Value value(int column) = 0;
};
