#include "app/systeminformation.h"

#include <QFileInfo>
#include <QSettings>

QString systemInformationTool()
{
#ifdef Q_OS_WIN
    const QSettings shared("HKEY_LOCAL_MACHINE\\SOFTWARE\\Microsoft", QSettings::NativeFormat);
    const QString tool = shared.value("Shared Tools/MSINFO/PATH").toString();
    const QString folder = shared.value("Shared Tools Location/MSINFO").toString();
    // The registry names the tool itself, or only the folder that it lies in.
    for (const QString &candidate : {tool, folder + "\\MSINFO32.EXE"})
        if (QFileInfo(candidate).isFile())
            return candidate;
#endif
    return {};
}
