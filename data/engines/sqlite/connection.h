#pragma once

#include "data/engine/errorcontext.h"
#include "data/engines/sqlite/busywait.h"
#include "data/engines/sqlite/checkpoint.h"
#include "data/engines/sqlite/preparedstatement.h"
#include "data/values/runtimeerror.h"
#include <QCache>
#include <optional>

/// How changes reach the file. `WriteAheadLog` is SQLite's own, for a local disk; `Rollback` the rollback
/// journal, for a folder that other machines share; `ByMount` takes what suits the place where the file lies.
enum class Journal { ByMount, WriteAheadLog, Rollback };

struct ConnectionOptions
{
    QString file;
    bool create = false;
    bool exclusive = false;
    bool readOnly = false;
    Journal journal = Journal::ByMount;
    int busyMilliseconds = 8000; ///< how long a locked file is retried before the lock error
};

/// One connection to a database file through SQLite's C interface.
class Connection
{
public:
    /// Opens the file. Errors 3024, 3044, 3045, 3051, 3055, 3343.
    explicit Connection(const ConnectionOptions &options);
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// A statement ready to step: one given back before, or newly prepared.
    PreparedStatement prepare(const QByteArray &sql, const ErrorContext &context);
    /// Keeps a statement for the next user of its text.
    void giveBack(PreparedStatement statement);
    void forgetStatements() { m_idle.clear(); }

    /// Runs a statement to its end, with nothing to read from it. For what is run once, and for PRAGMAs, of which
    /// some act when they are prepared and would do nothing when an idle one is stepped again.
    void run(const QByteArray &sql, const ErrorContext &context);
    /// The same for a statement that will come again, with the values for its parameters.
    void runPrepared(const QByteArray &sql, const ErrorContext &context, const std::vector<Value> &values = {});

    /// Changes whenever any process made, changed or dropped a table.
    qint64 schemaVersion();
    /// Rows that the last statement changed.
    int changes() const { return sqlite3_changes(m_handle.get()); }
    qint64 lastInsertedRow() const { return sqlite3_last_insert_rowid(m_handle.get()); }

    /// Makes all commits that this connection has made or seen outlive a power failure, also those of other processes.
    void syncCommits();
    /// Brings what the write-ahead log holds into the file, as far as no reader needs it, so that the next write
    /// begins the log anew.
    void checkpoint();
    bool usesWriteAheadLog() const { return m_usesWriteAheadLog; }

    /// Makes the file of another connection, which must use the rollback journal, a copy of this one as it is at one
    /// moment. In one step: taken in several, a copy begins anew whenever another process has written in between.
    void copyInto(Connection &target);

    /// Raises error 3043 when the file this connection writes is no longer the one that stands under its name.
    void requireInPlace();
    /// Marks the file as shared if this machine reaches it over the network. Called once it is known to be ours.
    void noteNetwork();
    /// Marks the file as one that other machines reach, for good; see Sharing.
    void markShared();

    /// To be called before a write that is to be a transaction of its own, with no statement half walked.
    void prepareToWrite();

    /// Raises the run-time error for a result code of SQLite.
    [[noreturn]] void raise(int code, const ErrorContext &context) const;

private:
    struct Closer
    {
        void operator()(sqlite3 *handle) const { sqlite3_close_v2(handle); }
    };

    void configure(const ConnectionOptions &options);
    void chooseJournal(const ConnectionOptions &options);
    void syncLog();

    QString m_file;
    BusyWait m_busyWait;
    std::unique_ptr<sqlite3, Closer> m_handle;
    QCache<QByteArray, PreparedStatement> m_idle{128};
    Checkpoint m_checkpoint;
    bool m_usesWriteAheadLog = false;
    std::optional<unsigned> m_syncedVersion; ///< of the data, when all of it was synced last
    bool m_unmarked = false;                 ///< reached over the network, and not marked as shared yet
};

/// Several statements that are committed as one. Rolls back unless committed.
class Transaction
{
public:
    Transaction(Connection &connection, const ErrorContext &context);
    Transaction(const Transaction &) = delete;
    Transaction &operator=(const Transaction &) = delete;
    ~Transaction();
    void commit();

private:
    Connection &m_connection;
    PreparedStatement m_rollback; ///< at hand, since there may be no memory left to prepare it
    ErrorContext m_context;
    bool m_open = true;
};
