#pragma once

#include "data/schema/tabledef.h"
#include <QByteArray>
#include <memory>
#include <sqlite3.h>

/// Hears SQLite's complaints about translated statements: a database in memory that holds the tables of a new company,
/// and in which nothing is ever run.
class SqliteParser
{
public:
    SqliteParser();

    const Catalog &catalog() const { return m_catalog; }
    /// SQLite's complaint about a text, empty when it takes it. One nested too deep for it raises error 3360.
    QString complaint(const QByteArray &sql) const;

private:
    void run(const QByteArray &sql);

    std::unique_ptr<sqlite3, decltype(&sqlite3_close)> m_connection;
    Catalog m_catalog;
};
