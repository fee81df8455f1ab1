#pragma once

#include "tools/takeover/tablematch.h"
#include <QHash>
#include <QSet>
#include <QTextStream>

/// By table, the numbers of the rows that were refused, counted in the order in which they lie in the old file.
using RefusedRows = QHash<QString, QSet<qint64>>;

/// Reads both sides again and compares them row by row, whatever their order: one line a table with count, sums and a
/// hash over all rows, and the first differences by their keys. True when they agree.
bool compareWithOld(const QString &old, const QString &database, const RefusedRows &refused, QTextStream &report);
