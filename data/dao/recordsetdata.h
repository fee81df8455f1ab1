#pragma once

#include "data/dao/rowchange.h"

/// What is behind a Recordset: the walk over its rows, and the row being added or changed.
struct RecordsetData
{
    RecordsetData(const std::shared_ptr<DatabaseData> &database, const QString &sql)
        : walk(database, sql), change(database, walk)
    {
    }

    RowWalk walk;
    RowChange change;
};
