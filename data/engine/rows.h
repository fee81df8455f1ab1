#pragma once

#include "data/engine/storedvalue.h"

namespace engine {

/// The rows of one statement, walked once from the first to the last. Dropping it ends the walk.
class Rows
{
public:
    virtual ~Rows() = default;

    /// Goes to the next row, at first the first one; false behind the last. The first call asks the engine.
    virtual bool next() = 0;
    /// True when the first call found, or may have failed for, other tables than the statement was translated for.
    virtual bool metOtherTables() const { return false; }

    /// A column of the current row as the engine hands it out; valid until the next row.
    virtual Cell cell(int column) const = 0;

    /// A column of the current row as a value of that type.
    Value value(int column, ColumnType type) const { return StoredValue::from(cell(column), type); }
    qint64 integer(int column) const { return cell(column).integer(); }
};

} // namespace engine
