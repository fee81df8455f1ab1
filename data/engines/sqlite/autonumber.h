#pragma once

#include <QtGlobal>

class Connection;
class TableDef;

/// Takes the next number for a table's AutoNumber column. It stands above every number taken before by any
/// process and above every one found in the table, and is spent for good, whatever becomes of the row.
qint32 takeAutoNumber(Connection &connection, const TableDef &table, const QString &column);
