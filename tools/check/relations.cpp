#include "tools/check/findings.h"

namespace check {

namespace {

/// A query for the rows that break a rule; its first column tells which row.
struct Rule
{
    const char *table, *fault, *sql;
};

constexpr Rule Rules[] = {
    {"Customer", "rows without a name", "SELECT 'row ' || rowid FROM Customer WHERE coalesce(Customer, '') = ''"},
    {"Customer", "names that stand there twice", "SELECT Customer FROM Customer GROUP BY Customer HAVING count(*) > 1"},
    {"Customer", "Status is neither Active nor InActive",
     "SELECT Customer FROM Customer WHERE Status NOT IN ('Active', 'InActive', '')"},

    {"Part", "rows without a number", "SELECT 'row ' || rowid FROM Part WHERE coalesce(PartNo, '') = ''"},
    {"Part", "numbers that stand there twice", "SELECT PartNo FROM Part GROUP BY PartNo HAVING count(*) > 1"},
    {"Part", "Status is neither Active nor InActive",
     "SELECT PartNo FROM Part WHERE Status NOT IN ('Active', 'InActive', '')"},
    {"Part", "no Category, Cost or SalePrice (Null), which ends the program where parts are listed",
     "SELECT PartNo FROM Part WHERE Category IS NULL OR Cost IS NULL OR SalePrice IS NULL"},

    {"Warehouse", "rows without a name", "SELECT 'row ' || rowid FROM Warehouse WHERE coalesce(Warehouse, '') = ''"},
    {"Warehouse", "names that stand there twice",
     "SELECT Warehouse FROM Warehouse GROUP BY Warehouse HAVING count(*) > 1"},
    {"Warehouse", "Status is neither Active nor InActive",
     "SELECT Warehouse FROM Warehouse WHERE Status NOT IN ('Active', 'InActive', '')"},

    {"PriceSheet", "parts that are not in Part",
     "SELECT Part FROM PriceSheet AS p WHERE NOT EXISTS (SELECT 1 FROM Part WHERE PartNo = p.Part)"},
    {"PriceSheet", "parts that stand twice on a sheet",
     "SELECT PriceSheet || ' ' || Part FROM PriceSheet GROUP BY PriceSheet, Part HAVING count(*) > 1"},
    {"PriceSheet", "no Price (Null), which ends the program in order entry",
     "SELECT PriceSheet || ' ' || Part FROM PriceSheet WHERE Price IS NULL"},

    {"Orders", "customers that are not in Customer",
     "SELECT 'ID ' || ID FROM Orders AS o WHERE NOT EXISTS (SELECT 1 FROM Customer AS c WHERE c.Customer = "
     "o.Customer)"},
    {"Orders", "warehouses that are not in Warehouse",
     "SELECT 'ID ' || ID FROM Orders AS o WHERE NOT EXISTS (SELECT 1 FROM Warehouse AS w WHERE w.Warehouse = "
     "o.Warehouse)"},
    {"Orders", "Status is none of Open, Closed and Void",
     "SELECT 'ID ' || ID FROM Orders WHERE coalesce(Status, '') NOT IN ('Open', 'Closed', 'Void')"},
    {"Orders", "Total is not the sum of the lines",
     "SELECT 'ID ' || ID FROM Orders AS o WHERE abs(coalesce(Total, 0) - coalesce((SELECT sum(PriceExt) FROM "
     "OrderItem WHERE OrderID = o.ID), 0)) >= 0.005"},

    {"OrderItem", "lines of orders that do not exist",
     "SELECT DISTINCT 'OrderID ' || OrderID FROM OrderItem AS i WHERE NOT EXISTS (SELECT 1 FROM Orders WHERE ID = "
     "i.OrderID)"},
    {"OrderItem", "ItemNumbers that stand twice in an order",
     "SELECT 'OrderID ' || OrderID || ' item ' || ItemNumber FROM OrderItem GROUP BY OrderID, ItemNumber HAVING "
     "count(*) > 1"},
    {"OrderItem", "ItemNumbers do not run from 1 without a gap",
     "SELECT 'OrderID ' || OrderID FROM OrderItem GROUP BY OrderID HAVING min(ItemNumber) <> 1 OR max(ItemNumber) "
     "<> count(DISTINCT ItemNumber)"},
    {"OrderItem", "parts that are not in Part",
     "SELECT 'OrderID ' || OrderID || ' item ' || ItemNumber FROM OrderItem AS i WHERE NOT EXISTS (SELECT 1 FROM "
     "Part WHERE PartNo = i.PartNo)"},

    {"Shipment", "orders that do not exist",
     "SELECT 'ID ' || ID FROM Shipment AS s WHERE NOT EXISTS (SELECT 1 FROM Orders WHERE ID = s.OrderID)"},
    {"ShipmentItems", "lines of shipments that do not exist",
     "SELECT DISTINCT 'ShipmentID ' || ShipmentID FROM ShipmentItems AS i WHERE NOT EXISTS (SELECT 1 FROM Shipment "
     "WHERE ID = i.ShipmentID)"},
    {"ShipmentItems", "order lines that do not exist",
     "SELECT 'ShipmentID ' || ShipmentID || ' line ' || OrderLineItem FROM ShipmentItems AS i WHERE NOT EXISTS "
     "(SELECT 1 FROM OrderItem WHERE OrderID = i.OrderID AND ItemNumber = i.OrderLineItem)"},
    {"ShipmentItems", "another order than their shipment's",
     "SELECT 'ShipmentID ' || s.ID FROM ShipmentItems AS i JOIN Shipment AS s ON s.ID = i.ShipmentID WHERE i.OrderID "
     "IS NOT s.OrderID"},

    {"OrderItem", "more shipped than ordered",
     "SELECT 'OrderID ' || i.OrderID || ' line ' || i.ItemNumber || ': ordered ' || printf('%.10g', i.Qty) || ', "
     "shipped "
     "' || s.Qty || ' by shipments ' || s.IDs FROM OrderItem AS i JOIN (SELECT OrderID, OrderLineItem, sum(Qty) AS "
     "Qty, "
     "group_concat(ShipmentID, ', ') AS IDs FROM ShipmentItems GROUP BY OrderID, OrderLineItem) AS s ON s.OrderID = "
     "i.OrderID AND s.OrderLineItem = i.ItemNumber WHERE s.Qty > i.Qty AND i.Qty >= 0"},

    {"Invoice", "numbers that stand there twice", "SELECT Invoice FROM Invoice GROUP BY Invoice HAVING count(*) > 1"},
    {"Invoice", "customers that are not in Customer",
     "SELECT 'ID ' || ID FROM Invoice AS i WHERE NOT EXISTS (SELECT 1 FROM Customer AS c WHERE c.Customer = "
     "i.Customer)"},
    {"Invoice", "no InvoiceDate (Null), which ends the program in the sales reports",
     "SELECT 'ID ' || ID FROM Invoice WHERE InvoiceDate IS NULL"},
    {"Payments", "invoices that do not exist",
     "SELECT 'ID ' || ID FROM Payments AS p WHERE NOT EXISTS (SELECT 1 FROM Invoice WHERE ID = p.Invoice)"},

    {"AdjustmentHeader", "warehouses that are not in Warehouse",
     "SELECT 'ID ' || ID FROM AdjustmentHeader AS h WHERE NOT EXISTS (SELECT 1 FROM Warehouse AS w WHERE "
     "w.Warehouse = h.Warehouse)"},
    {"AdjustmentDetail", "lines of adjustments that do not exist",
     "SELECT DISTINCT 'AdjustmentID ' || AdjustmentID FROM AdjustmentDetail AS d WHERE NOT EXISTS (SELECT 1 FROM "
     "AdjustmentHeader WHERE ID = d.AdjustmentID)"},
    {"AdjustmentDetail", "parts that are not in Part",
     "SELECT 'AdjustmentID ' || AdjustmentID FROM AdjustmentDetail AS d WHERE NOT EXISTS (SELECT 1 FROM Part WHERE "
     "PartNo = d.PartNo)"},
    {"TransferHeader", "a half that does not exist",
     "SELECT 'ID ' || t.ID FROM TransferHeader AS t WHERE NOT EXISTS (SELECT 1 FROM AdjustmentHeader WHERE ID = "
     "t.FromID) OR NOT EXISTS (SELECT 1 FROM AdjustmentHeader WHERE ID = t.ToID)"},
    {"TransferHeader", "a half that belongs to another transfer too",
     "SELECT 'adjustment ' || Half FROM (SELECT FromID AS Half FROM TransferHeader UNION ALL SELECT ToID FROM "
     "TransferHeader) GROUP BY Half HAVING count(*) > 1"},
    {"TransferHeader", "halves that do not cancel out",
     "SELECT 'ID ' || t.ID FROM TransferHeader AS t WHERE EXISTS (SELECT 1 FROM AdjustmentDetail WHERE AdjustmentID "
     "IN (t.FromID, t.ToID) GROUP BY PartNo HAVING abs(sum(Qty)) > 0.000001)"},

    {"AvailInv", "rows that stand twice for a warehouse and part",
     "SELECT Whse || ' ' || Part FROM AvailInv GROUP BY Part, Whse HAVING count(*) > 1"},
    {"AvailInv", "warehouses or parts that do not exist",
     "SELECT Whse || ' ' || Part FROM AvailInv AS a WHERE NOT EXISTS (SELECT 1 FROM Warehouse WHERE Warehouse = "
     "a.Whse) OR NOT EXISTS (SELECT 1 FROM Part WHERE PartNo = a.Part)"},
    {"FebInventory", "parts that are not in Part",
     "SELECT Part FROM FebInventory AS f WHERE NOT EXISTS (SELECT 1 FROM Part WHERE PartNo = f.Part)"},
};

} // namespace

/// Rules are data: each is one statement whose rows are the findings. The file itself holds no foreign keys, since the
/// program has always written what it was given.
void checkRelations(Connection &connection, Findings &findings)
{
    for (const Rule &rule : Rules)
        reportRows(connection, findings, QString::fromLatin1(rule.table), QString::fromLatin1(rule.fault), rule.sql);
}

} // namespace check
