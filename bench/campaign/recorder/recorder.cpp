// Preloaded into a program, it writes down every system call by which the program changes the files of one folder,
// every line the program says on its standard output, and every document it puts into the folder of printed ones.
// RECORD_FOLDER and RECORD_PRINTED name the folders, RECORD_TRACE the file to write.

#include "bench/campaign/recorder/trace.h"
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <mutex>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace {

template <class Call> Call *systems(const char *name)
{
    return reinterpret_cast<Call *>(dlsym(RTLD_NEXT, name));
}

using WriteCall = ssize_t(int, const void *, size_t);
std::string paths[4096]; ///< of open files in the folder, by descriptor; the folder itself is "/"
std::mutex mutex;

std::string setting(const char *name)
{
    return getenv(name) ? getenv(name) : "";
}

/// The name that a path has within a folder, "/" for the folder itself; what lies elsewhere has none.
std::string nameIn(const std::string &folder, const std::string &path)
{
    if (folder.empty() || path.compare(0, folder.size(), folder) != 0)
        return {};
    return path.size() == folder.size() ? "/" : path.substr(folder.size() + 1);
}

/// In the folder that is recorded. Shared memory is not on the disk.
std::string nameOf(const char *path)
{
    static const std::string folder = setting("RECORD_FOLDER");
    const std::string name = nameIn(folder, path);
    return name.size() > 4 && name.compare(name.size() - 4, 4, "-shm") == 0 ? std::string() : name;
}

void record(TraceHead::Kind kind, const std::string &name, int64_t offset = 0, const void *data = nullptr,
            size_t size = 0)
{
    static const int trace = [] {
        const char *path = getenv("RECORD_TRACE");
        return path
                   ? systems<int(const char *, int, ...)>("open")(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600)
                   : -1;
    }();
    if (trace < 0)
        return;
    const TraceHead head{kind, int32_t(name.size()), offset, int64_t(size)};
    std::string bytes(reinterpret_cast<const char *>(&head), sizeof(head));
    bytes += name;
    bytes.append(static_cast<const char *>(data), size);
    const std::lock_guard lock(mutex);
    if (systems<WriteCall>("write")(trace, bytes.data(), bytes.size()) != ssize_t(bytes.size()))
        abort(); // a trace with a gap would prove nothing
}

const std::string &opened(int file)
{
    static const std::string none;
    return file >= 0 && file < 4096 ? paths[file] : none;
}

int opening(const char *call, const char *path, int flags, mode_t mode)
{
    const std::string name = nameOf(path);
    struct stat there;
    const bool isNew = !name.empty() && (flags & O_CREAT) && stat(path, &there) != 0;
    const int file = systems<int(const char *, int, ...)>(call)(path, flags, mode);
    if (file < 0 || file >= 4096)
        return file;
    paths[file] = name;
    if (isNew)
        record(TraceHead::Create, name);
    else if (!name.empty() && (flags & O_TRUNC))
        record(TraceHead::Truncate, name);
    return file;
}

ssize_t writing(const char *call, int file, const void *data, size_t size, off64_t offset)
{
    const ssize_t written = systems<ssize_t(int, const void *, size_t, off64_t)>(call)(file, data, size, offset);
    if (written > 0 && !opened(file).empty())
        record(TraceHead::Write, opened(file), offset, data, size_t(written));
    return written;
}

int truncating(const char *call, int file, off64_t size)
{
    const int result = systems<int(int, off64_t)>(call)(file, size);
    if (result == 0 && !opened(file).empty())
        record(TraceHead::Truncate, opened(file), size);
    return result;
}

int syncing(const char *call, int file)
{
    const int result = systems<int(int)>(call)(file);
    if (result == 0 && !opened(file).empty())
        record(opened(file) == "/" ? TraceHead::SyncFolder : TraceHead::Sync, opened(file));
    return result;
}

mode_t modeOf(int flags, va_list &arguments)
{
    return flags & O_CREAT ? va_arg(arguments, mode_t) : 0;
}

} // namespace

extern "C" {

int open(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return opening("open", path, flags, mode);
}

int open64(const char *path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = modeOf(flags, arguments);
    va_end(arguments);
    return opening("open64", path, flags, mode);
}

int close(int file)
{
    if (!opened(file).empty())
        paths[file].clear();
    return systems<int(int)>("close")(file);
}

ssize_t write(int file, const void *data, size_t size)
{
    const off64_t offset = opened(file).empty() ? 0 : lseek64(file, 0, SEEK_CUR);
    const ssize_t written = systems<WriteCall>("write")(file, data, size);
    if (written > 0 && file == STDOUT_FILENO)
        record(TraceHead::Said, {}, 0, data, size_t(written));
    else if (written > 0 && !opened(file).empty())
        record(TraceHead::Write, opened(file), offset, data, size_t(written));
    return written;
}

ssize_t pwrite(int file, const void *data, size_t size, off_t offset)
{
    return writing("pwrite", file, data, size, offset);
}

ssize_t pwrite64(int file, const void *data, size_t size, off64_t offset)
{
    return writing("pwrite64", file, data, size, offset);
}

int ftruncate(int file, off_t size) noexcept
{
    return truncating("ftruncate", file, size);
}

int ftruncate64(int file, off64_t size) noexcept
{
    return truncating("ftruncate64", file, size);
}

int fsync(int file)
{
    return syncing("fsync", file);
}

int fdatasync(int file)
{
    return syncing("fdatasync", file);
}

int unlink(const char *path) noexcept
{
    const int result = systems<int(const char *)>("unlink")(path);
    if (const std::string name = nameOf(path); result == 0 && !name.empty())
        record(TraceHead::Unlink, name);
    return result;
}

int rename(const char *from, const char *to) noexcept
{
    const int result = systems<int(const char *, const char *)>("rename")(from, to);
    const std::string name = nameOf(to);
    if (result == 0 && !name.empty())
        record(TraceHead::Rename, nameOf(from), 0, name.data(), name.size());
    static const std::string printed = setting("RECORD_PRINTED");
    if (const std::string document = nameIn(printed, to); result == 0 && !document.empty())
        record(TraceHead::Printed, document);
    return result;
}
}
