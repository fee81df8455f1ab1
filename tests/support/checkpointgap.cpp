#include "tests/support/checkpointgap.h"

#include <sqlite3.h>

namespace {

constexpr int CheckpointLock = 1; ///< the place of the lock that a checkpoint takes first

std::function<void(CheckpointMoment)> action;
sqlite3_vfs *real = nullptr;
sqlite3_vfs gapped;
const sqlite3_io_methods *realMethods = nullptr;
sqlite3_io_methods gappedMethods;

int lock(sqlite3_file *file, int offset, int count, int flags)
{
    if (action && offset == CheckpointLock && (flags & SQLITE_SHM_LOCK))
        action(CheckpointMoment::BeforeLock);
    return realMethods->xShmLock(file, offset, count, flags);
}

/// SQLite calls this, with nothing to give back, when a checkpoint has found another header than it knew.
int unfetch(sqlite3_file *file, sqlite3_int64 offset, void *page)
{
    if (action && !page)
        action(CheckpointMoment::HeaderRead);
    return realMethods->xUnfetch(file, offset, page);
}

int openFile(sqlite3_vfs *, const char *name, sqlite3_file *file, int flags, int *outFlags)
{
    const int code = real->xOpen(real, name, file, flags, outFlags);
    if (code == SQLITE_OK && (flags & SQLITE_OPEN_MAIN_DB)) {
        realMethods = file->pMethods;
        gappedMethods = *realMethods;
        gappedMethods.xShmLock = lock;
        gappedMethods.xUnfetch = unfetch;
        file->pMethods = &gappedMethods;
    }
    return code;
}

} // namespace

void atCheckpoints(std::function<void(CheckpointMoment)> wanted)
{
    action = std::move(wanted);
    if (real)
        return;
    real = sqlite3_vfs_find(nullptr);
    gapped = *real;
    gapped.zName = "checkpointgap";
    gapped.xOpen = openFile;
    sqlite3_vfs_register(&gapped, 1);
}
