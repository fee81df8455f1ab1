#pragma once

#include <QString>

class Recordset;

/// Writes a field definition file that describes a recordset's columns, a line each: name, type, length of texts, and a
/// sample, between tabs. Returns non-zero when it was written; 0, with nothing written, when the folder is missing or
/// the file is there and `overwrite` is false.
int CreateFieldDefFile(Recordset &data, const QString &path, bool overwrite);
