#include "reports/layouts/letterhead.h"

#include "data/values/inputfile.h"
#include <QCoreApplication>
#include <QFile>

Letterhead letterhead()
{
    Letterhead result{"Tamrick", {}};
    const QString path = QCoreApplication::applicationDirPath() + "/letterhead.txt";
    if (!QFile::exists(path))
        return result;
    QStringList lines = settingsText(path).split('\n');
    for (QString &line : lines)
        line = line.trimmed();
    lines.removeAll({});
    if (!lines.isEmpty())
        result = {lines.first(), lines.mid(1)};
    return result;
}
