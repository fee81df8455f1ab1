#include "data/values/runtimeerror.h"
#include "tests/dao/databasefile.h"

namespace {

class StatementsTest : public EngineTest
{
protected:
    StatementsTest() { database->Execute("INSERT INTO Part (PartNo, Cost) VALUES ('A', 2)"); }
};

TEST_P(StatementsTest, AreRefusedWhereTheyAreOfTheOtherKindAndFailWithTheEnginesWordsInTheDetail)
{
    EXPECT_EQ(errorTextOf([&] { database->Execute("SELECT * FROM Part"); }), "Cannot execute a select query.");
    EXPECT_EQ(errorNumberOf([&] { database->OpenRecordset("DELETE * FROM Part"); }), 3219);
    EXPECT_EQ(column(*database, "SELECT PartNo FROM Part"), "A");

    const QString sql = "INSERT INTO Orders (ID) VALUES (1)";
    runNow(*database, sql);
    try {
        runNow(*database, sql);
        FAIL();
    } catch (const RuntimeError &error) {
        EXPECT_TRUE(error.detail().contains(sql));
        EXPECT_TRUE(error.detail().contains(file.isOnServer() ? "Key (\"ID\")=(1) already exists."
                                                              : "UNIQUE constraint failed: Orders.ID"));
    }
}

TEST_P(StatementsTest, ATableInUseIsNotDropped)
{
    database->Execute("SELECT * INTO tmpCopy FROM Part");
    for (const char *sql : {"SELECT * FROM tmpCopy", "SELECT Count(PartNo) FROM TMPCOPY",
                            "SELECT Part.PartNo FROM Part LEFT JOIN tmpCopy ON Part.PartNo = tmpCopy.PartNo"}) {
        Recordset rows = database->OpenRecordset(sql);
        EXPECT_EQ(errorTextOf([&] { database->Execute("DROP TABLE tmpcopy"); }),
                  "The database engine could not lock table 'tmpCopy' because it is already in use by another person "
                  "or process.");
        rows.Eof();
        EXPECT_EQ(errorNumberOf([&] { database->Execute("DROP TABLE tmpCopy"); }), 3211);
        EXPECT_EQ(errorNumberOf([&] { database->Execute("SELECT * INTO tmpCopy FROM Part"); }), 3010);
    }
    database->Execute("DROP TABLE tmpCopy");
    EXPECT_EQ(errorNumberOf([&] { database->OpenRecordset("SELECT * FROM tmpCopy"); }), 3078);
}

TEST_P(StatementsTest, SelectIntoKeepsTypesAndLeavesNothingBehindOnFailure)
{
    database->Execute("SELECT ID, OrderNumber, OrderDate, Total INTO tmpOrders FROM Orders");
    const TableDef made = database->TableDefs().back();
    EXPECT_EQ(made.Name, "tmpOrders");
    ASSERT_EQ(made.columns.size(), 4u);
    EXPECT_TRUE(made.columns[0].autoNumber);
    EXPECT_TRUE(made.columns[1].type == ColumnType::Text && made.columns[1].size == 50);
    EXPECT_EQ(made.columns[2].type, ColumnType::Date);
    EXPECT_FALSE(made.columns[3].defaultZero);

    const size_t tables = database->TableDefs().size();
    EXPECT_NE(errorNumberOf([&] { database->Execute("SELECT 1 / MinOnHand AS D INTO tmpFail FROM Part"); }), 0);
    EXPECT_EQ(database->TableDefs().size(), tables);
}

TEST_P(StatementsTest, ATableMadeAnewGetsItsIndexesWhenRowsAreDeletedFromIt)
{
    for (const char *columns : {"Customer, ID", "ID"}) {
        database->Execute(QString("SELECT %1 INTO TMPOpenInvoices FROM Invoice").arg(columns));
        const char *indexes = file.isOnServer() ? "SELECT count(*) FROM pg_class WHERE relname = 'ixOpenInvoices'"
                                                : "SELECT count(*) FROM sqlite_schema WHERE name = 'ixOpenInvoices'";
        EXPECT_EQ(file.plain(indexes), "0");
        for (int twice = 0; twice < 2; ++twice) {
            database->Execute("DELETE FROM tmpOpenInvoices WHERE ID = 1");
            database->sync();
            EXPECT_EQ(file.plain(indexes), QString(columns).contains("Customer") ? "1" : "0");
        }
        database->Execute("DROP TABLE tmpOpenInvoices");
    }
}

TEST_P(StatementsTest, SeeTheTablesThatAnotherConnectionMakesAndDrops)
{
    const auto other = file.open();
    const QString read = "SELECT * FROM Shared";
    const struct
    {
        const char *columns, *insert, *row; // the row's values, read by their positions
    } tables[] = {
        {"A long", nullptr, ""},
        {"B text(10), C long", "INSERT INTO Shared (B, C) VALUES ('x', 1)", "x|1"},
        {"C text(5), D long, B text(10)", "INSERT INTO Shared (C, D) VALUES ('three', 4)", "three|4|"},
    };
    for (const auto &table : tables) {
        other->Execute(QStringLiteral("CREATE TABLE Shared (%1)").arg(table.columns));
        if (table.insert)
            runNow(*other, table.insert);
        Recordset rows = database->OpenRecordset(read);
        QStringList row;
        for (int i = 0; !rows.Eof() && i < rows.fieldCount(); ++i)
            row += rows.Fields(i).joined();
        EXPECT_EQ(row.join('|'), table.row);
        rows.Close();
        other->Execute("DROP TABLE Shared");
    }
    other->Execute("CREATE TABLE Shared (C text(2))");
    if (file.isOnServer()) // which tells with its next answer
        database->TableDefs();
    EXPECT_EQ(errorNumberOf([&] { database->Execute("INSERT INTO Shared (B, C) VALUES ('y', 2)"); }), 3127);
    runNow(*database, "INSERT INTO Shared (C) VALUES ('z')");
    EXPECT_EQ(column(*other, read), "z");
    EXPECT_EQ(database->TableDefs().back().columns[0].size, 2);
    other->Execute("DROP TABLE Shared");
    EXPECT_EQ(errorNumberOf([&] { database->Execute("DROP TABLE Shared"); }), 3376);
    EXPECT_EQ(errorNumberOf([&] { database->OpenRecordset(read).Eof(); }), 3078);
}

TEST_P(StatementsTest, ScratchTablesAreSharedInAFileAndEachSessionsOwnOnAServer)
{
    const auto other = file.open();
    runNow(*database, "SELECT PartNo AS P INTO tmpParts FROM Part");
    EXPECT_EQ(errorNumberOf([&] { runNow(*other, "SELECT PartNo & '!' AS P INTO tmpParts FROM Part"); }),
              file.isOnServer() ? 0 : 3010);
    EXPECT_EQ(column(*other, "SELECT P FROM tmpParts"), file.isOnServer() ? "A!" : "A");
    runNow(*other, "INSERT INTO tmpARTran (Customer) VALUES ('x')"); // one that is always there
    EXPECT_EQ(column(*database, "SELECT Customer FROM tmpARTran"), file.isOnServer() ? "" : "x");
    runNow(*other, "DROP TABLE tmpParts");
    EXPECT_EQ(errorNumberOf([&] { column(*database, "SELECT P FROM tmpParts"); }), file.isOnServer() ? 0 : 3078);
}

INSTANTIATE_TEST_SUITE_P(Engines, StatementsTest, allEngines(), nameOfEngine);

TEST(Statements, GiveUpOnALockAfterAWhile)
{
    const DatabaseFile file;
    file.open()->Execute("INSERT INTO Part (PartNo, Cost) VALUES ('A', 2)");
    for (const QString &way : file.ways()) {
        SCOPED_TRACE(way.toStdString());
        const auto database = file.open(way + ";busy=50");
        PlainConnection holder(file.path());
        holder.run("BEGIN EXCLUSIVE");
        Recordset orders = database->OpenRecordset("SELECT * FROM Orders");
        EXPECT_EQ(errorTextOf([&] { database->Execute("UPDATE Part SET Cost = 1"); }),
                  "Could not update; currently locked.");
        EXPECT_EQ(errorNumberOf([&] { orders.AddNew(); }), 3218);
        EXPECT_EQ(errorTextOf([&] { database->Execute("SELECT * INTO tmpCopy FROM Part"); }),
                  "The database engine could not lock table 'tmpCopy' because it is already in use by another person "
                  "or process.");
        // Readers go on beside a writer of the log, and wait for one of the rollback journal.
        EXPECT_EQ(errorNumberOf([&] { database->OpenRecordset("SELECT * FROM Part").Eof(); }),
                  way == ";journal=log" ? 0 : 3211);
        holder.run("COMMIT");
        orders.AddNew();
        orders.Update();
        database->Execute("UPDATE Part SET Cost = 1");
    }
}

} // namespace
