#pragma once

#include <QStringList>

/// What is wrong in a database, a line for each kind of fault with the table in front and the rows it was found
/// in; empty when nothing is. Looks at the file itself, at the types of what the columns hold, and at everything
/// that one table says about another. With the path of a settings file it looks at that too. Changes nothing.
///
/// Of a database on a server, by its URI, the tables are looked at, and then a copy of their rows in a temporary file.
QStringList checkDatabase(const QString &name, const QString &config = {});
