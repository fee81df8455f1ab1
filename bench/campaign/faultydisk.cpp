#include "bench/campaign/faultydisk.h"

namespace {

/// SQLite's handle of an open file: ours in front, the real one behind it in the same memory.
struct File
{
    sqlite3_file base;
    FaultyDisk *disk;
};

sqlite3_file *real(sqlite3_file *file)
{
    return reinterpret_cast<sqlite3_file *>(reinterpret_cast<File *>(file) + 1);
}

int verdict(sqlite3_file *file)
{
    return reinterpret_cast<File *>(file)->disk->verdict();
}

/// A method that passes its arguments on to the real file.
template <auto Method, typename... Arguments> int passOn(sqlite3_file *file, Arguments... arguments)
{
    return (real(file)->pMethods->*Method)(real(file), arguments...);
}

/// The same for a method that changes the disk.
template <auto Method, typename... Arguments> int tryOn(sqlite3_file *file, Arguments... arguments)
{
    const int failure = verdict(file);
    return failure == SQLITE_OK ? (real(file)->pMethods->*Method)(real(file), arguments...) : failure;
}

using Methods = sqlite3_io_methods;
const Methods methods = {
    2,
    passOn<&Methods::xClose>,
    passOn<&Methods::xRead, void *, int, sqlite3_int64>,
    tryOn<&Methods::xWrite, const void *, int, sqlite3_int64>,
    tryOn<&Methods::xTruncate, sqlite3_int64>,
    tryOn<&Methods::xSync, int>,
    passOn<&Methods::xFileSize, sqlite3_int64 *>,
    passOn<&Methods::xLock, int>,
    passOn<&Methods::xUnlock, int>,
    passOn<&Methods::xCheckReservedLock, int *>,
    passOn<&Methods::xFileControl, int, void *>,
    passOn<&Methods::xSectorSize>,
    passOn<&Methods::xDeviceCharacteristics>,
    passOn<&Methods::xShmMap, int, int, int, void volatile **>,
    passOn<&Methods::xShmLock, int, int, int>,
    [](sqlite3_file *file) { real(file)->pMethods->xShmBarrier(real(file)); },
    passOn<&Methods::xShmUnmap, int>,
    nullptr,
    nullptr,
};

int openFile(sqlite3_vfs *vfs, const char *name, sqlite3_file *file, int flags, int *outFlags)
{
    auto *disk = static_cast<FaultyDisk *>(vfs->pAppData);
    reinterpret_cast<File *>(file)->disk = disk;
    const int code = disk->real()->xOpen(disk->real(), name, real(file), flags, outFlags);
    file->pMethods = real(file)->pMethods ? &methods : nullptr;
    return code;
}

} // namespace

FaultyDisk::FaultyDisk() : m_real(sqlite3_vfs_find(nullptr)), m_vfs(*m_real)
{
    m_vfs.zName = "faulty";
    m_vfs.szOsFile = int(sizeof(File)) + m_real->szOsFile;
    m_vfs.pAppData = this;
    m_vfs.xOpen = openFile;
    sqlite3_vfs_register(&m_vfs, 1);
}

FaultyDisk::~FaultyDisk()
{
    sqlite3_vfs_unregister(&m_vfs);
    sqlite3_vfs_register(m_real, 1);
}

void FaultyDisk::failAfter(int operations, int code)
{
    m_left = operations;
    m_code = code;
    m_failed = false;
}

bool FaultyDisk::heal()
{
    m_left = -1;
    return m_failed;
}

int FaultyDisk::verdict()
{
    if (m_left < 0)
        return SQLITE_OK;
    if (m_left > 0) {
        --m_left;
        return SQLITE_OK;
    }
    m_failed = true;
    return m_code;
}
