#include "tools/partfile.h"

#include "data/engines/sqlite/filesystem.h"
#include "data/values/runtimeerror.h"
#include "tools/toolerror.h"
#include <QDir>
#include <QFileInfo>

#ifdef Q_OS_UNIX
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

/// Bytes are written to the disk when the system sees fit, unless it is told to.
void syncContent(QFile &file)
{
#ifdef Q_OS_UNIX
    if (!file.open(QIODevice::ReadOnly) || ::fsync(file.handle()) != 0)
        throw ToolError{QString("'%1' does not reach the disk").arg(file.fileName())};
    file.close();
#else
    Q_UNUSED(file);
#endif
}

/// Whatever lies there, database or not, is somebody's.
void refuseExisting(const QString &path)
{
    if (QFileInfo::exists(path) || QFileInfo(path).isSymLink())
        throw ToolError{QString("'%1' is there already and stays as it is").arg(path)};
}

} // namespace

PartFile::PartFile(const QString &name) : m_name(name), m_path(name + ".part")
{
    if (name.trimmed().isEmpty())
        throw runtimeError(3055);
    if (!QFileInfo(name).dir().exists())
        throw runtimeError(3044, {name});
    refuseExisting(name);
    for (const char *companion : Companions)
        refuseExisting(name + QLatin1String(companion));
    if (QFileInfo::exists(m_path)) // not taken away here: another run may be writing it
        throw ToolError{QString("'%1' is there, of another run or of one that was killed; if nothing is running, "
                                "remove it")
                            .arg(m_path)};
    QFile file(m_path);
    // Made at once, which takes the name: of two runs that begin together the second is refused here.
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly))
        throw ToolError{QString("cannot write '%1': %2").arg(m_path, file.errorString())};
}

PartFile::~PartFile()
{
    if (!m_published)
        removeWithCompanions(m_path);
}

void PartFile::publish()
{
    QFile file(m_path);
    // First the content, then the name: a power failure in between leaves a part, never a name with nothing behind it.
    syncContent(file);
    if (!file.rename(m_name))
        throw ToolError{QString("cannot name '%1': %2").arg(m_name, file.errorString())};
    m_published = true;
    syncFolderOf(m_name);
}
