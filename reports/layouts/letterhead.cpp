#include "reports/layouts/letterhead.h"

#include <QCoreApplication>
#include <QFile>

Letterhead letterhead()
{
    Letterhead result{"Tamrick", {}};
    QFile file(QCoreApplication::applicationDirPath() + "/letterhead.txt");
    if (!file.open(QIODevice::ReadOnly))
        return result;
    QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
    for (QString &line : lines)
        line = line.trimmed();
    lines.removeAll({});
    if (!lines.isEmpty())
        result = {lines.first(), lines.mid(1)};
    return result;
}
