#pragma once

#include "data/schema/tabledef.h"
#include "data/values/value.h"
#include <memory>
#include <span>

namespace engine {

/// Rows being added to some columns of one table.
class RowSink
{
public:
    virtual ~RowSink() = default;
    /// Adds one row. In a file, a row refused leaves the others of the load standing; on a server the load is lost.
    virtual void add(std::span<const Value> row) = 0;
};

/// Many rows that come to stand in a database as one: all after `commit`, none before or without it.
class BulkRows
{
public:
    /// A `New` database belongs to nobody yet: its indexes are made after the rows, and a power failure may ruin it.
    /// A `Live` one may be in use by others.
    enum class State { New, Live };

    virtual ~BulkRows() = default;
    virtual const Catalog &tables() const = 0;
    virtual std::unique_ptr<RowSink> into(const TableDef &table, const QStringList &columns) = 0;
    virtual void commit() = 0;
};

} // namespace engine
