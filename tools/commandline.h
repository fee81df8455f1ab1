#pragma once

#include <QStringList>
#include <QTextStream>

/// Runs tamrick-db with its arguments (without the program's name) and returns the exit status: 0 when all is
/// well, 1 when `check` found something or anything failed, with one line on `err` that says what.
int runCommand(const QStringList &arguments, QTextStream &out, QTextStream &err);
