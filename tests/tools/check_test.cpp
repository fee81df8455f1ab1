#include "tests/tools/toolstest.h"

#include "data/engines/sqlite/connection.h"

namespace {

class CheckTest : public ToolsTest
{
protected:
    void SetUp() override { ASSERT_EQ(run({"demo", path("sound.db"), "--until=2011-03-30"}).status, 0); }

    /// What check says of the sound company after a change by another tool.
    Outcome checkAfter(const char *sql)
    {
        QFile::remove(path("c.db"));
        EXPECT_TRUE(QFile::copy(path("sound.db"), path("c.db")));
        {
            ConnectionOptions options;
            options.file = path("c.db");
            Connection connection(options);
            connection.run(sql, {});
        }
        return run({"check", path("c.db")});
    }
};

TEST_F(CheckTest, SaysOkOfASoundDatabase)
{
    const Outcome outcome = run({"check", path("sound.db")});
    EXPECT_EQ(outcome.out, "ok\n");
    EXPECT_EQ(outcome.status, 0);
}

TEST_F(CheckTest, NamesTheTableAndTheRowsOfEachFault)
{
    const struct
    {
        const char *change, *says;
    } rows[] = {
        {"INSERT INTO Customer (Customer) SELECT upper(Customer) FROM Customer WHERE rowid = 1",
         "Customer: names that stand there twice: "},
        {"UPDATE Customer SET Customer = 'a' || char(10) || 'b', Status = 'Gone' WHERE rowid = 1",
         "Customer: Status is neither Active nor InActive: a b\n"},
        {"UPDATE Customer SET Status = 'Gone' WHERE rowid = 1", "Customer: Status is neither Active nor InActive: "},
        {"UPDATE Customer SET Days = 'x' WHERE rowid = 3", "Customer: no number in Days: row 3\n"},
        {"UPDATE Customer SET DateAdded = '3/30/2011' WHERE rowid = 3", "Customer: no date in DateAdded: row 3\n"},
        {"UPDATE Customer SET PrintStatements = -1 WHERE rowid = 3",
         "Customer: neither yes nor no in PrintStatements: row 3\n"},
        {"UPDATE Customer SET City = printf('%.60c', 'x') WHERE rowid = 3",
         "Customer: text longer than the 50 characters of City: row 3\n"},
        {"UPDATE Part SET SalePrice = NULL WHERE PartNo = 'BV100-2P-BR'",
         "Part: no Category, Cost or SalePrice (Null)"},
        {"INSERT INTO Part (PartNo, Category) VALUES ('bv100-2p-br', '')", "Part: numbers that stand there twice: "},
        {"INSERT INTO Warehouse (Warehouse) VALUES (NULL)", "Warehouse: rows without a name: row "},
        {"UPDATE PriceSheet SET Part = 'nothing' WHERE rowid = 1", "PriceSheet: parts that are not in Part: nothing\n"},
        {"INSERT INTO PriceSheet SELECT * FROM PriceSheet WHERE rowid = 1",
         "PriceSheet: parts that stand twice on a sheet: "},
        {"UPDATE Orders SET Customer = 'Nobody' WHERE ID = 7", "Orders: customers that are not in Customer: ID 7\n"},
        {"UPDATE Orders SET Warehouse = NULL WHERE ID = 7", "Orders: warehouses that are not in Warehouse: ID 7\n"},
        {"UPDATE Orders SET Status = 'Shut' WHERE ID IN (7, 8)",
         "Orders: Status is none of Open, Closed and Void: ID 7; ID 8\n"},
        {"UPDATE Orders SET Total = Total + 1 WHERE ID <= 5",
         "Orders: Total is not the sum of the lines: ID 1; ID 2; ID 3 and 2 more\n"},
        {"INSERT INTO OrderItem (OrderID, ItemNumber, PartNo) VALUES (7, 1, 'BV100-2P-BR')",
         "OrderItem: ItemNumbers that stand twice in an order: OrderID 7 item 1\n"},
        {"UPDATE OrderItem SET ItemNumber = 90 WHERE OrderID = 7 AND ItemNumber = 1",
         "OrderItem: ItemNumbers do not run from 1 without a gap: OrderID 7\n"},
        {"UPDATE OrderItem SET PartNo = 'x' WHERE OrderID = 7 AND ItemNumber = 1",
         "OrderItem: parts that are not in Part: OrderID 7 item 1\n"},
        {"INSERT INTO OrderItem (OrderID, ItemNumber, PartNo) VALUES (77777, 1, 'BV100-2P-BR')",
         "OrderItem: lines of orders that do not exist: OrderID 77777\n"},
        {"UPDATE Shipment SET OrderID = 77777 WHERE ID = 7", "Shipment: orders that do not exist: ID 7\n"},
        {"UPDATE Shipment SET OrderID = OrderID + 1 WHERE ID = 7",
         "ShipmentItems: another order than their shipment's: ShipmentID 7"},
        {"UPDATE ShipmentItems SET OrderLineItem = 99 WHERE rowid = 1",
         "ShipmentItems: order lines that do not exist: ShipmentID 1 line 99\n"},
        {"DELETE FROM Shipment WHERE ID = 7", "ShipmentItems: lines of shipments that do not exist: ShipmentID 7\n"},
        {"DELETE FROM Shipment WHERE ID = 7", "Invoice: shipments on the list that do not exist: ID "},
        {"UPDATE Shipment SET Invoiced = 0 WHERE ID = 7",
         "Shipment: on an invoice, and not marked as invoiced: ID 7\n"},
        {"UPDATE Shipment SET Invoiced = 1", "Shipment: marked as invoiced, and on no invoice: ID "},
        {"UPDATE Invoice SET Total = Total + 0.02 WHERE ID = 7",
         "Invoice: Total is not lines plus freight plus adjustment: ID 7\n"},
        {"UPDATE Shipment SET Freight = Freight + 1 WHERE ID = 7",
         "Invoice: Total is not lines plus freight plus adjustment: ID "},
        {"UPDATE Invoice SET Shipment = '' WHERE ID = 7", "Invoice: Shipment is no list of IDs"},
        {"UPDATE Invoice SET Shipment = NULL WHERE ID = 7", "Invoice: Shipment is no list of IDs"},
        {"UPDATE Invoice SET Shipment = Shipment || ', 1' WHERE ID = 70",
         "Shipment: billed twice: ID 1 on the invoices "},
        {"UPDATE ShipmentItems SET Qty = Qty + 10000 WHERE rowid = 1",
         "OrderItem: more shipped than ordered: OrderID 1 line 1: ordered "},
        {"UPDATE AvailInv SET Avail = Avail + 7 WHERE rowid = 1",
         "AvailInv: figures that documents do not account for, until a rebuild: "},
        {"DELETE FROM AvailInv WHERE rowid = 1", " has 0, a rebuild gives "},
        {"UPDATE Customer SET Terms = NULL WHERE rowid = 3",
         "Customer: no Terms (Null), which ends the program in the "},
        {"UPDATE Customer SET Days = 9999999 WHERE rowid = 3", "Customer: Days that lead beyond the last date"},
        {"UPDATE Customer SET Customer = 'O''Brien' WHERE rowid = 3",
         "Customer: an apostrophe in Customer, which ends the program where it is used: O'Brien\n"},
        {"UPDATE Orders SET ShipToZip = NULL WHERE ID = 7",
         "Orders: no ShipToZip (Null), which ends the program where the order is shipped: ID 7\n"},
        {"UPDATE Orders SET ID = 40000 WHERE ID = 7",
         "Orders: IDs above 32767, whose orders no longer open (error 6): ID 40000\n"},
        {"UPDATE Invoice SET Total = NULL WHERE ID = 7", "Invoice: no Total (Null)"},
        {"UPDATE AvailInv SET Avail = NULL WHERE rowid = 1", "AvailInv: no Avail (Null), which ends the program at "},
        {"UPDATE Invoice SET Customer = 'Nobody' WHERE ID = 7", "Invoice: customers that are not in Customer: ID 7\n"},
        {"UPDATE Invoice SET Invoice = '8' WHERE ID = 7", "Invoice: numbers that stand there twice: 8\n"},
        {"UPDATE Invoice SET InvoiceDate = NULL WHERE ID = 7", "Invoice: no InvoiceDate (Null)"},
        {"UPDATE Payments SET Invoice = 77777 WHERE ID = 7", "Payments: invoices that do not exist: ID 7\n"},
        {"UPDATE AdjustmentHeader SET Warehouse = 'Moon' WHERE ID = 1",
         "AdjustmentHeader: warehouses that are not in Warehouse: ID 1\n"},
        {"UPDATE AdjustmentDetail SET AdjustmentID = 77777 WHERE rowid = 1",
         "AdjustmentDetail: lines of adjustments that do not exist: AdjustmentID 77777\n"},
        {"UPDATE TransferHeader SET FromID = NULL WHERE ID = 1", "TransferHeader: a half that does not exist: ID 1\n"},
        {"UPDATE TransferHeader SET FromID = (SELECT FromID FROM TransferHeader WHERE ID = 2) WHERE ID = 1",
         "TransferHeader: a half that belongs to another transfer too: adjustment "},
        {"UPDATE AdjustmentDetail SET Qty = Qty + 1 WHERE AdjustmentID = (SELECT ToID FROM TransferHeader WHERE ID = "
         "1)",
         "TransferHeader: halves that do not cancel out: ID 1\n"},
        {"INSERT INTO AvailInv SELECT * FROM AvailInv WHERE rowid = 1",
         "AvailInv: rows that stand twice for a warehouse and part: "},
        {"UPDATE AvailInv SET Whse = 'Moon' WHERE rowid = 1", "AvailInv: warehouses or parts that do not exist: Moon "},
        {"UPDATE FebInventory SET Part = 'x' WHERE rowid = 1", "FebInventory: parts that are not in Part: x\n"},
        {"DROP TABLE tmpARTran", "tmpARTran: the table is missing\n"},
        {"ALTER TABLE Payments DROP COLUMN Adjustment", "Payments: missing columns: Adjustment\n"},
    };
    for (const auto &row : rows) {
        const Outcome outcome = checkAfter(row.change);
        EXPECT_EQ(outcome.status, 1) << row.change;
        EXPECT_TRUE(outcome.out.contains(row.says)) << row.change << " gave\n" << outcome.out.toStdString();
    }
}

TEST_F(CheckTest, BearsWhatTheProgramItselfMayLeaveBehind)
{
    const char *const changes[] = {
        "UPDATE Orders SET Status = 'Closed'", // by hand
        "INSERT INTO AdjustmentHeader (Date, Warehouse) SELECT Date, Warehouse FROM AdjustmentHeader WHERE ID = 1",
        "INSERT INTO Invoice (Invoice, Customer, InvoiceDate, DueDate, Terms, Shipment, Total) SELECT 'A1', Customer, "
        "InvoiceDate, DueDate, Terms, '0', 5 FROM Invoice WHERE ID = 1",
        // shipped since the ledger was rebuilt
        "UPDATE AvailInv SET Avail = Avail + 2 * (SELECT sum(l.Qty) FROM ShipmentItems AS l JOIN OrderItem AS i ON "
        "i.OrderID = l.OrderID AND i.ItemNumber = l.OrderLineItem JOIN Orders AS o ON o.ID = i.OrderID WHERE "
        "l.ShipmentID "
        ">= 2300 AND o.Warehouse = Whse AND i.PartNo = Part) WHERE EXISTS (SELECT 1 FROM ShipmentItems AS l JOIN "
        "OrderItem AS i ON i.OrderID = l.OrderID AND i.ItemNumber = l.OrderLineItem JOIN Orders AS o ON o.ID = "
        "i.OrderID "
        "WHERE l.ShipmentID >= 2300 AND o.Warehouse = Whse AND i.PartNo = Part)",
        "UPDATE Orders SET Customer = lower(Customer) WHERE ID = 1",
    };
    for (const char *change : changes)
        EXPECT_EQ(checkAfter(change).out, "ok\n") << change;
}

TEST_F(CheckTest, HoldsTheSettingsAgainstTheDatabase)
{
    const QByteArray head = "Settings\nDatabase,\"x\"\nWarehouse,", tail = "\nReserved,0\nPrices,YES\nSeconds,1.5\n";
    const QByteArray known =
        open(path("sound.db"))->OpenRecordset("SELECT Warehouse FROM Warehouse").Fields(0).text().toUtf8();
    const auto with = [&](const QByteArray &settings) {
        return run({"check", path("sound.db"), "--config", fileWith("config.txt", settings)});
    };
    EXPECT_EQ(with(head + '"' + known.toUpper() + '"' + tail).out, "ok\n");
    EXPECT_EQ(with(head + tail).out, "ok\n") << "no default is fine";
    EXPECT_EQ(
        with(head + "Moon" + tail).out,
        "config.txt: the default warehouse is not an active one, which ends order entry (error 383): Moon does not "
        "exist\n");
    EXPECT_EQ(with(head + "Moon").out.section(':', 0, 1),
              "config.txt: ends too early, which ends the program at its start");
    EXPECT_EQ(run({"check", path("sound.db"), "--config", path("missing.txt")}).status, 1);
    EXPECT_EQ(run({"check", path("sound.db"), "--config"}).status, 1);
}

TEST_F(CheckTest, ReportsAFileThatIsDamagedInside)
{
    QFile file(path("sound.db"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_GT(file.size(), 400000);
    file.seek(file.size() / 2);
    file.write(QByteArray(8192, '\x7F'));
    file.close();
    const Outcome outcome = run({"check", path("sound.db")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.out + outcome.err, "");
}

} // namespace
