#include "app/shell/systeminformation.h"

#include <QFileInfo>
#include <QSettings>

QString systemInformationTool()
{
#ifdef Q_OS_WIN
    const QSettings shared(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft"), QSettings::NativeFormat);
    const QString path = shared.value(QStringLiteral("Shared Tools/MSINFO/PATH")).toString();
    if (!path.isEmpty())
        return QFileInfo::exists(path) ? path : QString();
    const QString folder = shared.value(QStringLiteral("Shared Tools Location/MSINFO")).toString();
    const QString tool = folder + QStringLiteral("\\MSINFO32.EXE");
    if (!folder.isEmpty() && QFileInfo::exists(tool))
        return tool;
#endif
    return {};
}
