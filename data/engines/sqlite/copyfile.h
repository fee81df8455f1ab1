#pragma once

#include <QString>

/// Copies a database file as it stands at one moment into another, and checks the copy. See copyDatabase.
void copyFile(const QString &from, const QString &to, const QString &password);

/// Checks a database file as copyFile checks its copy.
void requireSoundFile(const QString &file, const QString &password);
