#pragma once

#include <QString>
#include <optional>

/// Copies a database, while others may work on it, into a folder under its own name with the moment behind it, such as
/// company-2011-03-30-140509.db, and returns that path. From a server, by its URI, the copy is a file of the same kind,
/// compared with the server row for row. It is checked before it takes the name, and only then the older ones of the
/// same pattern are removed, down to `keep` with the new one; all stay if that is left out.
QString backupDatabase(const QString &from, const QString &folder, std::optional<int> keep);

/// Puts a copy of a backup where no database is, on a server by its URI, once it has been found to be sound.
void restoreDatabase(const QString &backup, const QString &to);
