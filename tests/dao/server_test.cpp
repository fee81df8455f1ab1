#include "data/engines/engines.h"
#include "data/values/runtimeerror.h"
#include "tests/dao/databasefile.h"
#include <QTest>
#include <csignal>
#include <thread>

// What a server refuses, and how one ends that says nothing any more.
namespace {

/// A role whose sessions need a password.
class Clerk
{
public:
    explicit Clerk(const DatabaseFile &file)
        : m_file(file), name(QStringLiteral("clerk%1").arg(QCoreApplication::applicationPid()))
    {
        file.plain("CREATE ROLE " + name + " LOGIN PASSWORD 'hidden' IN ROLE guarded");
    }
    Clerk(const Clerk &) = delete;
    ~Clerk() { m_file.plain("DROP ROLE " + name); }

private:
    const DatabaseFile &m_file;

public:
    const QString name;
};

/// The number of what opening it or running the statement fails with. No word of it holds the password.
int errorOf(const QString &name, const QString &options, const QString &statement)
{
    try {
        const auto database = DBEngine::OpenDatabase(name, false, false, options + ";pwd=" + DatabaseFile::Password);
        if (statement.startsWith("SELECT"))
            column(*database, statement);
        else
            runNow(*database, statement);
    } catch (const RuntimeError &error) {
        EXPECT_FALSE(QString(error.what()).contains("hidden")) << error.what();
        return error.number();
    }
    return 0;
}

TEST(Server, SaysWhatItRefuses)
{
    const DatabaseFile file(EngineKind::Postgres);
    const Clerk clerk(file);
    const auto other = file.open();
    runNow(*other, "INSERT INTO Part (PartNo) VALUES ('A')");
    Recordset held = other->OpenRecordset("SELECT * FROM Part");
    held.Edit();

    const QString asClerk = clerk.name + ":hidden@", read = "SELECT * FROM Part", write = "UPDATE Part SET Cost = 1";
    const QString trigger = "CREATE FUNCTION fill() RETURNS trigger LANGUAGE plpgsql AS $$ BEGIN"
                            " RAISE 'full' USING ERRCODE = 'disk_full'; END $$;"
                            "CREATE TRIGGER fill BEFORE INSERT ON \"Orders\" EXECUTE FUNCTION fill()";
    const struct
    {
        QString before, user, database, statement; // what an administrator does first lasts until it is taken back
        int error;
    } cases[] = {
        {"", asClerk, "", read, 0},
        {"", clerk.name + ":hidden2@", "", read, 3031},
        {"", clerk.name + '@', "", read, 3031},
        {"", "nobody:hidden@", "", read, 3031},
        {"", asClerk, "none", read, 3024},
        {"", asClerk, "?host=/nowhere", read, 3044},
        {"", asClerk, "?host=127.0.0.1&port=1", read, 3044},
        {"", asClerk, "?silence=0", read, 3044},
        {"ALTER ROLE " + clerk.name + " CONNECTION LIMIT 0", asClerk, "", read, 3045},
        {"ALTER ROLE " + clerk.name + " CONNECTION LIMIT -1; REVOKE UPDATE, SELECT ON \"Part\" FROM PUBLIC", asClerk,
         "", read, 3112},
        {"", asClerk, "", write, 3027},
        {"", asClerk, "", "INSERT INTO Part (PartNo) VALUES ('B')", 0},
        {"", "tamrick@", "", write, 3218},
        {trigger, asClerk, "", "INSERT INTO Orders (ID) VALUES (1)", 3026},
        {"REVOKE CONNECT ON DATABASE " + engines::databaseName(file.path()) + " FROM PUBLIC", asClerk, "", read, 3051},
        {"UPDATE \"MSysPassword\" SET \"Version\" = 0", "tamrick@", "", read, 3343},
        {"", "tamrick@", "postgres", read, 3343},
    };
    for (const auto &row : cases) {
        if (!row.before.isEmpty()) {
            EXPECT_EQ(file.plain(row.before), "no row");
        }
        QString uri = file.path().replace("tamrick@", row.user);
        const QString database = engines::databaseName(file.path());
        if (row.database.startsWith('?'))
            uri = uri.section('?', 0, 0) + row.database;
        else if (!row.database.isEmpty())
            uri.replace(database, row.database);
        EXPECT_EQ(errorOf(uri + "&application_name=asked", ";busy=200", row.statement), row.error)
            << uri.toStdString() << ' ' << row.statement.toStdString();
    }
}

/// Two sessions that change the same rows in another order: one of them is picked by the server and sent again.
TEST(Server, ThatPicksAStatementOutOfADeadlockGetsItAgain)
{
    const DatabaseFile file(EngineKind::Postgres);
    const auto database = file.open();
    runNow(*database, "INSERT INTO Part (PartNo, Cost) VALUES ('a', 0)");
    runNow(*database, "INSERT INTO Part (PartNo, Cost) VALUES ('b', 0)");
    const QString both = "SET deadlock_timeout = '1min'; BEGIN;" // so that it is never the one that is picked
                         "UPDATE \"Part\" SET \"Cost\" = \"Cost\" + 1 WHERE \"PartNo\" = 'b'; SELECT pg_sleep(0.3);"
                         "UPDATE \"Part\" SET \"Cost\" = \"Cost\" + 1 WHERE \"PartNo\" = 'a'; COMMIT";
    std::thread tool([&] { file.plain(both); });
    const int error = errorNumberOf([&] {
        QTest::qSleep(100);
        database->Execute("INSERT INTO Part (PartNo, Cost) VALUES ('c', 1)"); // done already, and not done again
        runNow(*database, "UPDATE Part SET Cost = Cost + 10");
    });
    tool.join();
    EXPECT_EQ(error, 0);
    EXPECT_EQ(column(*database, "SELECT Cost FROM Part"), "11 11 11");
}

/// The processes of a server that say nothing until this is gone, as on a machine that hangs.
class Hang
{
public:
    explicit Hang(const QString &processes) : m_processes(processes) { send(SIGSTOP); }
    Hang(const Hang &) = delete;
    ~Hang() { send(SIGCONT); }

private:
    void send(int signal) const
    {
        for (const QString &process : m_processes.split(' '))
            EXPECT_EQ(kill(process.toInt(), signal), 0);
    }

    QString m_processes;
};

TEST(Server, ThatSaysNothingAnyMoreIsTakenForGone)
{
    const OwnServer server;
    const DatabaseFile file(server, "&silence=1&connect_timeout=1");
    const QString postmaster = file.plain("SELECT split_part(pg_read_file('postmaster.pid'), E'\n', 1)");
    const struct
    {
        const char *what;
        bool all; // or the session's own process alone
        std::function<void(Database &)> action;
    } cases[] = {
        {"read", true, [](Database &database) { column(database, "SELECT PartNo FROM Part"); }},
        {"write behind", true, [](Database &database) { runNow(database, "UPDATE Part SET Cost = 1"); }},
        {"another machine between", false, [](Database &database) { column(database, "SELECT PartNo FROM Part"); }},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.what);
        const auto database = file.open();
        runNow(*database, "INSERT INTO Part (PartNo) VALUES ('done')");
        const QString own = file.plain("SELECT pid FROM pg_stat_activity WHERE application_name LIKE 'another%'");
        {
            const Hang hang(row.all ? own + ' ' + postmaster : own);
            EXPECT_EQ(errorNumberOf([&] { row.action(*database); }), 3043);
            if (row.all) {
                EXPECT_EQ(errorNumberOf([&] { file.open(); }), 3044);
            }
        }
        EXPECT_EQ(errorNumberOf([&] { column(*database, "SELECT PartNo FROM Part"); }), 3043) << "for good";
        EXPECT_EQ(column(*file.open(), "SELECT DISTINCT PartNo FROM Part"), "done");
    }

    // One that is at work is waited for, however long that lasts, and even where it takes no session to ask it.
    const auto database = file.open(";busy=1500"), other = file.open();
    Recordset held = other->OpenRecordset("SELECT * FROM Part");
    held.Edit();
    for (const char *refuse : {"SELECT 1", "UPDATE pg_database SET datallowconn = false"}) {
        file.plain(refuse);
        EXPECT_EQ(errorNumberOf([&] { runNow(*database, "UPDATE Part SET Cost = 1"); }), 3218);
    }
}

} // namespace
