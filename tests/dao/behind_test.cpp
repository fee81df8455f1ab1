#include "data/values/runtimeerror.h"
#include "tests/dao/databasefile.h"

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

class CutSession : public BehindTest
{
};

TEST_P(CutSession, LeavesNoGap)
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

INSTANTIATE_TEST_SUITE_P(Engines, BehindTest, allEngines(), nameOfEngine);
INSTANTIATE_TEST_SUITE_P(Servers, CutSession, testing::Values(EngineKind::Postgres, EngineKind::PostgresPlain),
                         nameOfEngine);

} // namespace
