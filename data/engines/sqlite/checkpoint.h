#pragma once

#include <memory>

struct sqlite3;

/// Brings the write-ahead log of a connection into the file, now and then.
///
/// SQLite's own automatic checkpoints are off. From 3.7.0 to 3.51.2 (but for the later 3.44.6 and 3.50.7) they have a
/// race: a checkpoint that looks at a log which is copied whole already may miss that a writer of another process
/// begins the log anew in that instant, and note that more of the new log is in the file than is. The next checkpoints
/// leave those pages out, and the file is damaged. Only one who holds the lock of writers can begin the log anew; so
/// here a second connection holds that lock as long as the first one copies.
class Checkpoint
{
public:
    /// Watches the connection's commits; this object must not outlive the connection, nor be moved.
    void attach(sqlite3 *connection);
    /// Whether the log has grown to where it should be brought over.
    bool isDue() const { return m_pages >= m_dueAt; }
    /// Brings over what no reader needs any more, so that the next write begins the log anew. Nobody is waited for
    /// longer than an instant: while another process writes, the log is left to a later time.
    void run();

private:
    struct Closer
    {
        void operator()(sqlite3 *handle) const;
    };

    /// 16 MB: a quarter of the syncs of SQLite's own measure, and still read in no time when a program that was killed
    /// is started again.
    static constexpr int LogPages = 4000;

    sqlite3 *m_connection = nullptr;
    std::unique_ptr<sqlite3, Closer> m_lock; ///< the second connection, opened when it is first needed
    int m_pages = 0;                         ///< in the log after the last commit of this connection
    int m_dueAt = LogPages;
};
