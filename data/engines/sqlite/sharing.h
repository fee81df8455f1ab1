#pragma once

struct sqlite3;

/// Which journals a file may be kept with. A write-ahead log holds only among the programs of one machine, so a file
/// that clients reach over the network is marked as shared for good, in the header (PRAGMA user_version), and then
/// kept with the rollback journal on the machine it lies on as well.
struct Sharing
{
    bool usesWriteAheadLog = false; ///< the file is set to the write-ahead log
    bool isShared = false;

    /// As the file's header has it, read through the connection's own handle: opening the file a second time and
    /// closing it again would drop all locks of this process on it.
    static Sharing of(sqlite3 *connection);

    static constexpr int Mark = 1; ///< the user_version of a shared file
};
