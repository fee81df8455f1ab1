#pragma once

#include "data/dao/recordset.h"
#include "data/schema/tabledef.h"
#include <memory>

class DatabaseData;

/// One open database file. Everything is used from one thread; closing is destruction.
class Database
{
public:
    explicit Database(std::shared_ptr<DatabaseData> data);
    Database(const Database &) = delete;
    Database &operator=(const Database &) = delete;
    ~Database();

    /// Runs one action statement and commits it.
    void Execute(const QString &sql);
    /// Opens the rows of a SELECT, positioned on the first.
    Recordset OpenRecordset(const QString &sql);
    /// The tables in the file, scratch tables included.
    const std::vector<TableDef> &TableDefs() const;

    /// Waits for all statements that were sent to a server and not waited for, and raises the first failure.
    void flush();
    /// Makes what was committed since the last call survive a power failure. Does nothing when nothing was
    /// written. Called when the event routine that wrote has ended.
    void sync();
    /// The same for all that the file holds, also what other processes wrote and have not synced yet. Called before
    /// anything leaves the program that may tell of it.
    void syncAll();

private:
    std::shared_ptr<DatabaseData> m_data;
};

class DBEngine
{
public:
    /// Opens a file shared (`exclusive` False) and writable (`readOnly` False); `connect` is ";pwd=...". It may also
    /// hold "journal=log" or "journal=rollback", which overrule the choice by the kind of disk the file lies on,
    /// and "busy=" with the milliseconds for which a locked file is retried.
    /// With "snapshot=yes" all that is read is as it stood at the beginning, whatever others write.
    /// Errors 3024, 3031, 3044, 3045, 3051, 3055, 3343.
    static std::unique_ptr<Database> OpenDatabase(const QString &name, bool exclusive, bool readOnly,
                                                  const QString &connect);
};
