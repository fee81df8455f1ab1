#pragma once

#include "data/engines/sqlite/dialect.h"
#include "data/jetsql/translator.h"
#include "data/values/runtimeerror.h"
#include <memory>
#include <sqlite3.h>

/// A small company in a SQLite database in memory, reached through the translator alone.
class SqlCompany
{
public:
    /// Holds all tables of a new database, empty.
    SqlCompany();

    void fill(const QByteArrayList &inserts);

    /// What a statement brought, in lines of the statement corpus. `~ Column | Column` limits the columns shown.
    QStringList outcome(const QString &statement, const QString &limit = {});
    /// Everything done in between is taken back.
    void begin();
    void rollback();

    jetsql::Translation translate(const QString &statement) const
    {
        return jetsql::translate(statement, m_catalog, sqliteDialect());
    }
    /// Rows of SQLite's own text, a value or "Null" each; raises the run-time error a function stands for.
    QList<QStringList> rows(const QByteArray &sql, int columns = -1) const;
    /// SQLite's complaint about a text, empty when it takes it. One nested too deep for it raises error 3360.
    QString complaint(const QByteArray &sql) const;
    void run(const QByteArray &sql) const;

    const Catalog &catalog() const { return m_catalog; }

private:
    using Statement = std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)>;

    void add(const TableDef &table, bool keyed);
    Statement prepare(const QByteArray &sql) const;
    bool step(const Statement &statement) const;
    [[noreturn]] void raise(const QByteArray &sql) const;
    QStringList ran(const jetsql::Translation &translation);
    QStringList selected(const jetsql::Translation &translation, const QString &limit) const;

    std::unique_ptr<sqlite3, decltype(&sqlite3_close)> m_connection;
    Catalog m_catalog;
    Catalog m_before;
};
