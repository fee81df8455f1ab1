#include "data/engines/sqlite/busywait.h"

#include <QThread>
#include <sqlite3.h>

namespace {
/// The attempts come closer together than the pauses that others make for them.
constexpr int AttemptMicroseconds = 1000;
constexpr int PauseMicroseconds = 2500;
constexpr int OthersAreAboutMilliseconds = 3000;
} // namespace

void BusyWait::install(sqlite3 *connection, int milliseconds)
{
    m_limit = milliseconds;
    const auto handler = [](void *wait, int attempt) {
        return static_cast<BusyWait *>(wait)->waitAgain(attempt) ? 1 : 0;
    };
    sqlite3_busy_handler(connection, handler, this);
}

bool BusyWait::waitAgain(int attempt)
{
    if (attempt == 0)
        m_waiting.start();
    m_lastWaited.start();
    if (m_waiting.elapsed() >= m_limit)
        return false;
    QThread::usleep(AttemptMicroseconds);
    return true;
}

/// SQLite lets whoever comes first have the file, without a queue: a process that writes row after row would keep all
/// others out. So a process that had to wait lately, which tells that others are about, pauses before it writes.
void BusyWait::letOthersIn()
{
    if (m_lastWaited.isValid() && !m_lastWaited.hasExpired(OthersAreAboutMilliseconds))
        QThread::usleep(PauseMicroseconds);
}
