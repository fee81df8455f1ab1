#include "tests/dao/databasefile.h"
#include <QFileInfo>

namespace {

class StreamingTest : public EngineTest
{
protected:
    /// Parts "1" to "count", each at a cost of 1.
    void addParts(int count) const
    {
        const QString insert = "INSERT INTO \"Part\" (\"PartNo\", \"Cost\") WITH RECURSIVE numbers (n) AS (SELECT 1"
                               " UNION ALL SELECT n + 1 FROM numbers WHERE n < %1)"
                               " SELECT CAST(n AS text), 1 FROM numbers";
        ASSERT_EQ(file.plain(insert.arg(count)), "no row");
    }

    static QString walk(Recordset &rows, const char *field)
    {
        QStringList values;
        for (; !rows.Eof(); rows.MoveNext())
            values += rows.Fields(field).joined();
        return values.join(' ');
    }
};

TEST_P(StreamingTest, KeepsItsRowsWhateverIsWrittenDuringTheWalk)
{
    const struct
    {
        const char *what, *statement, *parts, *costs;
    } cases[] = {
        {"rows added behind", "INSERT INTO Part (PartNo, Cost) SELECT PartNo & 'x', 7 FROM Part", "1 2 3 4 5",
         "1 1 1 1 1"},
        {"rows leaving the condition", "UPDATE Part SET Cost = 2", "1 2 3 4 5", "1 2 2 2 2"},
        {"another table", "DELETE * FROM FebInventory", "1 2 3 4 5", "1 1 1 1 1"},
        {"the key itself", "UPDATE Part SET PartNo = PartNo & 'y'", "1 2y 3y 4y 5y", "1 1 1 1 1"},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.what);
        for (const char *field : {"PartNo", "Cost"}) {
            database->Execute("DELETE * FROM Part");
            database->sync();
            addParts(5);
            Recordset rows = database->OpenRecordset("SELECT PartNo, Cost FROM Part WHERE Cost = 1 ORDER BY PartNo");
            EXPECT_EQ(rows.Fields("PartNo").text(), "1");
            database->Execute(row.statement);
            EXPECT_EQ(walk(rows, field), field == std::string("Cost") ? row.costs : row.parts);
        }
    }
}

TEST_P(StreamingTest, ARowDeletedAheadOfTheWalkIsFoundDeleted)
{
    addParts(3);
    Recordset rows = database->OpenRecordset("SELECT * FROM Part ORDER BY PartNo");
    EXPECT_EQ(rows.Fields("PartNo").text(), "1");
    database->Execute("DELETE * FROM Part WHERE PartNo = '2'");
    rows.MoveNext();
    EXPECT_EQ(errorNumberOf([&] { rows.Fields("PartNo").value(); }), 3167);
    EXPECT_EQ(errorNumberOf([&] { rows.Edit(); }), 3167);
    rows.MoveNext();
    EXPECT_EQ(rows.Fields("PartNo").text(), "3");
}

TEST_P(StreamingTest, EveryRowOfALargeWalkComesThroughWhenItIsChangedOnTheWayAndTheLogStaysSmall)
{
    const int count = 20000;
    addParts(count);
    database->Execute("INSERT INTO FebInventory (Part, Qty) VALUES ('changes', 0)");
    int walked = 0;
    double sum = 0;
    qint64 log = 0;
    for (Recordset rows = database->OpenRecordset("SELECT * FROM Part"); !rows.Eof(); rows.MoveNext()) {
        EXPECT_EQ(rows.Fields("PartNo").value(), Value(QString::number(++walked)));
        if (walked % 3)
            continue;
        rows.Edit();
        rows.Fields("Cost") = walked;
        rows.Update();
        sum += walked;
        database->Execute("UPDATE FebInventory SET Qty = Qty + 1");
        log = std::max(log, QFileInfo(file.path() + "-wal").size());
    }
    EXPECT_EQ(walked, count);
    EXPECT_EQ(database->OpenRecordset("SELECT SUM(Cost) AS S FROM Part WHERE Cost > 1").Fields("S").value(),
              Value(sum));
    EXPECT_EQ(column(*database, "SELECT Qty FROM FebInventory"), QString::number(count / 3));
    // Each statement logs a page of 4 kB at least: without the log being begun anew, more than 50 MB.
    EXPECT_LT(log, 24 << 20);
}

TEST_P(StreamingTest, ARecordsetOpenedToAddRowsReadsNone)
{
    addParts(3);
    // Reading any of its rows fails, in a division by zero.
    const char *sql = "SELECT * FROM Part WHERE 1 / MinOnHand > 1";
    const int unreadable = errorNumberOf([&] { database->OpenRecordset(sql).Eof(); });
    ASSERT_NE(unreadable, 0);
    Recordset rows = database->OpenRecordset(sql);
    rows.AddNew();
    rows.Fields("PartNo") = "4";
    database->Execute("UPDATE Warehouse SET City = 'x'");
    rows.Update();
    rows.Close();
    EXPECT_EQ(column(*database, "SELECT PartNo FROM Part"), "1 2 3 4");
}

TEST_P(StreamingTest, HoldsNobodyUpOnceAllIsSynced)
{
    addParts(1000);
    database.reset();
    database = file.open(file.ways().last());
    const auto other = file.open(file.ways().last() + ";busy=50");
    const auto write = [&] { runNow(*other, "UPDATE Part SET Cost = 3"); };
    Recordset rows = database->OpenRecordset("SELECT PartNo FROM Part");
    EXPECT_EQ(rows.Fields(0).text(), "1");
    EXPECT_EQ(errorNumberOf(write), file.isOnServer() ? 0 : 3218);
    database->syncAll(); // as before a message box
    EXPECT_EQ(errorNumberOf(write), 0);
    EXPECT_EQ(walk(rows, "PartNo").count(' '), 999);
}

INSTANTIATE_TEST_SUITE_P(Engines, StreamingTest, allEngines(), nameOfEngine);

} // namespace
