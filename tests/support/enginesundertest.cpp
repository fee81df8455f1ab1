#include "tests/support/enginesundertest.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <array>
#include <libpq-fe.h>
#include <sqlite3.h>

namespace {

class File : public DatabasePlace
{
public:
    QString name() const override { return m_folder.filePath("company.db"); }
    QString nameForAnother() const override { return name(); }

    QString plain(const QString &sql) const override { return PlainConnection(name()).text(sql); }

private:
    QTemporaryDir m_folder;
};

class OnServer : public DatabasePlace
{
public:
    OnServer(const QString &folder, const QString &options)
        : m_folder(folder), m_options(options),
          m_database(QString("t%1_%2").arg(QCoreApplication::applicationPid()).arg(++Count))
    {
    }
    ~OnServer() override { run("postgres", "DROP DATABASE IF EXISTS " + m_database + " WITH (FORCE)"); }

    QString name() const override { return uriOf(m_database) + m_options; }
    QString nameForAnother() const override { return name() + QString("&application_name=another%1").arg(++Count); }
    QString plain(const QString &sql) const override { return run(m_database, sql); }

private:
    QString uriOf(const QString &database) const { return "postgresql://tamrick@/" + database + "?host=" + m_folder; }

    QString run(const QString &database, const QString &sql) const
    {
        PGconn *connection = PQconnectdb(uriOf(database).toUtf8().constData());
        PGresult *result = PQexec(connection, sql.toUtf8().constData());
        QString text = "no row";
        if (PQresultStatus(result) != PGRES_TUPLES_OK && PQresultStatus(result) != PGRES_COMMAND_OK)
            text = QString::fromUtf8(PQerrorMessage(connection));
        else if (PQntuples(result) > 0)
            text = PQgetisnull(result, 0, 0) ? "Null" : QString::fromUtf8(PQgetvalue(result, 0, 0));
        PQclear(result);
        PQfinish(connection);
        return text;
    }

    static inline int Count = 0;
    QString m_folder, m_options, m_database;
};

} // namespace

EngineKind chosenEngine()
{
    return qEnvironmentVariable("TAMRICK_TEST_ENGINE") == "server" ? EngineKind::Postgres : EngineKind::Sqlite;
}

std::string nameOfEngine(const testing::TestParamInfo<EngineKind> &info)
{
    static const std::array names{"OnSqlite", "OnPostgres", "OnPostgresPlain"};
    return names[size_t(info.param)];
}

PlainConnection::PlainConnection(const QString &path)
{
    sqlite3 *handle = nullptr;
    sqlite3_open(path.toUtf8().constData(), &handle);
    m_handle.reset(handle, sqlite3_close);
}

QString PlainConnection::text(const QString &sql)
{
    QString text = "no row";
    const auto first = [](void *text, int, char **values, char **) {
        if (auto &result = *static_cast<QString *>(text); result == "no row")
            result = values[0] ? QString::fromUtf8(values[0]) : "Null";
        return 0;
    };
    if (sqlite3_exec(m_handle.get(), sql.toUtf8().constData(), first, &text, nullptr) != SQLITE_OK)
        text = sqlite3_errmsg(m_handle.get());
    return text;
}

std::unique_ptr<DatabasePlace> DatabasePlace::on(EngineKind engine)
{
    if (engine == EngineKind::Sqlite)
        return std::make_unique<File>();
    // The server that ctest has started for the tests.
    return onServer(QFileInfo(TAMRICK_TEST_SERVER).canonicalFilePath(),
                    engine == EngineKind::Postgres ? QString() : "&behind=no");
}

std::unique_ptr<DatabasePlace> DatabasePlace::onServer(const QString &folder, const QString &options)
{
    return std::make_unique<OnServer>(folder, options);
}

QString OwnServer::folder() const
{
    return QFileInfo(m_folder.filePath("server")).canonicalFilePath();
}

void OwnServer::run(const QString &what)
{
    EXPECT_EQ(QProcess::execute(TAMRICK_TEST_DATA "/../scripts/testserver", {what, m_folder.filePath("server")}), 0);
}
