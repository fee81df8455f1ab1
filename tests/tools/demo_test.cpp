#include "tests/support/testclock.h"
#include "tests/tools/toolstest.h"

namespace {

/// The demo company, judged by `check` and by statements of the program's own SQL.
class DemoTest : public ToolsTest
{
protected:
    DemoTest() { makeDemo(path("demo.db")); }
};

TEST_F(DemoTest, TheSameSeedGivesTheSameFileWhichEndsTodayUnlessTold)
{
    const TestClock clock("2011-03-30 09:00:00");
    const auto contents = [this](const QStringList &options) {
        QFile::remove(path("other.db"));
        done(QStringList{"demo", path("other.db")} + options);
        return contentOf("other.db");
    };
    EXPECT_TRUE(contents({}) == contentOf("demo.db"));
    const QByteArray seven = contents({"--seed", "7"});
    EXPECT_TRUE(contents({"--seed=7"}) == seven);
    EXPECT_FALSE(contents({"--seed", "8"}) == seven);
}

TEST_F(DemoTest, IsASoundCompanyWithAsMuchOfEverythingAsItShouldHave)
{
    EXPECT_EQ(done({"check", path("demo.db")}), "ok\n");
    const char *const notes[] = {
        "SELECT OrderID,OrderLineItem,SUM(Qty) AS Shipped INTO tmpSent FROM ShipmentItems GROUP BY "
        "OrderID,OrderLineItem",
        "SELECT OrderItem.OrderID INTO tmpUnfinished FROM OrderItem LEFT JOIN tmpSent ON OrderItem.OrderID = "
        "tmpSent.OrderID AND OrderItem.ItemNumber = tmpSent.OrderLineItem WHERE ISNULL(Shipped) OR Shipped < "
        "OrderItem.Qty",
        "SELECT Invoice,SUM(Amount + Adjustment) AS Paid INTO tmpPaid FROM Payments GROUP BY Invoice",
        "SELECT TransferHeader.ToID,Warehouse AS FromWhse,Date AS FromDate INTO tmpOut FROM TransferHeader LEFT JOIN "
        "AdjustmentHeader ON TransferHeader.FromID = AdjustmentHeader.ID",
        "SELECT Warehouse,PartNo,SUM(Qty) AS Total INTO tmpAdjusted FROM AdjustmentHeader LEFT JOIN AdjustmentDetail "
        "ON AdjustmentHeader.ID = AdjustmentDetail.AdjustmentID GROUP BY Warehouse,PartNo",
        "SELECT Orders.Warehouse,OrderItem.PartNo,SUM(OrderItem.Qty) AS Total INTO tmpOrdered FROM Orders LEFT JOIN "
        "OrderItem ON Orders.ID = OrderItem.OrderID GROUP BY Orders.Warehouse,OrderItem.PartNo",
    };
    const struct
    {
        const char *rows;
        int least, most;
    } figures[] = {
        {"Customer", 50, 50},
        {"Customer WHERE ISNULL(Territory)", 1, 49},
        {"Customer WHERE ISNULL(ShipTo)", 0, 2},
        {"Part", 100, 200},
        {"Warehouse", 3, 5},
        {"PriceSheet", 100, 400},
        {"Orders", 2000, 2000},
        {"Orders WHERE Status = 'Open'", 6, 1994},
        {"Orders WHERE Status = 'Void'", 6, 1994},
        {"Orders WHERE Status = 'Closed'", 6, 1994},
        {"Orders WHERE Status = 'Closed' AND ID IN (SELECT OrderID FROM tmpUnfinished)", 0, 0},
        {"Orders WHERE Status <> 'Closed' AND ID NOT IN (SELECT OrderID FROM tmpUnfinished)", 0, 0},
        {"Orders WHERE ShipTo & '' = '' OR ShipToAddress1 & '' = '' OR ShipToCity & '' = '' OR ShipToState & '' = '' "
         "OR ShipToZip & '' = ''",
         0, 0},
        {"OrderItem", 7000, 9000},
        {"OrderItem WHERE PriceExt <> Qty * PriceEach", 0, 0},
        {"Shipment", 2100, 2500},
        {"Shipment WHERE InvoiceDate IS NOT NULL", 0, 0},
        {"ShipmentItems", 7500, 9500},
        {"Invoice", 900, 1600},
        {"Invoice WHERE Invoice <> ID & ''", 0, 0},
        {"Invoice LEFT JOIN Customer ON Invoice.Customer = Customer.Customer WHERE DueDate <> InvoiceDate + Days OR "
         "Invoice.Terms <> Customer.Terms",
         0, 0},
        {"Invoice LEFT JOIN tmpPaid ON Invoice.ID = tmpPaid.Invoice WHERE DueDate < #3/30/2011# AND (ISNULL(Paid) OR "
         "Total - Paid > 0.01)",
         6, 1600},
        {"Payments", 1000, 2000},
        {"Payments LEFT JOIN Invoice ON Payments.Invoice = Invoice.ID WHERE Date < InvoiceDate OR Date > #3/30/2011#",
         0, 0},
        {"tmpPaid LEFT JOIN Invoice ON tmpPaid.Invoice = Invoice.ID WHERE Paid > Total + 0.000001", 0, 0},
        {"AdjustmentHeader", 200, 900},
        {"AdjustmentDetail", 800, 4000},
        {"TransferHeader", 50, 300},
        {"tmpOut LEFT JOIN AdjustmentHeader ON tmpOut.ToID = AdjustmentHeader.ID WHERE Warehouse = FromWhse OR Date "
         "<> FromDate",
         0, 0},
        {"tmpOut LEFT JOIN AdjustmentDetail ON tmpOut.ToID = AdjustmentDetail.AdjustmentID WHERE Qty <= 0", 0, 0},
        {"AvailInv", 200, 480},
        // A rebuild of the ledger keeps each of its sums in sixteen bits.
        {"tmpAdjusted WHERE Total > 32767 OR Total < -32768", 0, 0},
        {"tmpOrdered WHERE Total > 32767", 0, 0},
        {"FebInventory", 80, 120},
        {"Inventory", 20, 120},
    };
    const auto database = open(path("demo.db"));
    for (const char *note : notes)
        database->Execute(note);
    for (const auto &figure : figures) {
        const Recordset rows = database->OpenRecordset(QString("SELECT COUNT(*) FROM ") + figure.rows);
        const int count = rows.Fields(0).value().toLong();
        EXPECT_TRUE(count >= figure.least && count <= figure.most) << figure.rows << " has " << count;
    }
}

TEST_F(DemoTest, InvoicesListShipmentsOfTheirPastInOrder)
{
    const auto database = open(path("demo.db"));
    QHash<int, Date> shipped;
    for (Recordset rows = database->OpenRecordset("SELECT ID,Date FROM Shipment"); !rows.Eof(); rows.MoveNext())
        shipped[rows.Fields("ID").value().toLong()] = rows.Fields("Date").value().toDate();
    Recordset rows = database->OpenRecordset("SELECT Shipment,InvoiceDate FROM Invoice");
    for (; !rows.Eof(); rows.MoveNext()) {
        int last = 0;
        for (const QString &id : rows.Fields("Shipment").text().split(", ")) {
            EXPECT_GT(id.toInt(), std::exchange(last, id.toInt()));
            EXPECT_LE(shipped[id.toInt()], rows.Fields("InvoiceDate").value().toDate()) << id.toStdString();
        }
    }
}

} // namespace
