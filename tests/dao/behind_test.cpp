#include "data/values/runtimeerror.h"
#include "tests/dao/databasefile.h"
#include "toolkit/forms/mainmod.h"
#include <QCoreApplication>
#include <QEvent>
#include <QTest>
#include <thread>

// Statements may be sent and not waited for; whatever fails, the database holds what one statement after the other
// leaves: everything before the failure, nothing behind it.
namespace {

constexpr int Steps = 9;

class BehindTest : public testing::TestWithParam<EngineKind>
{
protected:
    /// One statement of a routine, which adds the part of that number: as a statement, as a row, or as a change of a
    /// row, which reads too.
    static void step(Database &database, int number)
    {
        const QString part = QString::number(number);
        if (number % 3 == 0)
            return database.Execute("INSERT INTO Part (PartNo) VALUES ('" + part + "')");
        Recordset rows = database.OpenRecordset("SELECT * FROM Part WHERE PartNo = 'spare'");
        number % 3 == 1 ? rows.AddNew() : rows.Edit();
        rows.Fields("PartNo") = part;
        rows.Update();
        if (number % 3 == 2)
            database.Execute("INSERT INTO Part (PartNo) VALUES ('spare')");
    }

    /// Runs the routine with something else in place of one step, and gives the error that ended it.
    int routine(Database &database, int failing, const std::function<void()> &failure)
    {
        return errorNumberOf([&] {
            for (int number = 0; number < Steps; ++number)
                number == failing ? failure() : step(database, number);
            database.sync();
        });
    }

    QString parts() { return column(*file.open(), "SELECT PartNo FROM Part WHERE PartNo <> 'spare' ORDER BY PartNo"); }
    QString first(int count) const
    {
        QStringList numbers;
        for (int number = 0; number < count; ++number)
            numbers += QString::number(number);
        return numbers.join(' ');
    }
    void begin()
    {
        const auto database = file.open();
        database->Execute("DELETE * FROM Part");
        database->Execute("INSERT INTO Part (PartNo) VALUES ('spare')");
        database->sync();
    }

    DatabaseFile file{GetParam()};
};

TEST_P(BehindTest, AStatementThatFailsIsTheLastThing)
{
    file.open()->Execute("INSERT INTO Orders (ID) VALUES (1)");
    for (int failing = 0; failing < Steps; ++failing) {
        SCOPED_TRACE(failing);
        begin();
        const auto database = file.open();
        const auto fail = [&] { database->Execute("INSERT INTO Orders (ID) VALUES (1)"); };
        EXPECT_EQ(routine(*database, failing, fail), 3022);
        EXPECT_EQ(parts(), first(failing));
        // The session goes on where the failure was let pass.
        database->Execute("UPDATE Part SET Cost = 1");
        EXPECT_EQ(column(*database, "SELECT DISTINCT Cost FROM Part"), "1");
    }
}

/// Delivered like an event of the program.
class Routine : public QObject
{
public:
    explicit Routine(std::function<void()> routine) : m_routine(std::move(routine)) {}
    bool event(QEvent *) override
    {
        m_routine();
        return true;
    }

private:
    std::function<void()> m_routine;
};

TEST_P(BehindTest, TheFirstFailureIsTheOneThatEndsTheProgram)
{
    gDatabase = file.open();
    runNow(*gDatabase, "INSERT INTO Orders (ID) VALUES (1)");
    const std::function<void()> later[] = {
        [] { throw runtimeError(13); },
        [] { DropTableIfExists("tmpNone"); },
        [] { syncDatabase(); },
        [] {},
    };
    for (const auto &next : later) {
        Routine routine([&next] {
            gDatabase->Execute("INSERT INTO Orders (ID) VALUES (1)");
            next();
        });
        QEvent event(QEvent::User);
        EXPECT_EQ(errorNumberOf([&] { QCoreApplication::sendEvent(&routine, &event); }), 3022);
    }
    gDatabase.reset();
}

TEST_P(BehindTest, AStatementIsWrittenForTheTablesAsTheyAre)
{
    const char *read = "SELECT N FROM List", *change = "UPDATE List SET N = N + 1";
    const struct
    {
        const char *column, *row;
        int error;
        const char *before, *after;
        bool reads; // before it changes, and meets the other table by that
    } others[] = {
        {"N text(10)", "'2'", 0, "2", "3", true},       {"N text(10)", "'2'", 0, "2", "3", false},
        {"N double", "2.5", 0, "2.5", "3.5", true},     {"N text(10)", "'x'", 3464, "x", "x", true},
        {"N yesno", "True", 0, "True", "False", false}, {"Other long", "2", 3061, "-", "-", false},
        {nullptr, nullptr, 3078, "-", "-", false},
    };
    const auto rename = [this](const char *from, const char *to) {
        file.plain(QStringLiteral("ALTER TABLE \"%1\" RENAME TO \"%2\"").arg(from, to)); // tells no session
    };
    for (const auto &other : others) {
        SCOPED_TRACE(other.column ? other.column : "none");
        const auto database = file.open();
        runNow(*database, "CREATE TABLE List (N long)");
        runNow(*database, "INSERT INTO List (N) VALUES (1)");
        if (other.column) {
            runNow(*database, QStringLiteral("CREATE TABLE Others (%1)").arg(other.column));
            runNow(*database, QStringLiteral("INSERT INTO Others VALUES (%1)").arg(other.row));
        }
        for (const char *after : {"2", "3"}) { // known, with its plan kept
            runNow(*database, change);
            EXPECT_EQ(column(*database, read), after);
        }
        rename("List", "Former");
        rename("Others", "List");
        if (other.reads) {
            EXPECT_EQ(column(*database, read), other.before);
        }
        database->Execute("INSERT INTO Part (PartNo) VALUES ('before')");
        EXPECT_EQ(errorNumberOf([&] {
                      database->Execute(change);
                      database->Execute("INSERT INTO Part (PartNo) VALUES ('behind')");
                      database->sync();
                  }),
                  other.error);
        EXPECT_EQ(column(*database, "SELECT PartNo FROM Part ORDER BY PartNo"),
                  other.error ? "before" : "before behind");
        if (other.after[0] != '-') {
            EXPECT_EQ(column(*database, read), other.after);
        }
        runNow(*database, "DELETE * FROM Part");
        runNow(*database, "DROP TABLE Former");
        if (other.column)
            runNow(*database, "DROP TABLE List");
    }
}

class OnAServer : public BehindTest
{
};

TEST_P(OnAServer, ASessionThatIsCutLeavesNoGap)
{
    for (int failing = 0; failing < Steps; ++failing) {
        SCOPED_TRACE(failing);
        begin();
        const auto database = file.open();
        const auto cut = [&] {
            file.plain("SELECT pg_terminate_backend(pid, 5000) FROM pg_stat_activity"
                       " WHERE datname = current_database() AND pid <> pg_backend_pid()");
        };
        EXPECT_EQ(routine(*database, failing, cut), 3043);
        const QString there = parts();
        EXPECT_TRUE(GetParam() == EngineKind::Postgres ? first(failing).startsWith(there) : there == first(failing))
            << there.toStdString();
        EXPECT_EQ(errorNumberOf([&] { database->OpenRecordset("SELECT * FROM Part").Eof(); }), 3043);
    }
}

TEST_P(OnAServer, AFailureIsToldByTheNextReadThoughTablesChanged)
{
    const auto database = file.open();
    runNow(*database, "CREATE TABLE List (N long)");
    Recordset list = database->OpenRecordset("SELECT * FROM List");
    EXPECT_TRUE(list.Eof());
    list.AddNew();
    list.Fields("N") = 1;
    file.plain("ALTER TABLE \"List\" RENAME TO \"Former\"");
    EXPECT_EQ(errorNumberOf([&] {
                  list.Update();
                  runNow(*file.open(), "CREATE TABLE Another (N long)");
                  database->OpenRecordset("SELECT * FROM Part").Eof();
              }),
              3078);
}

class Deadlock : public BehindTest
{
};

/// Two sessions that change the same rows in another order: one of them is picked by the server and sent again.
TEST_P(Deadlock, EndsWithBothStatementsDone)
{
    const auto other = file.open();
    runNow(*other, "INSERT INTO Part (PartNo, Cost) VALUES ('a', 0)");
    runNow(*other, "INSERT INTO Part (PartNo, Cost) VALUES ('b', 0)");
    const QString both = "SET deadlock_timeout = '1min'; BEGIN;" // so that it is never the one that is picked
                         "UPDATE \"Part\" SET \"Cost\" = \"Cost\" + 1 WHERE \"PartNo\" = 'b'; SELECT pg_sleep(0.3);"
                         "UPDATE \"Part\" SET \"Cost\" = \"Cost\" + 1 WHERE \"PartNo\" = 'a'; COMMIT";
    std::thread tool([&] { file.plain(both); });
    const auto database = file.open();
    const int error = errorNumberOf([&] {
        QTest::qSleep(100);
        database->Execute("INSERT INTO Part (PartNo, Cost) VALUES ('c', 1)"); // done already, and not done again
        runNow(*database, "UPDATE Part SET Cost = Cost + 10");
    });
    tool.join();
    EXPECT_EQ(error, 0);
    EXPECT_EQ(column(*database, "SELECT Cost FROM Part"), "11 11 11");
}

INSTANTIATE_TEST_SUITE_P(Servers, Deadlock, testing::Values(EngineKind::Postgres), nameOfEngine);
INSTANTIATE_TEST_SUITE_P(Engines, BehindTest, allEngines(), nameOfEngine);
INSTANTIATE_TEST_SUITE_P(Servers, OnAServer, testing::Values(EngineKind::Postgres, EngineKind::PostgresPlain),
                         nameOfEngine);

} // namespace
