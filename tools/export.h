#pragma once

#include <QTextStream>

/// Writes a table as CSV: a header line with its columns, then its rows in the table's own order.
void exportTable(const QString &database, const QString &table, QTextStream &out);
