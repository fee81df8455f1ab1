#include "data/engines/sqlite/checkpoint.h"

#include <sqlite3.h>

namespace {
constexpr int LockMilliseconds = 20;
constexpr int PagesToNextAttempt = 500;

bool execute(sqlite3 *connection, const char *sql)
{
    return sqlite3_exec(connection, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}
} // namespace

void Checkpoint::Closer::operator()(sqlite3 *handle) const
{
    sqlite3_close_v2(handle);
}

void Checkpoint::attach(sqlite3 *connection)
{
    m_connection = connection;
    // The hook takes the place of the one that makes automatic checkpoints.
    const auto noteCommit = [](void *self, sqlite3 *, const char *, int pages) {
        auto *checkpoint = static_cast<Checkpoint *>(self);
        if (pages < checkpoint->m_pages)
            checkpoint->m_dueAt = LogPages; // the log has begun anew
        checkpoint->m_pages = pages;
        return SQLITE_OK;
    };
    sqlite3_wal_hook(connection, noteCommit, this);
}

void Checkpoint::run()
{
    // With a transaction open the lock would be waited for in vain: this process holds it itself.
    if (!m_connection || !sqlite3_get_autocommit(m_connection))
        return;
    if (!m_lock) {
        sqlite3 *handle = nullptr;
        const int access = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX;
        const int code = sqlite3_open_v2(sqlite3_db_filename(m_connection, "main"), &handle, access, nullptr);
        m_lock.reset(handle);
        if (code != SQLITE_OK)
            return m_lock.reset();
        sqlite3_busy_timeout(handle, LockMilliseconds);
    }
    // Set before the attempt, which may be in vain: while others write it is made now and then and not at each commit.
    m_dueAt = m_pages + PagesToNextAttempt;
    if (!execute(m_lock.get(), "BEGIN IMMEDIATE"))
        return;
    // Passive: readers are not waited for, and what they still need stays in the log.
    sqlite3_wal_checkpoint_v2(m_connection, nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
    if (!execute(m_lock.get(), "ROLLBACK"))
        m_lock.reset(); // no memory for it: nobody could write any more
}
