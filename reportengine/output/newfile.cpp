#include "reportengine/output/newfile.h"

#include <QFileInfo>
#include <QUuid>
#include <filesystem>
#ifdef Q_OS_WIN
#include <io.h>
#else
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

bool syncToDisk(QFile &file)
{
#ifdef Q_OS_WIN
    return _commit(file.handle()) == 0;
#else
    return fsync(file.handle()) == 0;
#endif
}

/// The new name is on the disk only when its folder is. Not every file system lets a folder be synced.
void syncFolder(const QString &path)
{
#ifndef Q_OS_WIN
    const int folder = ::open(QFile::encodeName(QFileInfo(path).absolutePath()).constData(), O_RDONLY | O_DIRECTORY);
    if (folder >= 0) {
        fsync(folder);
        close(folder);
    }
#else
    Q_UNUSED(path)
#endif
}

/// A link stays one, and what it points at is written.
QString targetOf(const QString &path)
{
    const QFileInfo info(path);
    return info.isSymLink() ? info.symLinkTarget() : path;
}

} // namespace

/// Beside the wanted file, as only within a file system a rename is one step, and by a name that no other export takes.
NewFile::NewFile(const QString &path)
    : m_path(targetOf(path)), m_file(m_path + "." + QUuid::createUuid().toString(QUuid::Id128).left(8) + ".part")
{
}

NewFile::~NewFile()
{
    m_file.close();
    if (m_file.exists())
        m_file.remove();
}

bool NewFile::open()
{
    return m_file.open(QIODevice::ReadWrite | QIODevice::Truncate);
}

Outcome NewFile::commit()
{
    // A library that wrote by name has closed the file already.
    if (!m_file.isOpen() && !m_file.open(QIODevice::ReadWrite))
        return failure();
    if (!m_file.flush() || m_file.error() != QFile::NoError)
        return failure();
    if (!syncToDisk(m_file))
        return Outcome::failed(qt_error_string());
    m_file.close();
    // One step, so that the old file or the new one is there at any moment.
    std::error_code error;
    std::filesystem::rename(std::filesystem::path(m_file.fileName().toStdU16String()),
                            std::filesystem::path(m_path.toStdU16String()), error);
    if (error)
        return Outcome::failed(QString::fromStdString(error.message()));
    syncFolder(m_path);
    return {};
}
