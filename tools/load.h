#pragma once

#include <QString>

/// Adds the rows of a CSV file to a table and returns how many there were. The header line names the columns;
/// a column that it leaves out takes its default. A ToolError names line and column of what cannot be taken, and
/// then no row at all goes in.
int loadTable(const QString &database, const QString &table, const QString &csv);
