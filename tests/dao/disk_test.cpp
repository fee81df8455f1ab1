#include "data/dao/copydatabase.h"
#include "data/values/runtimeerror.h"
#include "tests/dao/databasefile.h"
#include "tests/dao/faultydisk.h"

namespace {

struct Fault
{
    const char *journal;
    int code;
    int error; ///< that the user sees
};

void PrintTo(const Fault &fault, std::ostream *out)
{
    *out << fault.journal << " code " << fault.code;
}

class DiskTest : public testing::TestWithParam<Fault>
{
protected:
    /// Runs the action with the disk failing at its first writing, its second and so on, until it meets no
    /// failure any more. `check` looks at the file after each, and is told whether the action returned.
    void failEverywhere(const std::function<void(Database &)> &action, const std::function<void(bool)> &check)
    {
        int failures = 0;
        for (bool failed = true; failed; ++failures) {
            ASSERT_LT(failures, 200);
            SCOPED_TRACE("failing after " + std::to_string(failures));
            auto database = file.open(GetParam().journal);
            disk.failAfter(failures, GetParam().code);
            const int error = errorNumberOf([&] { action(*database); });
            failed = disk.heal();
            EXPECT_TRUE(error == 0 || error == GetParam().error) << error;
            EXPECT_TRUE(error == 0 || failed);
            check(error == 0);
            // The same connection goes on where the disk does.
            EXPECT_EQ(errorNumberOf([&] { database->Execute("UPDATE Warehouse SET City = 'x'"); }), 0);
            database.reset();
            EXPECT_EQ(PlainConnection(file.path()).text("PRAGMA integrity_check"), "ok");
        }
        EXPECT_GT(failures, 2);
    }

    void addParts()
    {
        const auto database = file.open();
        for (int part = 0; part < 40; ++part)
            database->Execute(
                QString("INSERT INTO Part (PartNo, LeadTime) VALUES ('%1', '%2')").arg(part).arg(QString(50, 'x')));
    }

    QString plain(const char *sql) { return PlainConnection(file.path()).text(sql); }

    FaultyDisk disk;
    DatabaseFile file;
};

TEST_P(DiskTest, AStatementIsInTheFileWholeOrNotAtAll)
{
    for (int part = 0; part < 40; ++part)
        file.open()->Execute(
            QString("INSERT INTO Part (PartNo, LeadTime) VALUES ('%1', '%2')").arg(part).arg(QString(50, 'x')));
    int cost = 0;
    failEverywhere([&](Database &database) { database.Execute(QString("UPDATE Part SET Cost = %1").arg(++cost)); },
                   [&](bool returned) {
                       EXPECT_EQ(plain("SELECT count(DISTINCT Cost) FROM Part"), "1");
                       if (returned) {
                           EXPECT_EQ(plain("SELECT CAST(Cost AS INTEGER) FROM Part"), QString::number(cost));
                       }
                   });
}

TEST_P(DiskTest, ARowIsInTheFileWholeOrNotAtAllAndItsNumberIsNeverGivenAgain)
{
    QSet<int> numbers;
    int last = 0;
    failEverywhere(
        [&](Database &database) {
            Recordset orders = database.OpenRecordset("SELECT * FROM Orders");
            last = 0;
            orders.AddNew();
            last = orders.Fields("ID").value().toLong();
            EXPECT_FALSE(numbers.contains(last));
            numbers += last;
            orders.Fields("OrderNumber") = QString::number(last);
            orders.Fields("ShipTo") = QString(50, 'x');
            orders.Update();
        },
        [&](bool returned) {
            EXPECT_EQ(plain("SELECT count(*) FROM Orders WHERE OrderNumber <> ID OR length(ShipTo) <> 50"), "0");
            if (returned) {
                EXPECT_EQ(plain("SELECT max(ID) FROM Orders"), QString::number(last));
            }
        });
}

TEST_P(DiskTest, ATableIsMadeWithAllItsRowsOrNotAtAll)
{
    addParts();
    failEverywhere([&](Database &database) { database.Execute("SELECT * INTO tmpCopy FROM Part"); },
                   [&](bool returned) {
                       const bool made = plain("SELECT count(*) FROM sqlite_schema WHERE name = 'tmpCopy'") == "1";
                       EXPECT_TRUE(made || !returned);
                       if (made) {
                           EXPECT_EQ(plain("SELECT count(*) FROM tmpCopy"), "40");
                           file.open(GetParam().journal)->Execute("DROP TABLE tmpCopy");
                       }
                   });
}

INSTANTIATE_TEST_SUITE_P(Faults, DiskTest,
                         testing::Values(Fault{";journal=log", SQLITE_FULL, 3026},
                                         Fault{";journal=log", SQLITE_IOERR_WRITE, 3043},
                                         Fault{";journal=rollback", SQLITE_FULL, 3026},
                                         Fault{";journal=rollback", SQLITE_IOERR_WRITE, 3043}));

TEST(DiskUnderACopy, LeavesItWholeOrAnErrorAndTheOriginalAsItWas)
{
    FaultyDisk disk;
    const DatabaseFile file;
    const QString copy = file.path() + ".copy";
    file.open()->Execute("INSERT INTO Part (PartNo) VALUES ('A')");
    bool failed = true;
    for (int passing : {0, 1, 2, 5, 10, 20, 40, 60, 70, 500}) {
        disk.failAfter(passing, SQLITE_FULL);
        const int error = errorNumberOf([&] { copyDatabase(file.path(), copy, DatabaseFile::Password); });
        failed = disk.heal();
        EXPECT_EQ(error, failed ? 3026 : 0) << passing;
        EXPECT_EQ(PlainConnection(file.path()).text("SELECT count(*) FROM Part"), "1");
        EXPECT_TRUE(failed || PlainConnection(copy).text("SELECT count(*) FROM Part") == "1");
        QFile::remove(copy);
        QFile::remove(copy + "-journal");
    }
    EXPECT_FALSE(failed) << "no copy ever came to its end";
}

} // namespace
