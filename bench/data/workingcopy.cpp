#include "bench/data/workingcopy.h"

#include <QFile>

namespace {
QString originalPath;
} // namespace

void WorkingCopy::setOriginal(const QString &path)
{
    originalPath = path;
}

const QString &WorkingCopy::original()
{
    return originalPath;
}

WorkingCopy::WorkingCopy()
{
    if (!QFile::copy(originalPath, path()))
        qFatal("cannot copy the database to %s", qPrintable(path()));
}
