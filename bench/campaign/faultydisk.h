#pragma once

#include <sqlite3.h>

/// A disk under SQLite that refuses writing from a chosen operation on, as a full or broken one does. While one
/// exists every file that is opened lies on it.
class FaultyDisk
{
public:
    FaultyDisk();
    FaultyDisk(const FaultyDisk &) = delete;
    FaultyDisk &operator=(const FaultyDisk &) = delete;
    ~FaultyDisk();

    /// Lets that many writes, truncations and syncs pass, and fails those behind them with the code.
    void failAfter(int operations, int code);
    /// Everything works again. True when something had failed.
    bool heal();

    /// What an operation that changes the disk comes to: SQLITE_OK to go ahead, or the failure.
    int verdict();
    sqlite3_vfs *real() const { return m_real; }

private:
    sqlite3_vfs *m_real;
    sqlite3_vfs m_vfs;
    int m_left = -1; ///< operations that still pass; -1: all
    int m_code = SQLITE_OK;
    bool m_failed = false;
};
