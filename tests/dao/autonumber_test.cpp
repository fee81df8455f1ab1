#include "tests/dao/databasefile.h"

namespace {

/// Takes a number by AddNew, and keeps the row if told so.
int take(Database &database, bool keep, const QString &table = "Orders")
{
    Recordset rows = database.OpenRecordset("SELECT * FROM " + table);
    rows.AddNew();
    const int number = rows.Fields("ID").value().toLong();
    if (keep)
        rows.Update();
    return number;
}

using AutoNumbers = EngineTest;

TEST_P(AutoNumbers, AreKnownBeforeTheUpdateAndSpentWithoutOne)
{
    EXPECT_EQ(take(*database, true), 1);
    EXPECT_EQ(take(*database, false), 2);
    Recordset orders = database->OpenRecordset("SELECT * FROM Orders");
    EXPECT_EQ(orders.Fields("ID").value(), Value(1));
    for (const int number : {3, 4}) { // twice without an Update between
        orders.AddNew();
        EXPECT_EQ(orders.Fields("ID").value(), Value(number));
    }
    orders.Update();
    EXPECT_EQ(orders.Fields("ID").value(), Value(1));
    EXPECT_EQ(column(*database, "SELECT ID FROM Orders"), "1 4");
    EXPECT_EQ(take(*database, false), 5);
    orders.Close();
    database->Execute("DELETE * FROM Orders");
    database.reset();
    database = file.open();
    EXPECT_EQ(take(*database, true), 6);
}

TEST_P(AutoNumbers, GoOnBehindNumbersOfOtherConnectionsStatementsAndTools)
{
    for (const QString &way : file.ways()) {
        SCOPED_TRACE(way.toStdString());
        const DatabaseFile file(GetParam());
        const auto database = file.open(way), other = file.open(way);
        EXPECT_EQ(take(*database, false), 1);
        EXPECT_EQ(take(*other, true), 2);
        runNow(*other, "INSERT INTO Orders (OrderNumber) VALUES ('x')"); // takes 3
        EXPECT_EQ(take(*database, true), 4);
        database->sync();
        runNow(*other, "INSERT INTO Orders (ID, OrderNumber) VALUES (50, 'y')");
        EXPECT_EQ(take(*database, true), 51);
        file.plain("INSERT INTO \"Orders\" (\"ID\") VALUES (70)");
        EXPECT_EQ(take(*database, false), 71);
        file.plain("INSERT INTO \"Orders\" (\"OrderNumber\") VALUES ('z')"); // takes 72
        EXPECT_EQ(take(*database, true), 73);
        file.plain("UPDATE \"Orders\" SET \"ID\" = 90 WHERE \"ID\" = 2; DELETE FROM \"Orders\" WHERE \"ID\" = 73");
        EXPECT_EQ(take(*database, true), 91);
        database->sync();
        if (!file.isOnServer())
            file.plain("DELETE FROM sqlite_sequence");
        EXPECT_EQ(take(*database, true), 92);
        // What a statement took that failed, a file takes back with the rest of it, a server cannot.
        const QString tooLong = "INSERT INTO Orders (OrderNumber) VALUES ('" + QString(500, u'x') + "')";
        EXPECT_EQ(errorNumberOf([&] { runNow(*database, tooLong); }), 3163);
        EXPECT_EQ(take(*database, true), file.isOnServer() ? 94 : 93);
    }
}

TEST_P(AutoNumbers, NumberTheRowsOfTablesMadeByStatements)
{
    database->Execute("CREATE TABLE tmpList (ID counter, Part text(50))");
    EXPECT_EQ(take(*database, true, "tmpList"), 1);
    database->Execute("INSERT INTO tmpList (Part) VALUES ('b')");
    // A copy keeps the numbers, and the column stays an AutoNumber.
    database->Execute("SELECT * INTO tmpCopy FROM tmpList");
    EXPECT_EQ(take(*database, true, "tmpCopy"), 3);
    EXPECT_EQ(column(*database, "SELECT ID FROM tmpCopy"), "1 2 3");
    // A table of the same name, made later, counts anew.
    database->Execute("DROP TABLE tmpCopy");
    database->Execute("SELECT * INTO tmpCopy FROM tmpList WHERE ID = 1");
    EXPECT_EQ(take(*database, true, "tmpCopy"), 2);
}

INSTANTIATE_TEST_SUITE_P(Engines, AutoNumbers, allEngines(), nameOfEngine);

} // namespace
