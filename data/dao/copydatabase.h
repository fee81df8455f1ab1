#pragma once

#include <QString>

/// Copies a database as it stands at one moment into the file `to`, which is empty or not there yet, and checks the
/// copy: the password, and the engine's quick check. Others go on writing meanwhile. When this returns, the copy is on
/// the disk, in one file that needs no other beside it. Errors as at opening a database; 3049 for a damaged one, with
/// what is wrong; 3026 for a full disk. The caller takes away what a failure leaves of the copy.
void copyDatabase(const QString &from, const QString &to, const QString &password);

/// Checks a database file as copyDatabase checks its copy, with the same errors.
void requireSoundDatabase(const QString &file, const QString &password);
