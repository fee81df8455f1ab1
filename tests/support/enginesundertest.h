#pragma once

#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>

/// The engines that a suite runs on, for TEST_P.
enum class EngineKind {
    Sqlite,
    Postgres,
    PostgresPlain ///< every statement waited for
};

inline auto allEngines()
{
    return testing::Values(EngineKind::Sqlite, EngineKind::Postgres, EngineKind::PostgresPlain);
}

/// What forms and reports are tested on: a file, or the tests' server where TAMRICK_TEST_ENGINE is "server".
EngineKind chosenEngine();

/// "OnSqlite", "OnPostgres", "OnPostgresPlain"
std::string nameOfEngine(const testing::TestParamInfo<EngineKind> &info);

/// A connection to a file without any of this program's ways, as another tool opens it.
class PlainConnection
{
public:
    explicit PlainConnection(const QString &path);

    /// The first column of the first row, "Null", "no row", or the error.
    QString text(const QString &sql);
    /// Fails the test on an error.
    void run(const QString &sql) { EXPECT_EQ(text(sql), "no row"); }

private:
    std::shared_ptr<struct sqlite3> m_handle;
};

/// A name for a new database, gone with the object: a file in a folder of its own, or a database on the tests' server.
class DatabasePlace
{
public:
    virtual ~DatabasePlace() = default;
    /// What the program opens it by.
    virtual QString name() const = 0;
    /// The same for a session of its own, which another one in this process must not share.
    virtual QString nameForAnother() const = 0;
    /// Runs a statement as another tool does; see PlainConnection.
    virtual QString plain(const QString &sql) const = 0;

    static std::unique_ptr<DatabasePlace> on(EngineKind engine);
    /// On the server whose socket lies in that folder. `options` are those of a URI, each with an "&" before it.
    static std::unique_ptr<DatabasePlace> onServer(const QString &folder, const QString &options);
};

/// A server of a test's own, which it may stop.
class OwnServer
{
public:
    OwnServer() { run("start"); }
    OwnServer(const OwnServer &) = delete;
    OwnServer &operator=(const OwnServer &) = delete;
    ~OwnServer() { run("stop"); }

    QString folder() const;

private:
    void run(const QString &what);

    QTemporaryDir m_folder;
};
