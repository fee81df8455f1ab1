#pragma once

#include <QString>

class Connection;

/// The database password, kept in the file as a salted hash. It is a gate for this program and not encryption:
/// any other tool reads the file without it.
namespace PasswordGate {
/// A `salt` given makes the file reproducible; without one it is drawn at random.
void create(Connection &connection, const QString &password, const QByteArray &salt = {});
/// Error 3031 for a wrong password, 3343 for a file that is no database of this program.
void check(Connection &connection, const QString &password, const QString &file);
} // namespace PasswordGate
