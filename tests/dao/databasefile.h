#pragma once

#include "data/dao/createdatabase.h"
#include "data/dao/database.h"
#include "tests/support/enginesundertest.h"
#include "tests/support/printers.h"
#include <QFileInfo>
#include <sqlite3.h>

/// A new database of one engine, gone with the object.
class DatabaseFile
{
public:
    static constexpr auto Password = "secret";

    explicit DatabaseFile(EngineKind engine = EngineKind::Sqlite) : DatabaseFile(engine, DatabasePlace::on(engine)) {}
    explicit DatabaseFile(const OwnServer &server, const QString &options)
        : DatabaseFile(EngineKind::Postgres, DatabasePlace::onServer(server.folder(), options))
    {
    }
    DatabaseFile(EngineKind engine, std::unique_ptr<DatabasePlace> place) : m_engine(engine), m_place(std::move(place))
    {
        createDatabase(path(), Password);
    }

    QString path() const { return m_place->name(); }
    QString folder() const { return QFileInfo(path()).path(); }
    bool isOnServer() const { return m_engine != EngineKind::Sqlite; }

    /// Opens it in a session of its own. `options` are entries of the connect string besides the password.
    std::unique_ptr<Database> open(const QString &options = {}) const
    {
        return DBEngine::OpenDatabase(m_place->nameForAnother(), false, false, options + ";pwd=" + Password);
    }
    /// The ways in which the engine is used.
    QStringList ways() const
    {
        return isOnServer() ? QStringList{""} : QStringList{";journal=log", ";journal=rollback"};
    }
    /// Runs a statement as another tool does: the first value, "no row", or the error.
    QString plain(const QString &sql) const { return m_place->plain(sql); }

private:
    EngineKind m_engine;
    std::unique_ptr<DatabasePlace> m_place;
};

/// A connection to a file without any of this program's ways, as another tool opens it.
class PlainConnection
{
public:
    explicit PlainConnection(const QString &path) { sqlite3_open(path.toUtf8().constData(), &m_handle); }
    PlainConnection(const PlainConnection &) = delete;
    PlainConnection &operator=(const PlainConnection &) = delete;
    ~PlainConnection() { sqlite3_close(m_handle); }

    void run(const char *sql)
    {
        EXPECT_EQ(sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(m_handle);
    }

    /// The first column of the first row, or "no row", or the error.
    QString text(const char *sql)
    {
        sqlite3_stmt *statement = nullptr;
        sqlite3_prepare_v2(m_handle, sql, -1, &statement, nullptr);
        const int code = sqlite3_step(statement);
        QString text = code == SQLITE_DONE ? "no row" : sqlite3_errmsg(m_handle);
        if (code == SQLITE_ROW)
            text = QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(statement, 0)));
        sqlite3_finalize(statement);
        return text;
    }

private:
    sqlite3 *m_handle = nullptr;
};

/// Runs a statement and waits until it is done: a server's is sent and answered later.
inline void runNow(Database &database, const QString &sql)
{
    database.Execute(sql);
    database.sync();
}

/// The text of one column of every row, joined by blanks; "-" for Null.
inline QString column(Database &database, const QString &sql, int position = 0)
{
    QStringList texts;
    for (Recordset rows = database.OpenRecordset(sql); !rows.Eof(); rows.MoveNext())
        texts += rows.Fields(position).isNull() ? QStringLiteral("-") : rows.Fields(position).text();
    return texts.join(' ');
}
