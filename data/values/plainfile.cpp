#include "data/values/plainfile.h"

#include <QFile>
#include <QFileInfo>

std::optional<QByteArray> plainFileContents(const QString &path, qint64 most)
{
    if (!QFileInfo(path).isFile())
        return {};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > most)
        return {};
    // No more than this, whatever the size told: somebody may be writing to the file.
    QByteArray content = file.read(most);
    if (file.error() != QFileDevice::NoError)
        return {};
    return content;
}
