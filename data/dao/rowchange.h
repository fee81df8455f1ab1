#pragma once

#include "data/dao/rowwalk.h"

/// The row of a recordset between AddNew or Edit and Update.
class RowChange
{
public:
    RowChange(std::shared_ptr<DatabaseData> database, RowWalk &walk);

    /// Errors 3027 on a result that can only be read; `edit` also 3021, 3167 and 3218.
    void addNew();
    void edit();
    /// Puts a value into the pending row, converted to the column's type. Errors 3020, 3027, 3163, 3421.
    void assign(int column, const Value &value);
    /// Writes and commits the pending row. Errors 3020, and 3167 where it was deleted meanwhile.
    void update();
    /// Gives the pending row up, and its lock.
    void drop();

    /// What the pending row has in a column of the result: of a new row always something, Null where it has no such
    /// column; of a changed one what was assigned. Nothing without a pending row.
    std::optional<Value> value(int column) const;

private:
    struct Pending
    {
        bool adding = false;
        std::vector<std::optional<Value>> values; ///< by column of the table
    };

    int tableColumn(int column) const { return m_walk.updatableTable().columns[size_t(column)]; }
    void insertPending(const ErrorContext &writing);
    void updatePending(const ErrorContext &writing);

    std::shared_ptr<DatabaseData> m_database;
    RowWalk &m_walk;
    std::optional<Pending> m_pending;
};
