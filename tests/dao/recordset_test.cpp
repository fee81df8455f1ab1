#include "data/values/runtimeerror.h"
#include "tests/dao/databasefile.h"

namespace {

class RecordsetTest : public EngineTest
{
protected:
    void add(const QString &part) { database->Execute("INSERT INTO Part (PartNo, Cost) VALUES ('" + part + "', 1)"); }
};

TEST_P(RecordsetTest, WalksFromTheFirstRowToTheEndAndStaysOnItsRowAfterAddingOne)
{
    Recordset rows = database->OpenRecordset("SELECT * FROM Part");
    EXPECT_TRUE(rows.Bof() && rows.Eof());
    const std::function<void()> uses[] = {[&] { rows.MoveNext(); }, [&] { rows.Fields("PartNo").value(); },
                                          [&] { rows.Edit(); }};
    for (const auto &use : uses)
        EXPECT_EQ(errorNumberOf(use), 3021);

    add("A");
    rows = database->OpenRecordset("SELECT * FROM Part");
    EXPECT_FALSE(rows.Bof());
    for (const char *added : {"B", "C"}) {
        rows.AddNew();
        rows.Fields("PartNo") = added;
        rows.Update();
        EXPECT_EQ(rows.Fields("PartNo").text(), "A");
    }
    for (const char *part : {"A", "B", "C"}) {
        EXPECT_FALSE(rows.Eof());
        EXPECT_EQ(rows.Fields(0).value(), Value(part));
        rows.MoveNext();
    }
    EXPECT_TRUE(rows.Eof() && !rows.Bof());
    for (const auto &use : uses)
        EXPECT_EQ(errorNumberOf(use), 3021);
    rows.Close();
    EXPECT_EQ(errorNumberOf([&] { rows.Eof(); }), 3420);
}

TEST_P(RecordsetTest, FindsFieldsByEveryNameTheyMayBearAndNoOther)
{
    database->Execute("INSERT INTO Orders (OrderNumber, Customer) VALUES ('17', 'Acme')");
    database->Execute("INSERT INTO Shipment (OrderID, Via) VALUES (1, 'Truck')");
    const QString join = " FROM Orders LEFT JOIN SHIPMENT ON Orders.ID = Shipment.OrderID";
    const struct
    {
        QString sql, field;
        int position; ///< -1: not to be found
    } cases[] = {
        {"SELECT ID, OrderNumber FROM Orders", "ordernumber", 1},
        {"SELECT ID, OrderNumber FROM Orders", "Orders.OrderNumber", 1},
        {"SELECT ID, OrderNumber FROM Orders", "ORDERS.id", 0},
        {"SELECT ID, OrderNumber FROM Orders", "Customer", -1},
        {"SELECT ID, OrderNumber FROM Orders", "Shipment.ID", -1},
        {"SELECT ID, OrderNumber FROM Orders", "", -1},
        {"SELECT Orders.ID, SHIPMENT.ID, Via" + join, "Orders.ID", 0},
        {"SELECT Orders.ID, SHIPMENT.ID, Via" + join, "Shipment.ID", 1},
        {"SELECT Orders.ID, SHIPMENT.ID, Via" + join, "ID", -1},
        {"SELECT Orders.ID, SHIPMENT.ID, Via" + join, "shipment.via", 2},
        {"SELECT Orders.ID, SHIPMENT.ID, Via" + join, "Orders.Via", -1},
        {"SELECT Orders.ID, SHIPMENT.ID, Via" + join, "Part.Via", -1},
        {"SELECT Orders.ID, Via" + join, "ID", 0},
        {"SELECT Count(ID) AS Anzahl FROM Orders", "ANZAHL", 0},
        {"SELECT Count(ID) FROM Orders", "Expr1000", 0},
    };
    for (const auto &row : cases) {
        Recordset rows = database->OpenRecordset(row.sql);
        const auto look = [&] {
            EXPECT_EQ(rows.Fields(row.field).value(), rows.Fields(std::max(row.position, 0)).value());
        };
        EXPECT_EQ(errorNumberOf(look), row.position < 0 ? 3265 : 0)
            << row.sql.toStdString() << ": " << row.field.toStdString();
    }
}

TEST_P(RecordsetTest, ConvertsAValueAtItsAssignment)
{
    const QString table = "CREATE TABLE Kinds (D double, L long, M money, T text(5), B memo, Z datetime, Y yesno)";
    database->Execute(table);
    const struct
    {
        const char *field;
        Value given, kept;
        int error = 0;
    } cases[] = {
        {"D", "12.3", 12.3},
        {"D", "$1,234.50", 1234.5},
        {"D", 3, 3.0},
        {"D", Value(), Value()},
        {"D", "", {}, 3421},
        {"D", "5%", {}, 3421},
        {"L", "2.5", 2},
        {"L", -2147483648.0, int(-2147483648)},
        {"L", "99999999999", {}, 3421},
        {"M", 1.23456, Currency{12346}},
        {"M", "$2.50", Currency{25000}},
        {"T", "12345", "12345"},
        {"T", "", ""},
        {"T", " a ", " a "},
        {"T", 4.5, "4.5"},
        {"T", "123456", {}, 3163},
        {"T", Date(2011, 3, 30), {}, 3163},
        {"T", QString::fromUtf16(u"a\0b", 3), {}, 3421},
        {"B", QString(100000, 'x'), QString(100000, 'x')},
        {"B", QString(1, QChar(0)), {}, 3421},
        {"B", Date(2011, 3, 30), "3/30/2011"},
        {"Z", "3/30/2011", Date(2011, 3, 30)},
        {"Z", Date(1850, 1, 1), Date(1850, 1, 1)},
        {"Z", 40000.5, Date(40000.5)},
        {"Z", 1e10, {}, 3421},
        {"Z", "", {}, 3421},
        {"Y", true, true},
        {"Y", -1, true},
        {"Y", "False", false},
        {"Y", "0", false},
        {"Y", "abc", {}, 3421},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(std::string(row.field) + " <- " + row.given.joined().left(20).toStdString());
        database->Execute("DELETE * FROM Kinds");
        Recordset rows = database->OpenRecordset("SELECT * FROM Kinds");
        rows.AddNew();
        EXPECT_EQ(errorNumberOf([&] { rows.Fields(row.field) = row.given; }), row.error);
        if (row.error)
            continue;
        EXPECT_EQ(rows.Fields(row.field).value(), row.kept);
        rows.Update();
        EXPECT_EQ(database->OpenRecordset("SELECT * FROM Kinds").Fields(row.field).value(), row.kept);
    }
}

TEST_P(RecordsetTest, ANewRowHoldsTheDefaultsOfItsTable)
{
    Recordset shipment = database->OpenRecordset("SELECT TOP 1 * FROM Shipment");
    shipment.AddNew();
    EXPECT_EQ(shipment.Fields("Freight").value(), Value(0.0));
    EXPECT_EQ(shipment.Fields("Invoiced").value(), Value(false));
    EXPECT_EQ(shipment.Fields("Via").value(), Value());
    shipment.Update();
    EXPECT_EQ(column(*database, "SELECT Adjustment FROM Shipment"), "0");

    Recordset scratch = database->OpenRecordset("SELECT Qty FROM tmpInventoryRegister");
    scratch.AddNew();
    EXPECT_EQ(scratch.Fields("Qty").value(), Value());
    scratch.Update();
    EXPECT_EQ(column(*database, "SELECT Cost FROM tmpInventoryRegister"), "-");
}

TEST_P(RecordsetTest, WritesOnlyWhatWasAssignedAndShowsItInItsRow)
{
    add("A");
    add("B");
    Recordset rows = database->OpenRecordset("SELECT * FROM Part ORDER BY PartNo");
    rows.Edit();
    rows.Fields("Vendor") = "Smith";
    database->Execute("UPDATE Part SET Cost = 9 WHERE PartNo = 'A'");
    rows.Update();
    EXPECT_EQ(rows.Fields("Vendor").text(), "Smith");
    rows.Edit();
    rows.Fields("Vendor") = Value();
    rows.MoveNext(); // drops the change
    EXPECT_EQ(rows.Fields("PartNo").text(), "B");
    EXPECT_EQ(column(*database, "SELECT Vendor FROM Part WHERE PartNo = 'A'"), "Smith");
    EXPECT_EQ(column(*database, "SELECT Cost FROM Part WHERE PartNo = 'A'"), "9");
}

TEST_P(RecordsetTest, LocksARowBetweenEditAndUpdateAndReadsItAnew)
{
    add("A");
    for (const QString &way : file.ways()) {
        SCOPED_TRACE(way.toStdString());
        database.reset();
        database = file.open(way);
        database->Execute("UPDATE Part SET Cost = 1");
        const auto other = file.open(way + ";busy=50");
        const auto addOne = [&] { runNow(*other, "UPDATE Part SET Cost = Cost + 1"); };

        Recordset rows = database->OpenRecordset("SELECT * FROM Part");
        EXPECT_EQ(rows.Fields("Cost").value(), Value(1.0));
        database->sync();
        addOne();
        rows.Edit();
        EXPECT_EQ(rows.Fields("Cost").value(), Value(2.0));
        EXPECT_EQ(errorNumberOf(addOne), 3218);
        rows.Fields("Cost") = 5;
        rows.Update();
        database->sync();
        EXPECT_EQ(errorNumberOf(addOne), 0);
        rows.Edit();
        EXPECT_EQ(errorNumberOf(addOne), 3218);
        rows.MoveNext(); // drops the change and the lock
        database->sync();
        EXPECT_EQ(errorNumberOf(addOne), 0);
        rows = database->OpenRecordset("SELECT * FROM Part");
        rows.Edit();
        rows.Fields("Cost") = 20;
        // What is written in between is committed at once, and so cannot lie inside the lock.
        runNow(*database, "UPDATE Part SET Vendor = 'Smith'");
        EXPECT_EQ(column(*other, "SELECT Vendor FROM Part"), "Smith");
        EXPECT_EQ(errorNumberOf(addOne), 0);
        rows.Update();
        database->sync();
        EXPECT_EQ(column(*other, "SELECT Cost FROM Part"), "20");
        rows.Edit();
        rows.Close();
        database->sync();
        EXPECT_EQ(errorNumberOf(addOne), 0);
    }
}

TEST_P(RecordsetTest, RefusesWhatItsStateOrItsKindDoesNotAllow)
{
    add("A");
    Recordset rows = database->OpenRecordset("SELECT * FROM Part");
    EXPECT_EQ(errorNumberOf([&] { rows.Fields("Cost") = 5; }), 3020);
    EXPECT_EQ(errorNumberOf([&] { rows.Update(); }), 3020);
    rows.Edit();
    rows.Update();
    EXPECT_EQ(errorNumberOf([&] { rows.Update(); }), 3020);
    for (const char *sql : {"SELECT TOP 2 Vendor FROM Part ORDER BY Cost", "SELECT Vendor,Cost * 2 FROM Part AS P"}) {
        Recordset some = database->OpenRecordset(sql);
        some.Edit();
        some.Fields("Vendor") = sql;
        some.Update();
        EXPECT_EQ(column(*database, "SELECT Vendor FROM Part"), sql);
    }
    for (const char *sql : {"SELECT DISTINCT PartNo FROM Part", "SELECT SUM(Cost) AS Total FROM Part",
                            "SELECT PartNo FROM Part GROUP BY PartNo", "SELECT PartNo FROM (SELECT PartNo FROM Part)",
                            "SELECT PartNo FROM Part LEFT JOIN PriceSheet ON Part.PartNo = PriceSheet.Part"}) {
        Recordset result = database->OpenRecordset(sql);
        EXPECT_EQ(errorNumberOf([&] { result.AddNew(); }), 3027) << sql;
        EXPECT_EQ(errorNumberOf([&] { result.Edit(); }), 3027) << sql;
    }
    Recordset gone = database->OpenRecordset("SELECT * FROM Part");
    gone.Edit();
    database->Execute("DELETE * FROM Part");
    gone.Fields("Cost") = 5;
    EXPECT_EQ(errorNumberOf([&] { gone.Update(); }), 3167);
}

INSTANTIATE_TEST_SUITE_P(Engines, RecordsetTest, allEngines(), nameOfEngine);

} // namespace
