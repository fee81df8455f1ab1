#include "data/engines/sqlite/connection.h"

#include "data/engines/sqlite/collation.h"
#include "data/engines/sqlite/errors.h"
#include "data/engines/sqlite/filesystem.h"
#include "data/engines/sqlite/functions.h"
#include "data/engines/sqlite/sharing.h"
#include <QDir>
#include <QFileInfo>

namespace {

constexpr int CacheKilobytes = 48 * 1024;

/// The path failures the engine tells apart before it looks into the file.
void checkPath(const ConnectionOptions &options)
{
    if (options.file.trimmed().isEmpty())
        throw runtimeError(3055);
    const QFileInfo info(options.file);
    if (!info.dir().exists() || info.isDir())
        throw runtimeError(3044, {options.file});
    if (!options.create && !info.exists())
        throw runtimeError(3024, {options.file});
    // A pipe would keep SQLite waiting, and a device never end.
    if (info.exists() && !info.isFile())
        throw runtimeError(3343, {options.file});
}

} // namespace

Connection::Connection(const ConnectionOptions &options) : m_file(options.file)
{
    checkPath(options);
    sqlite3 *handle = nullptr;
    // Not for reading alone, even where nothing is to be written: SQLite could not take the files of the log away
    // again when it closes the file.
    const int access = SQLITE_OPEN_READWRITE | (options.create ? SQLITE_OPEN_CREATE : 0) | SQLITE_OPEN_NOMUTEX;
    const int code = sqlite3_open_v2(QFile::encodeName(options.file).constData(), &handle, access, nullptr);
    m_handle.reset(handle);
    if (code != SQLITE_OK)
        raise(code, {ErrorContext::Opening, {}, {}});
    configure(options);
}

void Connection::configure(const ConnectionOptions &options)
{
    sqlite3 *db = m_handle.get();
    // One of them alone tells that the file is no longer the one under its name.
    sqlite3_extended_result_codes(db, 1);
    m_busyWait.install(db, options.busyMilliseconds);
    // A name in double quotes that is no column would silently become a text.
    sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(db, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
    registerJetCollation(db);
    switchBloomFiltersOff(db);
    registerJetFunctions(db);

    const ErrorContext opening{ErrorContext::Opening, {}, {}};
    if (options.exclusive)
        run("PRAGMA locking_mode=EXCLUSIVE", opening);
    chooseJournal(options);
    // What this leaves to be synced behind a commit, syncCommits() syncs once for all commits of an action. EXTRA would
    // sync the folder behind each.
    run(m_usesWriteAheadLog ? "PRAGMA synchronous=NORMAL" : "PRAGMA synchronous=FULL", opening);
    run("PRAGMA cache_size=-" + QByteArray::number(CacheKilobytes), opening);
    if (options.exclusive)
        // The lock comes with the first write, so one is made at once, and is not given back. Without it two programs
        // that want the file for themselves would both get it, and one of them find out later.
        run("BEGIN EXCLUSIVE; COMMIT", opening);
    else if (m_usesWriteAheadLog)
        m_checkpoint.attach(db);
}

void Connection::chooseJournal(const ConnectionOptions &options)
{
    const ErrorContext opening{ErrorContext::Opening, {}, {}};
    const bool onNetwork = liesOnNetwork(options.file);
    const Sharing sharing = Sharing::of(m_handle.get());
    if (onNetwork && sharing.usesWriteAheadLog) {
        throw runtimeError(3045, {options.file},
                           "The file is kept with a write-ahead log, which holds on the machine alone "
                           "that it lies on. Run tamrick-db share there.");
    }
    if (options.readOnly)
        return run("PRAGMA query_only=1", opening);
    // A log needs memory shared between the processes, which no network file system gives.
    const bool log = options.journal != Journal::Rollback && !onNetwork && !sharing.isShared;
    // Not obeyed while another process uses the file the other way; then both go on in its way.
    PreparedStatement mode = prepare(log ? "PRAGMA journal_mode=WAL" : "PRAGMA journal_mode=DELETE", opening);
    mode.next();
    m_usesWriteAheadLog = mode.bytes(0) == "wal";
    mode.reset();
    if (m_usesWriteAheadLog)
        syncFolderOf(options.file); // the log's name; who made it may not have come to syncing it
    m_unmarked = onNetwork && !sharing.isShared;
}

PreparedStatement Connection::prepare(const QByteArray &sql, const ErrorContext &context)
{
    if (const std::unique_ptr<PreparedStatement> idle(m_idle.take(sql)); idle) {
        idle->setErrorContext(m_file, context);
        return std::move(*idle);
    }
    sqlite3_stmt *handle = nullptr;
    // With the zero at its end, which saves SQLite a copy of the text.
    const int code = sqlite3_prepare_v3(m_handle.get(), sql.constData(), int(sql.size()) + 1, SQLITE_PREPARE_PERSISTENT,
                                        &handle, nullptr);
    if (code != SQLITE_OK)
        raise(code, context);
    PreparedStatement statement(handle, sql);
    statement.setErrorContext(m_file, context);
    return statement;
}

void Connection::giveBack(PreparedStatement statement)
{
    if (!statement)
        return;
    // One that lies idle must hold no lock, and no text that was bound to it.
    statement.reset();
    const QByteArray sql = statement.sql();
    m_idle.insert(sql, new PreparedStatement(std::move(statement)));
}

void Connection::run(const QByteArray &sql, const ErrorContext &context)
{
    const int code = sqlite3_exec(m_handle.get(), sql.constData(), nullptr, nullptr, nullptr);
    if (code != SQLITE_OK)
        raise(code, context);
}

void Connection::runPrepared(const QByteArray &sql, const ErrorContext &context, const std::vector<Value> &values)
{
    PreparedStatement statement = prepare(sql, context);
    statement.bind(values);
    statement.finish();
    giveBack(std::move(statement));
}

qint64 Connection::schemaVersion()
{
    const ErrorContext reading{ErrorContext::Reading, {}, {}};
    PreparedStatement version = prepare("PRAGMA schema_version", reading);
    version.next();
    const qint64 number = version.integer(0);
    giveBack(std::move(version));
    return number;
}

void Connection::syncCommits()
{
    // Changes with each commit made here, and when a read first sees one of another process: nothing that can be told
    // of stands in the file unsynced as long as it stays.
    unsigned version = 0;
    sqlite3_file_control(m_handle.get(), "main", SQLITE_FCNTL_DATA_VERSION, &version);
    if (version == m_syncedVersion)
        return;
    if (m_usesWriteAheadLog) {
        syncLog();
    } else {
        // The last commit's journal is removed, but a power failure may bring it back, and it would take the commit
        // back with it. Those before it are gone for good: SQLite syncs the folder when the next one is made.
        syncFolderOf(QString::fromUtf8(sqlite3_db_filename(m_handle.get(), "main")));
    }
    m_syncedVersion = version;
}

void Connection::syncLog()
{
    sqlite3_file *log = nullptr;
    if (sqlite3_file_control(m_handle.get(), "main", SQLITE_FCNTL_JOURNAL_POINTER, &log) != SQLITE_OK || !log ||
        !log->pMethods)
        return;
    const int code = log->pMethods->xSync(log, SQLITE_SYNC_NORMAL);
    if (code != SQLITE_OK)
        raise(code, {ErrorContext::Writing, {}, "sync of the write-ahead log"});
}

void Connection::requireInPlace()
{
    int moved = 0;
    sqlite3_file_control(m_handle.get(), "main", SQLITE_FCNTL_HAS_MOVED, &moved);
    if (moved)
        raise(SQLITE_READONLY_DBMOVED, {ErrorContext::Writing, {}, "the file is gone or replaced"});
}

void Connection::noteNetwork()
{
    if (std::exchange(m_unmarked, false))
        markShared();
}

void Connection::markShared()
{
    run("PRAGMA user_version=" + QByteArray::number(Sharing::Mark), {ErrorContext::Opening, {}, {}});
    syncCommits();
}

void Connection::checkpoint()
{
    m_checkpoint.run();
}

void Connection::copyInto(Connection &target)
{
    const ErrorContext copying{ErrorContext::Reading, {}, "copy of the database"};
    sqlite3_backup *backup = sqlite3_backup_init(target.m_handle.get(), "main", m_handle.get(), "main");
    if (!backup)
        target.raise(sqlite3_errcode(target.m_handle.get()), copying);
    sqlite3_backup_step(backup, -1);
    // Finishing repeats a failure of the step, and leaves it with the target whichever of the two it came from.
    if (const int code = sqlite3_backup_finish(backup); code != SQLITE_OK)
        throw errorFor(code, QString::fromUtf8(sqlite3_errstr(code)), m_file, copying);
    // The copy brings the original's journal with it. Only without a log is the copy a single file.
    target.run("PRAGMA journal_mode=DELETE", copying);
}

void Connection::prepareToWrite()
{
    if (!m_usesWriteAheadLog)
        m_busyWait.letOthersIn();
    else if (m_checkpoint.isDue())
        m_checkpoint.run();
}

void Connection::raise(int code, const ErrorContext &context) const
{
    throw errorFor(code, m_handle ? QString::fromUtf8(sqlite3_errmsg(m_handle.get())) : QString(), m_file, context);
}

Transaction::Transaction(Connection &connection, const ErrorContext &context)
    : m_connection(connection), m_rollback(connection.prepare("ROLLBACK", context)), m_context(context)
{
    // The write lock is taken at once: taken later, it could not be waited for without a deadlock.
    connection.runPrepared("BEGIN IMMEDIATE", context);
}

Transaction::~Transaction()
{
    if (!m_open)
        return;
    try {
        m_rollback.finish();
    } catch (const RuntimeError &) {
        // The engine has rolled back by itself already, and the error that led here is the one to report.
    }
}

void Transaction::commit()
{
    m_connection.runPrepared("COMMIT", m_context);
    m_open = false;
    m_connection.giveBack(std::move(m_rollback));
}
