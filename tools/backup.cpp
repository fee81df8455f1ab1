#include "tools/backup.h"

#include "data/dao/copydatabase.h"
#include "data/engines/engines.h"
#include "data/engines/sqlite/filesystem.h"
#include "data/schema/schema.h"
#include "data/values/clock.h"
#include "tools/copy.h"
#include "tools/newdatabase.h"
#include "tools/partfile.h"
#include "tools/toolerror.h"
#include <QDir>
#include <QLockFile>
#include <QRegularExpression>

namespace {

/// The file that a copy of the database is called after.
QFileInfo fileNameOf(const QString &database)
{
    if (engines::isFile(database))
        return QFileInfo(database);
    const QString name = engines::databaseName(database);
    if (name.isEmpty())
        throw ToolError{"the URI names no database"};
    return QFileInfo(QString(name).replace(u'/', u'_') + ".db");
}

/// The backups of one database in one folder.
class Backups
{
public:
    Backups(const QFileInfo &file, const QString &folder)
        : m_folder(folder), m_stem(file.completeBaseName()), m_suffix(file.suffix())
    {
        if (!m_suffix.isEmpty())
            m_suffix.prepend(u'.');
    }

    QString pathAt(const QDateTime &moment) const
    {
        return m_folder.filePath(m_stem + moment.toString("-yyyy-MM-dd-HHmmss") + m_suffix);
    }

    QString lockPath() const { return m_folder.filePath(m_stem + "-backup.lock"); }

    /// Removes what runs that were killed have left. To be called under the lock: nobody is writing one.
    void removeParts() const
    {
        for (const QString &name : named("\\.part(-journal)?"))
            QFile::remove(m_folder.filePath(name));
    }

    /// Removes all but the newest of those that are older than one; a moment of a clock that was wrong keeps its file.
    void removeOlderThan(const QString &path, int stay) const
    {
        QStringList older = named({});
        older.removeIf([&](const QString &name) { return name >= QFileInfo(path).fileName(); });
        for (qsizetype i = 0; i < older.size() - stay; ++i)
            QFile::remove(m_folder.filePath(older[i]));
    }

private:
    /// The files of the pattern with that behind it, oldest first.
    QStringList named(const QString &behind) const
    {
        const QString pattern = QRegularExpression::escape(m_stem) + "-\\d{4}-\\d\\d-\\d\\d-\\d{6}" +
                                QRegularExpression::escape(m_suffix) + behind;
        const QRegularExpression whole(QRegularExpression::anchoredPattern(pattern));
        return m_folder.entryList(QDir::Files | QDir::NoSymLinks | QDir::Hidden, QDir::Name).filter(whole);
    }

    QDir m_folder;
    QString m_stem, m_suffix;
};

void copyFile(const QString &from, const QString &to)
{
    PartFile part(to);
    // What the original is kept from, the copy is kept from too.
    QFile::setPermissions(part.path(), QFile::permissions(from) | QFile::ReadOwner | QFile::WriteOwner);
    copyDatabase(from, part.path(), Schema::Password);
    part.publish();
}

void copyFromServer(const QString &from, const QString &to)
{
    NewDatabase copy(to);
    // Who may read what on the server says nothing about users of this machine.
    QFile::setPermissions(copy.name(), QFile::ReadOwner | QFile::WriteOwner);
    fillCompany(from, copy.name());
    requireSoundDatabase(copy.name(), Schema::Password);
    copy.publish();
}

} // namespace

QString backupDatabase(const QString &from, const QString &folder, std::optional<int> keep)
{
    // Not made here: it may be the mount point of a disk that is missing tonight.
    if (!QFileInfo(folder).isDir())
        throw ToolError{QString("'%1' is no folder").arg(folder)};
    const Backups backups(fileNameOf(from), folder);
    QLockFile lock(backups.lockPath());
    // No age makes the lock stale, since a large database takes its time; that of a process that is gone is taken over.
    lock.setStaleLockTime(0);
    if (!lock.tryLock())
        throw ToolError{lock.error() == QLockFile::LockFailedError
                            ? QString("another backup into '%1' is running").arg(folder)
                            : QString("cannot write into '%1'").arg(folder)};
    backups.removeParts();

    // The moment at which it begins: what others write from here on need not be in it.
    const QString path = backups.pathAt(Clock::now());
    if (engines::isFile(from))
        copyFile(from, path);
    else
        copyFromServer(from, path);
    // Only now that the new one stands under its name, or a night that fails would cost an old one.
    if (keep)
        backups.removeOlderThan(path, *keep - 1);
    return path;
}

void restoreDatabase(const QString &backup, const QString &to)
{
    if (!engines::isFile(to)) {
        // Before anything is made on the server, since a row that it refuses takes the whole copy along.
        requireSoundDatabase(backup, Schema::Password);
        copyCompany(backup, to);
        return;
    }
    PartFile part(to);
    copyDatabase(backup, part.path(), Schema::Password);
    // As a database made anew in that folder would be: the people who work with it are the folder's, not the backup's.
    shareWithGroup(part.path());
    part.publish();
}
