#pragma once

#include <QString>

/// Makes a database file with all tables and their indexes. Error 3204 when the file exists, 3044 for a folder that
/// does not; a failure leaves no file behind.
void createFile(const QString &path, const QString &password, const QByteArray &salt);
