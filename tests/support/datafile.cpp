#include "tests/support/datafile.h"

#include <QFile>
#include <stdexcept>

QStringList linesOf(const QString &file)
{
    QFile cases(TAMRICK_TEST_DATA "/" + file);
    if (!cases.open(QIODevice::ReadOnly))
        throw std::runtime_error("no such file: " + cases.fileName().toStdString());
    return QString::fromUtf8(cases.readAll()).trimmed().split(u'\n');
}
