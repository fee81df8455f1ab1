#include "data/engines/sqlite/filesystem.h"

#include <QFile>
#include <QFileInfo>
#include <array>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#ifdef Q_OS_LINUX
#include <sys/vfs.h>

bool liesOnNetwork(const QString &file)
{
    // QStorageInfo looks the path up in the list of mounts; this asks the file itself, also where that list is hidden.
    // The numbers of the kernel's network file systems, and of those that pass a host's folder through. A file
    // system in user space may be either; the rollback journal is right for both.
    static constexpr std::array<quint32, 14> shared = {
        0x00006969, // nfs
        0x0000517B, // smb
        0xFF534D42, // cifs
        0xFE534D42, // smb2
        0x73757245, // coda
        0x0000564C, // ncp
        0x5346414F, // afs
        0x01021997, // 9p
        0x65735546, // fuse
        0x01161970, // gfs2
        0x7461636F, // ocfs2
        0x0BD00BD0, // lustre
        0x00C36400, // ceph
        0x786F4256, // vboxsf
    };
    struct statfs mount = {};
    if (statfs(QFile::encodeName(file).constData(), &mount) != 0)
        return false;
    return std::find(shared.begin(), shared.end(), quint32(mount.f_type)) != shared.end();
}

#else
#include <QStorageInfo>

bool liesOnNetwork(const QString &file)
{
    const QByteArray type = QStorageInfo(file).fileSystemType().toLower();
    static constexpr std::array shared = {"nfs", "smbfs", "cifs", "afpfs", "webdav", "fuse"};
    return file.startsWith(u"\\\\") || file.startsWith(u"//") ||
           std::any_of(shared.begin(), shared.end(), [&](const char *name) { return type.startsWith(name); });
}
#endif

void syncFolderOf(const QString &file)
{
#ifdef Q_OS_UNIX
    const QByteArray path = QFile::encodeName(QFileInfo(file).absolutePath());
    const int folder = open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (folder < 0)
        return;
    fsync(folder);
    close(folder);
#else
    Q_UNUSED(file);
#endif
}

void shareWithGroup(const QString &file)
{
#ifdef Q_OS_UNIX
    struct stat folder = {};
    const QByteArray path = QFile::encodeName(QFileInfo(file).absolutePath());
    if (stat(path.constData(), &folder) == 0 && (folder.st_mode & S_ISGID))
        QFile::setPermissions(file, QFile::permissions(file) | QFile::ReadGroup | QFile::WriteGroup);
#else
    Q_UNUSED(file);
#endif
}
