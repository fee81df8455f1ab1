#pragma once

#include <QByteArray>
#include <QString>

// How a database keeps its password.

constexpr int PasswordRounds = 4000; ///< some milliseconds at each opening

QByteArray randomSalt();
/// One block of PBKDF2 over HMAC-SHA-256.
QByteArray passwordHash(const QString &password, const QByteArray &salt, int rounds);
