#include "app/previousinstance.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace {
QString markOf(const QString &programFolder)
{
    const QString folder = QFileInfo(programFolder).canonicalFilePath();
    const QByteArray hash = QCryptographicHash::hash(folder.toUtf8(), QCryptographicHash::Sha1).toHex().left(20);
    return QStringLiteral("tamrick-") + QString::fromLatin1(hash);
}
} // namespace

#ifdef Q_OS_WIN

PreviousInstance::PreviousInstance(const QString &programFolder)
{
    const std::wstring mark = (QStringLiteral("Global\\") + markOf(programFolder)).toStdWString();
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, mark.c_str());
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
/// The mark lies in the machine's own temporary folder, not beside the program, which may stand on a file server.
/// A mark that another user made can only be opened for reading, which is enough to lock it.
int openMark(const QByteArray &path)
{
    const int existing = ::open(path.constData(), O_RDONLY | O_CLOEXEC);
    return existing >= 0 ? existing : ::open(path.constData(), O_RDONLY | O_CREAT | O_CLOEXEC, 0644);
}
} // namespace

PreviousInstance::PreviousInstance(const QString &programFolder)
{
    m_handle = openMark(QFile::encodeName(QStringLiteral("/tmp/") + markOf(programFolder)));
    m_isRunning = m_handle >= 0 && ::flock(int(m_handle), LOCK_EX | LOCK_NB) != 0;
}

PreviousInstance::~PreviousInstance()
{
    if (m_handle >= 0)
        ::close(int(m_handle));
}

#endif
