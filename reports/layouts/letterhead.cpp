#include "reports/layouts/letterhead.h"

#include "data/values/inputfile.h"
#include <QCoreApplication>
#include <QFile>

Letterhead letterheadIn(const QString &file)
{
    Letterhead result{"Tamrick", {}};
    if (!QFile::exists(file))
        return result;
    QStringList lines = settingsText(file).split('\n');
    for (QString &line : lines)
        line = line.trimmed();
    lines.removeAll({});
    if (!lines.isEmpty())
        result = {lines.first(), lines.mid(1)};
    return result;
}

Letterhead letterhead()
{
    static const Letterhead sender = letterheadIn(QCoreApplication::applicationDirPath() + "/letterhead.txt");
    return sender;
}
