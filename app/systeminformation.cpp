#include "app/systeminformation.h"

#include <QFileInfo>
#include <QSettings>

QString systemInformationTool()
{
#ifdef Q_OS_WIN
    const QSettings shared(QStringLiteral("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft"), QSettings::NativeFormat);
    const QString tool = shared.value(QStringLiteral("Shared Tools/MSINFO/PATH")).toString();
    const QString folder = shared.value(QStringLiteral("Shared Tools Location/MSINFO")).toString();
    for (const QString &candidate : {tool, folder + QStringLiteral("\\MSINFO32.EXE")})
        if (QFileInfo(candidate).isFile())
            return candidate;
#endif
    return {};
}
