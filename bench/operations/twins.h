#pragma once

#include <QString>

class BareEngine;
struct Operation;

/// Runs an operation once in the program and once on the bare engine, which has a copy of its own of the same file, and
/// compares the rows that both read last and what both leave in the tables. Gives what is different, empty if nothing.
QString differenceOfTwins(const Operation &operation, BareEngine &engine, const QString &programFile);
