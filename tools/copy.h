#pragma once

#include <QString>

/// Copies the company's tables, as they stand at one moment, into a database that is not there yet; either may be a
/// file or the URI of a database on a server. Both are then read again and compared row for row. Returns the number of
/// rows; a failure leaves nothing behind.
int copyCompany(const QString &from, const QString &to);

/// The same into a new database with tables and no rows in them, for whoever sees to it that it goes away after a
/// failure.
int fillCompany(const QString &from, const QString &to);
