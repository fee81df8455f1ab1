#include "tests/dao/databasefile.h"
#include <QFileInfo>

namespace {

class StreamingRows
{
protected:
    explicit StreamingRows(EngineKind engine) : file(engine) {}

    /// Parts "1" to "count" in one statement's time each ten thousand.
    void addParts(int count)
    {
        database->Execute("INSERT INTO FebInventory (Part, Qty) VALUES ('x', 0)");
        database->Execute("SELECT Part INTO tmpSeed FROM FebInventory");
        for (int rows = 1; rows < count; rows *= 2)
            database->Execute("INSERT INTO tmpSeed (Part) SELECT Part FROM tmpSeed");
        database->Execute("CREATE TABLE tmpNumbered (ID counter, Part text(50))");
        database->Execute("INSERT INTO tmpNumbered (Part) SELECT Part FROM tmpSeed");
        database->Execute(
            QString("INSERT INTO Part (PartNo, Cost) SELECT ID, 1 FROM tmpNumbered WHERE ID <= %1").arg(count));
    }

    QString walk(Recordset &rows, const char *field)
    {
        QStringList values;
        for (; !rows.Eof(); rows.MoveNext())
            values += rows.Fields(field).joined();
        return values.join(' ');
    }

    DatabaseFile file;
    std::unique_ptr<Database> database = file.open();
};

class StreamingTest : public testing::TestWithParam<EngineKind>, protected StreamingRows
{
protected:
    StreamingTest() : StreamingRows(GetParam()) {}
};

class FileStreamingTest : public testing::Test, protected StreamingRows
{
protected:
    FileStreamingTest() : StreamingRows(EngineKind::Sqlite) {}
};

TEST_P(StreamingTest, KeepsItsRowsWhateverIsWrittenDuringTheWalk)
{
    addParts(5);
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
            database->Execute("INSERT INTO Part (PartNo, Cost) SELECT ID, 1 FROM tmpNumbered WHERE ID <= 5");
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

TEST_P(StreamingTest, EveryRowOfALargeWalkComesThroughWhenItIsChangedOnTheWay)
{
    const int count = 20000;
    addParts(count);
    int walked = 0;
    double sum = 0;
    for (Recordset rows = database->OpenRecordset("SELECT * FROM Part"); !rows.Eof(); rows.MoveNext()) {
        EXPECT_EQ(rows.Fields("PartNo").value(), Value(QString::number(++walked)));
        if (walked % 3)
            continue;
        rows.Edit();
        rows.Fields("Cost") = walked;
        rows.Update();
        sum += walked;
    }
    EXPECT_EQ(walked, count);
    EXPECT_EQ(database->OpenRecordset("SELECT SUM(Cost) AS S FROM Part WHERE Cost > 1").Fields("S").value(),
              Value(sum));
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

TEST_F(FileStreamingTest, TheLogStaysSmallWhenStatementsRunDuringAWalk)
{
    const int count = 20000;
    addParts(count);
    qint64 largest = 0;
    for (Recordset rows = database->OpenRecordset("SELECT PartNo FROM Part"); !rows.Eof(); rows.MoveNext()) {
        database->Execute("UPDATE FebInventory SET Qty = Qty + 1");
        largest = std::max(largest, QFileInfo(file.path() + "-wal").size());
    }
    EXPECT_EQ(column(*database, "SELECT Qty FROM FebInventory"), QString::number(count));
    // Each statement logs a page of 4 kB: without the log being reset, 80 MB.
    EXPECT_LT(largest, 32 << 20);
}

TEST_F(FileStreamingTest, NoLockOutlivesTheSettling)
{
    database.reset();
    database = file.open(";journal=rollback");
    addParts(1000);
    const auto other = file.open(";journal=rollback;busy=50");
    Recordset rows = database->OpenRecordset("SELECT PartNo FROM Part");
    EXPECT_EQ(rows.Fields(0).text(), "1");
    EXPECT_EQ(errorNumberOf([&] { other->Execute("UPDATE Part SET Cost = 3"); }), 3218);
    database->sync();
    EXPECT_EQ(errorNumberOf([&] { other->Execute("UPDATE Part SET Cost = 3"); }), 0);
    EXPECT_EQ(walk(rows, "PartNo").count(' '), 999);
}

INSTANTIATE_TEST_SUITE_P(Engines, StreamingTest, allEngines(), nameOfEngine);

} // namespace
