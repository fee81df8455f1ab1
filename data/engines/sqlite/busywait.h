#pragma once

#include <QElapsedTimer>

struct sqlite3;

/// How a connection waits for the locks of other processes, and how it lets them have theirs. Must outlive the
/// connection it is installed in.
class BusyWait
{
public:
    /// Makes the connection retry a locked file for that long.
    void install(sqlite3 *connection, int milliseconds);

    /// To be called before each write with a rollback journal. There a commit takes many times as long as the
    /// pause to the next statement, so that a process that waits would hardly ever find the file free, and give up
    /// at last: as long as others are about, the pause is made long enough for them to find it.
    void letOthersIn();

private:
    bool waitAgain(int attempt);

    int m_limit = 0;
    QElapsedTimer m_waiting;    ///< since the first attempt
    QElapsedTimer m_lastWaited; ///< since another process was last met
};
