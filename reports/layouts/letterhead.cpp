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
    // A file of blank lines is no letterhead.
    if (!lines.isEmpty())
        result = {lines.first(), lines.mid(1)};
    return result;
}

Letterhead letterhead()
{
    // Read once: a day's documents bear one sender, and each layout asks for it.
    static const Letterhead sender = letterheadIn(QCoreApplication::applicationDirPath() + "/letterhead.txt");
    return sender;
}
