#include "tools/partfile.h"

#include "tools/toolerror.h"
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

namespace {

/// What SQLite keeps beside a database. Left over from another one it would be played into the new one.
constexpr const char *Companions[] = {"-wal", "-shm", "-journal"};

void removeWithCompanions(const QString &path)
{
    QFile::remove(path);
    for (const char *companion : Companions)
        QFile::remove(path + QLatin1String(companion));
}

/// Bytes, and the names in a folder, are written to the disk when the system sees fit, unless it is told to.
void sync(const QString &path)
{
#ifdef Q_OS_UNIX
    const int file = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return;
    ::fsync(file);
    ::close(file);
#else
    Q_UNUSED(path);
#endif
}

} // namespace

void refuseExisting(const QString &path)
{
    if (QFileInfo::exists(path) || QFileInfo(path).isSymLink())
        throw ToolError{QStringLiteral("'%1' is there already and stays as it is").arg(path)};
}

PartFile::PartFile(const QString &name) : m_name(name), m_path(name + QStringLiteral(".part"))
{
    refuseExisting(name);
    for (const char *companion : Companions)
        refuseExisting(name + QLatin1String(companion));
    if (QFileInfo::exists(m_path)) // not taken away here: another run may be writing it
        throw ToolError{
            QStringLiteral("'%1' is there, of another run or of one that was killed; if nothing is running, "
                           "remove it")
                .arg(m_path)};
    QFile file(m_path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        throw ToolError{QStringLiteral("cannot write '%1': %2").arg(m_path, file.errorString())};
}

PartFile::~PartFile()
{
    if (!m_published)
        removeWithCompanions(m_path);
}

void PartFile::publish()
{
    sync(m_path);
    QFile file(m_path);
    if (!file.rename(m_name))
        throw ToolError{QStringLiteral("cannot name '%1': %2").arg(m_name, file.errorString())};
    m_published = true;
    sync(QFileInfo(m_name).absolutePath());
}
