#pragma once

#include <QStringList>

/// Lets every single write, truncation and sync of a statement, of a row, of a table made and of a copy be the first
/// that fails, on a disk that is full and on one that is broken. What is in the file must be whole or not there at all,
/// the user must see the disk's error, and the same connection must go on once the disk does. Gives the faults.
QStringList failingDisk(const QString &file, const QString &connect);

/// The same for SQLite's memory, while a statement runs, a row is added, a table made and rows are read: `count` of the
/// allocations of each fail in their turn, alone and with all behind them. What is read must be right, or error 7.
QStringList failingMemory(const QString &file, const QString &connect, int count);
