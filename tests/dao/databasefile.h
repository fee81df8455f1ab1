#pragma once

#include "data/dao/createdatabase.h"
#include "data/dao/database.h"
#include "tests/support/enginesundertest.h"
#include "tests/support/printers.h"
#include <QFileInfo>

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
    std::unique_ptr<Database> open(const QString &options = {}, bool exclusive = false, bool readOnly = false) const
    {
        return DBEngine::OpenDatabase(m_place->nameForAnother(), exclusive, readOnly, options + ";pwd=" + Password);
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

/// A suite that runs on each engine, over a new database that is open in a session.
class EngineTest : public testing::TestWithParam<EngineKind>
{
protected:
    DatabaseFile file{GetParam()};
    std::unique_ptr<Database> database = file.open();
};

/// Runs a statement and waits until it is done: a server's is sent and answered later.
inline void runNow(Database &database, const QString &sql)
{
    database.Execute(sql);
    database.sync();
}

/// The text of the first column of every row, joined by blanks; "-" for Null.
inline QString column(Database &database, const QString &sql)
{
    QStringList texts;
    for (Recordset rows = database.OpenRecordset(sql); !rows.Eof(); rows.MoveNext())
        texts += rows.Fields(0).isNull() ? QStringLiteral("-") : rows.Fields(0).text();
    return texts.join(' ');
}
