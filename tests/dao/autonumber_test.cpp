#include "tests/dao/databasefile.h"

namespace {

/// Takes a number by AddNew, and keeps the row if told so.
int take(Database &database, bool keep)
{
    Recordset orders = database.OpenRecordset("SELECT * FROM Orders");
    orders.AddNew();
    const int number = orders.Fields("ID").value().toLong();
    if (keep)
        orders.Update();
    return number;
}

struct Way
{
    EngineKind engine;
    const char *connect;
};

class AutoNumberTest : public testing::TestWithParam<Way>
{
protected:
    std::unique_ptr<Database> open() { return file.open(GetParam().connect); }

    DatabaseFile file{GetParam().engine};
    std::unique_ptr<Database> database = open();
};

TEST_P(AutoNumberTest, IsKnownBeforeTheUpdateAndSpentWithoutOne)
{
    EXPECT_EQ(take(*database, true), 1);
    EXPECT_EQ(take(*database, false), 2);
    EXPECT_EQ(take(*database, false), 3);
    EXPECT_EQ(take(*database, true), 4);
    Recordset orders = database->OpenRecordset("SELECT * FROM Orders");
    EXPECT_EQ(orders.Fields("ID").value(), Value(1));
    orders.AddNew();
    EXPECT_EQ(orders.Fields("ID").value(), Value(5));
    orders.AddNew(); // another one without an Update between
    EXPECT_EQ(orders.Fields("ID").value(), Value(6));
    orders.Update();
    EXPECT_EQ(orders.Fields("ID").value(), Value(1));
    EXPECT_EQ(column(*database, "SELECT ID FROM Orders"), "1 4 6");
}

TEST_P(AutoNumberTest, GoesOnBehindNumbersOfOtherConnectionsStatementsAndTools)
{
    const auto other = open();
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

TEST_P(AutoNumberTest, StaysSpentWhenTheFileIsClosedAndItsRowsAreGone)
{
    EXPECT_EQ(take(*database, true), 1);
    EXPECT_EQ(take(*database, false), 2);
    database->Execute("DELETE * FROM Orders");
    database.reset();
    database = open();
    EXPECT_EQ(take(*database, true), 3);
}

TEST_P(AutoNumberTest, NumbersTheRowsOfTablesMadeByStatements)
{
    database->Execute("CREATE TABLE tmpList (ID counter, Part text(50))");
    Recordset list = database->OpenRecordset("SELECT * FROM tmpList");
    list.AddNew();
    EXPECT_EQ(list.Fields("ID").value(), Value(1));
    list.Update();
    list.Close();
    database->Execute("INSERT INTO tmpList (Part) VALUES ('b')");
    EXPECT_EQ(column(*database, "SELECT ID FROM tmpList"), "1 2");

    // A copy keeps the numbers, and the column stays an AutoNumber.
    database->Execute("SELECT * INTO tmpCopy FROM tmpList");
    Recordset copy = database->OpenRecordset("SELECT * FROM tmpCopy");
    copy.AddNew();
    EXPECT_EQ(copy.Fields("ID").value(), Value(3));
    copy.Update();
    EXPECT_EQ(column(*database, "SELECT ID FROM tmpCopy"), "1 2 3");

    // A table of the same name, made later, counts anew.
    copy.Close();
    database->Execute("DROP TABLE tmpCopy");
    database->Execute("SELECT * INTO tmpCopy FROM tmpList WHERE ID = 1");
    copy = database->OpenRecordset("SELECT * FROM tmpCopy");
    copy.AddNew();
    EXPECT_EQ(copy.Fields("ID").value(), Value(2));
}

std::string nameOf(const testing::TestParamInfo<Way> &info)
{
    static const std::array names{"OnLog", "OnRollback", "OnPostgres"};
    return names[info.index];
}

INSTANTIATE_TEST_SUITE_P(Engines, AutoNumberTest,
                         testing::Values(Way{EngineKind::Sqlite, ";journal=log"},
                                         Way{EngineKind::Sqlite, ";journal=rollback"}, Way{EngineKind::Postgres, ""}),
                         nameOf);

} // namespace
