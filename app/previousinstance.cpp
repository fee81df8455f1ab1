#include "app/previousinstance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {
constexpr QLatin1String MarkPrefix("tamrick-");

/// The name of a folder's mark.
QString markOf(const QByteArray &folder)
{
    // One mark for a program folder: two companies on one machine, each in a folder of its own, may run side by side.
    const QByteArray hash = QCryptographicHash::hash(folder, QCryptographicHash::Sha1).toHex().left(20);
    return MarkPrefix + QString::fromLatin1(hash);
}

QByteArray canonical(const QString &folder)
{
    return QFileInfo(folder).canonicalFilePath().toUtf8();
}
} // namespace

#ifdef Q_OS_WIN

PreviousInstance::PreviousInstance(const QString &programFolder, const QString &)
{
    const std::wstring mark = ("Global\\" + markOf(canonical(programFolder))).toStdWString();
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, mark.c_str());
    // Denied is one that another user's process has made.
    m_isRunning = GetLastError() == ERROR_ALREADY_EXISTS || GetLastError() == ERROR_ACCESS_DENIED;
    m_handle = qintptr(mutex);
}

PreviousInstance::~PreviousInstance()
{
    if (m_handle)
        CloseHandle(HANDLE(m_handle));
}

#else

namespace {

/// Opens a mark. Whoever may write into the temporary folder can put something else in its place: neither a pipe nor a
/// device is waited for, and no link is followed. -1 where there is no plain file, or none that may be read.
int openMark(const QByteArray &path, int flags = 0)
{
    const int mark = ::open(path.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | flags, 0644);
    struct stat state;
    if (mark >= 0 && ::fstat(mark, &state) == 0 && S_ISREG(state.st_mode))
        return mark;
    if (mark >= 0)
        ::close(mark);
    return -1;
}

bool isLocked(int mark)
{
    return ::flock(mark, LOCK_EX | LOCK_NB) != 0;
}

/// Whether the mark still stands under its name. One that was taken away in between is locked in vain.
bool isStillAt(int mark, const QByteArray &path)
{
    struct stat opened, named;
    return ::fstat(mark, &opened) == 0 && ::lstat(path.constData(), &named) == 0 && opened.st_ino == named.st_ino &&
           opened.st_dev == named.st_dev;
}

/// A mark holds the folder that it is for, so that it can be told when that is gone.
bool writeFolder(const QByteArray &path, const QByteArray &folder)
{
    const int mark = ::open(path.constData(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    const bool written = mark >= 0 && ::write(mark, folder.constData(), size_t(folder.size())) == folder.size();
    if (mark >= 0)
        ::close(mark);
    return written;
}

/// Whether a mark's program folder is gone, or the mark is of an earlier version that wrote no folder. A file that is
/// only named like one stays.
bool isLeftOver(int mark, const QString &name)
{
    char buffer[4096];
    const ssize_t length = ::read(mark, buffer, sizeof buffer);
    struct stat state;
    if (length > 0) {
        const QByteArray folder(buffer, length);
        return name == markOf(folder) && ::stat(folder.constData(), &state) != 0 && errno == ENOENT;
    }
    static const QRegularExpression form(MarkPrefix + QString("[0-9a-f]{20}$"));
    constexpr time_t aMinute = 60; // a younger one may be about to be written
    return length == 0 && form.match(name).hasMatch() && ::fstat(mark, &state) == 0 &&
           state.st_mtime < ::time(nullptr) - aMinute;
}

void removeLeftOvers(const QDir &markFolder)
{
    const QFileInfoList marks = markFolder.entryInfoList({QString(MarkPrefix) + u'*'}, QDir::Files | QDir::System);
    for (const QFileInfo &info : marks) {
        const QByteArray path = QFile::encodeName(info.filePath());
        const int mark = openMark(path);
        if (mark < 0)
            continue;
        if (isLeftOver(mark, info.fileName()) && !isLocked(mark) && isStillAt(mark, path))
            ::unlink(path.constData());
        ::close(mark);
    }
}

} // namespace

PreviousInstance::PreviousInstance(const QString &programFolder, const QString &markFolder)
    : m_path(QFile::encodeName(markFolder + u'/' + markOf(canonical(programFolder))))
{
    removeLeftOvers(QDir(markFolder));
    // Another one may take its mark away at any moment; somebody else's pipe of this name stays, and no mark is had.
    for (int attempt = 0; attempt < 10 && m_handle < 0 && !m_isRunning; ++attempt) {
        int mark = openMark(m_path);
        if (mark < 0 && (mark = openMark(m_path, O_CREAT | O_EXCL)) >= 0)
            writeFolder(m_path, canonical(programFolder));
        if (mark < 0)
            continue;
        m_isRunning = isLocked(mark);
        if (!m_isRunning && isStillAt(mark, m_path))
            m_handle = mark;
        else
            ::close(mark);
    }
}

PreviousInstance::~PreviousInstance()
{
    if (m_handle < 0)
        return;
    // While the lock is still held: nobody can take the mark in between and lose its name.
    ::unlink(m_path.constData());
    ::close(int(m_handle));
}

#endif
