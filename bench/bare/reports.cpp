#include "bench/bare/engine.h"
#include "bench/bare/joins.h"
#include "bench/bare/operations.h"

namespace {

void comparisonPeriod(BareEngine &engine, const QByteArray &columns, const QByteArray &begin, const QByteArray &end)
{
    engine.run(
        "INSERT INTO tmpSalesByCustomer (Customer," + columns +
        ") SELECT Orders.Customer, SUM(ShipmentItems.Qty*OrderItem.PriceEach), SUM(ShipmentItems.Qty*Part.Cost)" +
        Bare::Joins::FromShipments +
        "LEFT JOIN Part ON Part.PartNo = OrderItem.PartNo WHERE Shipment.InvoiceDate >= '" + begin +
        "' AND Shipment.InvoiceDate <= '" + end + "' GROUP BY +Orders.Customer");
}

/// Fills the register's scratch table with all that has moved stock up to a date.
void movements(BareEngine &engine, const QByteArray &end)
{
    const QByteArray head = "INSERT INTO tmpInventoryRegister (Warehouse,PartNo,Date,Qty,Cost,Memo) SELECT ";
    const QByteArray line = head + "H.Warehouse,D.PartNo,H.Date,D.Qty,P.Cost,";
    const QByteArray part = "LEFT JOIN Part P ON P.PartNo = ", until = "Date <= '" + end + "'";
    engine.run("DELETE FROM tmpInventoryRegister");
    for (const QByteArray side : {"FromID", "ToID"})
        engine.run(line + "'Transfer ID - '||T.ID" + Bare::Joins::fromTransfers(side) + part + "D.PartNo WHERE H." +
                   until);
    engine.run(line + "'Adjustment ID - '||H.ID" + Bare::Joins::FromAdjustments + part + "D.PartNo" +
               Bare::Joins::WhereNoTransfer + "AND H." + until);
    engine.run(head +
               "Orders.Warehouse,OrderItem.PartNo,Shipment.Date,ShipmentItems.Qty*-1,P.Cost,'Shipment ID - "
               "'||Shipment.ID" +
               Bare::Joins::FromShippedLines + part + "OrderItem.PartNo WHERE Shipment." + until);
}

/// A new table of the columns given, empty.
void recreate(BareEngine &engine, const QByteArray &table, const QByteArray &columns)
{
    engine.run("DROP TABLE IF EXISTS " + table + "; CREATE TABLE " + table + " (" + columns + ")");
}

void copyPayments(BareEngine &engine, const QByteArray &asOf)
{
    recreate(engine, "tmpPayments", "ID INTEGER, Invoice INTEGER, Date TEXT, Amount REAL, Adjustment REAL");
    engine.run("INSERT INTO tmpPayments SELECT ID,Invoice,Date,Amount,Adjustment FROM Payments WHERE Date <= '" + asOf +
               "'");
}

} // namespace

void Bare::refillInvoiceDates(BareEngine &engine)
{
    engine.run("UPDATE Shipment SET InvoiceDate = NULL");
    BareEngine::Statement invoices(
        engine, "SELECT InvoiceDate,Shipment FROM Invoice WHERE Shipment <> '0' ORDER BY Shipment COLLATE NOCASE");
    std::vector<std::pair<QByteArray, QByteArray>> rows;
    while (invoices.step())
        rows.emplace_back(invoices.text(0), invoices.text(1));
    for (const auto &[date, list] : rows)
        engine.run("UPDATE Shipment SET InvoiceDate = '" + date + "' WHERE ID IN (" + list + ")");
}

void Bare::salesByPart(BareEngine &engine, const QByteArray &begin, const QByteArray &end)
{
    engine.run("SELECT OrderItem.PartNo,Orders.Customer,Shipment.ID,Shipment.Date,ShipmentItems.Qty,"
               "ShipmentItems.Qty*OrderItem.PriceEach,ShipmentItems.Qty*Part.Cost" +
               Bare::Joins::FromShipments +
               "CROSS JOIN Part ON Part.PartNo = OrderItem.PartNo WHERE Shipment.InvoiceDate >= '" + begin +
               "' AND Shipment.InvoiceDate <= '" + end +
               "' ORDER BY +OrderItem.PartNo,+Shipment.Date,+Orders.Customer");
}

void Bare::salesByCustomer(BareEngine &engine, const QByteArray &begin, const QByteArray &end,
                           const QByteArray &lastBegin, const QByteArray &lastEnd, const QByteArray &yearStart,
                           const QByteArray &lastYearStart)
{
    engine.run("DELETE FROM tmpSalesByCustomer");
    comparisonPeriod(engine, "CurrentPeriodSales,CurrentPeriodCosts", begin, end);
    comparisonPeriod(engine, "LastYearPeriodSales,LastYearPeriodCosts", lastBegin, lastEnd);
    comparisonPeriod(engine, "TYTDSales,TYTDCosts", yearStart, end);
    comparisonPeriod(engine, "LYTDSales,LYTDCosts", lastYearStart, lastEnd);
    engine.run("SELECT Customer,SUM(CurrentPeriodSales),SUM(CurrentPeriodCosts),SUM(LastYearPeriodSales),"
               "SUM(LastYearPeriodCosts),SUM(TYTDSales),SUM(TYTDCosts),SUM(LYTDSales),SUM(LYTDCosts) FROM "
               "tmpSalesByCustomer GROUP BY Customer ORDER BY Customer");
}

void Bare::inventoryRegister(BareEngine &engine, const QByteArray &begin, const QByteArray &end)
{
    const QByteArray head = "INSERT INTO tmpInventoryRegister2 (Warehouse,PartNo,Date,Qty,Cost,Memo) ";
    movements(engine, end);
    engine.run("DELETE FROM tmpInventoryRegister2");
    engine.run(head + "SELECT Warehouse,PartNo,'" + begin +
               "',SUM(Qty),Cost,'*Beginning Balance' FROM tmpInventoryRegister WHERE Date < '" + begin +
               "' GROUP BY Warehouse,PartNo,Cost");
    engine.run(head + "SELECT Warehouse,PartNo,Date,Qty,Cost,Memo FROM tmpInventoryRegister WHERE Date >= '" + begin +
               "'");
    engine.run("SELECT Warehouse,PartNo,Date,Qty,Cost,Memo FROM tmpInventoryRegister2 ORDER BY "
               "Warehouse,PartNo,Date,Memo,Qty");
}

void Bare::inventorySales(BareEngine &engine, const QByteArray &begin, const QByteArray &end)
{
    movements(engine, end);
    engine.run(
        "DELETE FROM tmpTransferHeaderIDs; INSERT INTO tmpTransferHeaderIDs (ID) SELECT FromID FROM TransferHeader; "
        "INSERT INTO tmpTransferHeaderIDs (ID) SELECT ToID FROM TransferHeader");
    const QByteArray sold = "SELECT OrderItem.PartNo, SUM(ShipmentItems.Qty)" + Bare::Joins::FromShipments;
    recreate(engine, "tmpInventoryRegister3", "PartNo TEXT COLLATE NOCASE, MonthSalesQty REAL");
    engine.run("INSERT INTO tmpInventoryRegister3 " + sold + "WHERE Shipment.Date >= '" + begin +
               "' AND Shipment.Date <= '" + end + "' GROUP BY +OrderItem.PartNo");
    recreate(engine, "tmpInventoryRegister4", "PartNo TEXT COLLATE NOCASE, PrevSalesQty REAL");
    engine.run("INSERT INTO tmpInventoryRegister4 " + sold +
               "WHERE Shipment.Date >= '2003-02-28 00:00:00' AND Shipment.Date < '" + begin +
               "' GROUP BY +OrderItem.PartNo");
    recreate(
        engine, "tmpJuniorSpeedTest",
        "Part TEXT COLLATE NOCASE, Cost REAL, Qty REAL, MonthSalesQty REAL, PrevSalesQty REAL, CurrentInventory REAL");
    engine.run(
        "INSERT INTO tmpJuniorSpeedTest SELECT F.Part,P.Cost,F.Qty,R3.MonthSalesQty,R4.PrevSalesQty,S.Q FROM "
        "FebInventory F "
        "LEFT JOIN Part P ON P.PartNo = F.Part LEFT JOIN tmpInventoryRegister3 R3 ON R3.PartNo = F.Part LEFT JOIN "
        "tmpInventoryRegister4 R4 ON R4.PartNo = F.Part LEFT JOIN (SELECT PartNo, SUM(Qty) AS Q FROM "
        "tmpInventoryRegister GROUP BY PartNo) S ON S.PartNo = F.Part; SELECT * FROM tmpJuniorSpeedTest");
}

void Bare::production(BareEngine &engine, const QByteArray &start, const QByteArray &end)
{
    const QByteArray stock = "INSERT INTO tmpProductionInventoryRegister (Warehouse,PartNo,Qty) ";
    engine.run("DELETE FROM tmpProductionSummary");
    engine.run("INSERT INTO tmpProductionSummary (Warehouse,PartNo,Months,Req,QtySold) SELECT "
               "Orders.Warehouse,OrderItem.PartNo,3,2,"
               "ShipmentItems.Qty" +
               Bare::Joins::FromShipments + "WHERE Shipment.InvoiceDate >= '" + start +
               "' AND Shipment.InvoiceDate <= '" + end + "' ORDER BY +Orders.Warehouse,+OrderItem.PartNo");
    engine.run("DELETE FROM tmpProductionInventoryRegister");
    const QByteArray line = stock + "SELECT H.Warehouse,D.PartNo,D.Qty";
    for (const QByteArray side : {"FromID", "ToID"})
        engine.run(line + Joins::fromTransfers(side));
    engine.run(line + Joins::FromAdjustments + Joins::WhereNoTransfer);
    engine.run(stock + "SELECT Orders.Warehouse,OrderItem.PartNo,ShipmentItems.Qty*-1" + Joins::FromShippedLines +
               "WHERE Shipment.Invoiced");
    engine.run("INSERT INTO tmpProductionSummary (Warehouse,PartNo,Months,Req,QtyOnHand) SELECT "
               "Warehouse,PartNo,3,2,SUM(Qty) FROM "
               "tmpProductionInventoryRegister GROUP BY Warehouse,PartNo; DELETE FROM tmpProductionInventoryRegister");
    engine.run(stock +
               "SELECT Orders.Warehouse,OrderItem.PartNo,OrderItem.Qty FROM Orders LEFT JOIN OrderItem ON Orders.ID = "
               "OrderItem.OrderID WHERE Orders.ID NOT IN (SELECT OrderID FROM Shipment)");
    engine.run(
        stock +
        "SELECT Orders.Warehouse,OrderItem.PartNo,ShipmentItems.Qty FROM Shipment CROSS JOIN Orders ON Orders.ID = "
        "Shipment.OrderID CROSS JOIN OrderItem ON OrderItem.OrderID = Orders.ID LEFT JOIN ShipmentItems ON "
        "ShipmentItems.OrderID = OrderItem.OrderID AND ShipmentItems.OrderLineItem = OrderItem.ItemNumber WHERE NOT "
        "Shipment.Invoiced");
    engine.run(
        "INSERT INTO tmpProductionSummary (Warehouse,PartNo,Months,Req,QtyCommitted) SELECT "
        "Warehouse,PartNo,3,2,SUM(Qty) FROM "
        "tmpProductionInventoryRegister GROUP BY Warehouse,PartNo; SELECT Warehouse,PartNo,Months,Req,SUM(QtySold),"
        "SUM(QtyOnHand),SUM(QtyCommitted) FROM tmpProductionSummary GROUP BY Warehouse,PartNo,Months,Req ORDER BY "
        "Warehouse,PartNo");
}

void Bare::openInvoices(BareEngine &engine, const QByteArray &asOf, const QByteArray &limit)
{
    copyPayments(engine, asOf);
    recreate(engine, "tmpOpenInvoices",
             "Customer TEXT COLLATE NOCASE, ID INTEGER, Invoice TEXT COLLATE NOCASE, InvoiceDate TEXT, DueDate TEXT, "
             "Terms TEXT COLLATE "
             "NOCASE, Shipment TEXT COLLATE NOCASE, Total REAL, Adjustment REAL, Received REAL");
    engine.run("INSERT INTO tmpOpenInvoices SELECT "
               "I.Customer,I.ID,I.Invoice,I.InvoiceDate,I.DueDate,I.Terms,I.Shipment,I.Total,"
               "SUM(P.Adjustment),SUM(P.Amount) FROM Invoice I LEFT JOIN tmpPayments P ON I.ID = P.Invoice WHERE "
               "I.InvoiceDate <= '" +
               asOf + "' GROUP BY I.ID ORDER BY I.Customer,I.Invoice");
    engine.run("UPDATE tmpOpenInvoices SET Received = 0 WHERE Received IS NULL; UPDATE tmpOpenInvoices SET Adjustment "
               "= 0 WHERE "
               "Adjustment IS NULL");
    if (!limit.isEmpty()) {
        engine.run("CREATE INDEX tmpOpenInvoicesCustomer ON tmpOpenInvoices(Customer)");
        std::vector<QByteArray> drop;
        BareEngine::Statement customers(
            engine, "SELECT Customer, MAX(InvoiceDate < '" + limit +
                        "' AND Total - Received - Adjustment > 0.001) FROM tmpOpenInvoices GROUP BY Customer");
        while (customers.step()) {
            if (customers.number(1) == 0)
                drop.push_back(customers.text(0));
        }
        for (const QByteArray &customer : drop)
            engine.run("DELETE FROM tmpOpenInvoices WHERE Customer = '" + customer + "'");
    }
    engine.run(
        "SELECT O.Customer,Phone,Fax,Invoice,InvoiceDate,DueDate,O.Terms,Shipment,Total,Adjustment,Received FROM "
        "tmpOpenInvoices O LEFT JOIN Customer C ON O.Customer = C.Customer WHERE InvoiceDate <= '" +
        asOf + "' ORDER BY O.Customer,O.ID");
}

void Bare::statements(BareEngine &engine, const QByteArray &asOf)
{
    copyPayments(engine, asOf);
    recreate(engine, "tmpOpenInvoices",
             "Customer TEXT COLLATE NOCASE, Address1 TEXT, Address2 TEXT, City TEXT, State TEXT, Zip TEXT, ID INTEGER, "
             "Invoice TEXT "
             "COLLATE NOCASE, InvoiceDate TEXT, DueDate TEXT, Terms TEXT, Shipment TEXT, Total REAL, Adjustment REAL, "
             "Received REAL");
    engine.run("INSERT INTO tmpOpenInvoices SELECT "
               "I.Customer,C.Address1,C.Address2,C.City,C.State,C.Zip,I.ID,I.Invoice,I.InvoiceDate,"
               "I.DueDate,I.Terms,I.Shipment,I.Total,SUM(P.Adjustment),SUM(P.Amount) FROM Invoice I JOIN Customer C ON "
               "I.Customer = "
               "C.Customer LEFT JOIN tmpPayments P ON I.ID = P.Invoice WHERE I.InvoiceDate <= '" +
               asOf + "' AND C.PrintStatements GROUP BY I.ID ORDER BY I.Customer,I.Invoice");
    engine.run("UPDATE tmpOpenInvoices SET Received = 0 WHERE Received IS NULL; UPDATE tmpOpenInvoices SET Adjustment "
               "= 0 WHERE "
               "Adjustment IS NULL; SELECT * FROM tmpOpenInvoices WHERE InvoiceDate <= '" +
               asOf + "' ORDER BY Customer,ID");
}

void Bare::openOrders(BareEngine &engine)
{
    recreate(engine, "tmpShipped", "OrderID INTEGER, OrderLineItem INTEGER, Shipped REAL");
    engine.run("INSERT INTO tmpShipped SELECT OrderID,OrderLineItem,SUM(Qty) FROM ShipmentItems GROUP BY "
               "OrderID,OrderLineItem");
    engine.run("SELECT "
               "O.ID,O.OrderNumber,O.OrderDate,O.Customer,C.Address1,C.Address2,C.City,C.State,C.Zip,O.ShipTo,O."
               "ShipToAddress1,"
               "O.ShipToAddress2,O.ShipToCity,O.ShipToState,O.ShipToZip,I.ItemNumber,I.PartNo,P.Category,I."
               "CustomerNumber,I.Qty,S.Shipped "
               "FROM Orders O LEFT JOIN Customer C ON O.Customer = C.Customer LEFT JOIN OrderItem I ON I.OrderID = "
               "O.ID LEFT JOIN Part P "
               "ON P.PartNo = I.PartNo LEFT JOIN tmpShipped S ON S.OrderID = I.OrderID AND S.OrderLineItem = "
               "I.ItemNumber WHERE "
               "O.Status = 'Open' ORDER BY O.ID,I.ItemNumber");
}

void Bare::invoiceRegister(BareEngine &engine, const QByteArray &begin, const QByteArray &end)
{
    engine.run("DELETE FROM tmpARTran");
    BareEngine::Statement invoices(
        engine, "SELECT Customer,Invoice,InvoiceDate,DueDate,Terms,Shipment,Total,Cost FROM Invoice WHERE "
                "InvoiceDate >= '" +
                    begin + "' AND InvoiceDate <= '" + end + "' ORDER BY InvoiceDate,Invoice");
    BareEngine::Statement insert(
        engine, "INSERT INTO tmpARTran (Customer,Invoice,InvoiceDate,DueDate,Terms,Shipment,Total,Freight,"
                "Adjustment,Cost) VALUES (?,?,?,?,?,?,?,?,?,?)");
    while (invoices.step()) {
        BareEngine::Statement sums(engine, "SELECT SUM(Freight),SUM(Adjustment) FROM Shipment WHERE ID IN (" +
                                               invoices.text(5) + ")");
        sums.step();
        for (int column = 0; column < 6; ++column)
            insert.bind(column + 1, invoices.text(column));
        insert.bind(7, invoices.number(6)).bind(8, sums.number(0)).bind(9, sums.number(1)).bind(10, invoices.number(7));
        insert.step();
        insert.reset();
    }
    engine.run("SELECT Customer,Invoice,InvoiceDate,DueDate,Terms,Shipment,Total,Freight,Adjustment,Cost FROM "
               "tmpARTran ORDER BY "
               "InvoiceDate,Invoice");
}

void Bare::quickAvailInv(BareEngine &engine)
{
    recreate(engine, "tmpWhsePart", "Warehouse TEXT COLLATE NOCASE, PartNo TEXT COLLATE NOCASE");
    engine.run("INSERT INTO tmpWhsePart SELECT Warehouse,PartNo FROM Warehouse,Part ORDER BY Warehouse,PartNo; SELECT "
               "W.Warehouse,W.PartNo,A.Avail FROM tmpWhsePart W LEFT JOIN AvailInv A ON W.PartNo = A.Part AND "
               "W.Warehouse = A.Whse "
               "ORDER BY W.Warehouse,W.PartNo");
}
