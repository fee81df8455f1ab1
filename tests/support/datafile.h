#pragma once

#include <QStringList>

/// The lines of a file of cases, named from the folder of the tests, without the last line's end.
QStringList linesOf(const QString &file);
