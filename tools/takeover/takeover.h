#pragma once

#include <QTextStream>

/// Takes the data of an old Jet database over into a new database, and writes a report of one line a finding: what was
/// taken, what was missing, what was left, which rows were refused and why, how both sides compare when they are read
/// again, and what `check` says of the result. The old file is only read.
///
/// Returns true when every row has gone over and both sides agree. Otherwise the new database is kept only with
/// `keep`. A ToolError where the file cannot be read at all; then nothing is left.
bool takeOver(const QString &old, const QString &to, bool keep, QTextStream &report);
