#include "reports/inventoryregisters.h"
#include "reportengine/report.h"
#include "reports/handover.h"
#include "reports/movements.h"
#include "toolkit/forms/mainmod.h"

namespace {

constexpr QLatin1String AllCategories("***All Categories***");

/// What belongs to one of the two forms of a register layout only.
constexpr std::array TotalsOnly{"secTotalsHeads", "secTotals", "secTotalsOfGroup", "secTotalsGrandTotal"};
constexpr std::array Details{"secHeads", "secPart", "secDetail", "secPartTotal", "secGroupFooter1", "secGrandTotal"};

/// Takes the whole history up to the end date, of which the begin date only cuts off the balance. A part that moved
/// before and came to nothing has a balance of 0; one that never moved has none.
void fillRegister(const QString &BeginDate, const QString &EndDate, const QString &Category)
{
    const QString filter = Category == AllCategories ? QString(" ") : " AND Part.Category = '" + Category + "'";
    Movements::clear();
    Movements::addTransfers(EndDate, filter);
    Movements::addAdjustments(EndDate, filter);
    Movements::addShipments(EndDate, filter);

    // The balance carries the begin date, and an asterisk that sorts before the movements of that day.
    gDatabase->Execute("DELETE * FROM tmpInventoryRegister2");
    gDatabase->Execute("INSERT INTO tmpInventoryRegister2 (Warehouse,PartNo,[Date],Qty,Cost,Memo) SELECT "
                       "Warehouse,PartNo,'" +
                       BeginDate + "',SUM(Qty),Cost,'*Beginning Balance' FROM tmpInventoryRegister WHERE Date < #" +
                       BeginDate + "# GROUP BY Warehouse,PartNo,Cost");
    gDatabase->Execute("INSERT INTO tmpInventoryRegister2 (Warehouse,PartNo,[Date],Qty,Cost,Memo) SELECT "
                       "Warehouse,PartNo,Date,Qty,Cost,Memo FROM tmpInventoryRegister WHERE "
                       "tmpInventoryRegister.Date >= #" +
                       BeginDate + "#");
}

template <class Names> void suppress(Report &report, const Names &names)
{
    for (const char *name : names)
        report.object(name).setSuppress(true);
}

void reportRegister(const char *designer, const QString &name, const QString &BeginDate, const QString &EndDate,
                    bool DisplayDetails, const QString &Category)
{
    HandOver handOver(HandOver::Pointer::Owned);
    fillRegister(BeginDate, EndDate, Category);
    Report &report = handOver.read(designer, gDatabase->OpenRecordset("SELECT Warehouse,PartNo,Date,Qty,Cost,Memo FROM "
                                                                      "tmpInventoryRegister2 ORDER BY "
                                                                      "Warehouse,PartNo,Date,Memo,Qty"));
    report.object("txtBeginDate").SetText(BeginDate);
    report.object("txtEndDate").SetText(EndDate);
    if (Category != AllCategories)
        report.object("txtCategory").SetText(Category);
    if (DisplayDetails)
        suppress(report, TotalsOnly);
    else
        suppress(report, Details);
    handOver.deliver(name + ", " + BeginDate + " to " + EndDate + (Category == AllCategories ? "" : ", " + Category));
}

} // namespace

void Reports::ReportAvailableInventory(const QString &BeginDate, const QString &EndDate, bool DisplayDetails,
                                       const QString &Category)
{
    reportRegister("crptAvailableInventory", "Available Inventory By Whse/Part", BeginDate, EndDate, DisplayDetails,
                   Category);
}

void Reports::ReportAvailableInventoryExport(const QString &BeginDate, const QString &EndDate, bool DisplayDetails,
                                             const QString &Category)
{
    reportRegister("crptAvailableInventoryExport", "Available Inventory By Whse/Part", BeginDate, EndDate,
                   DisplayDetails, Category);
}

void Reports::ReportAvailableInventoryByPart(const QString &BeginDate, const QString &EndDate, bool DisplayDetails,
                                             const QString &Category)
{
    reportRegister("crptAvailableInventoryByPart", "Available Inventory By Part/Whse", BeginDate, EndDate,
                   DisplayDetails, Category);
}

/// Every part under every warehouse, whether it ever stood there or not: a pair without a ledger row has Null.
void Reports::ReportQuickAvailInv(const QString &Warehouse)
{
    HandOver handOver(HandOver::Pointer::Owned);
    DropTableIfExists("tmpWhsePart");
    if (Warehouse == "***All Warehouses***")
        gDatabase->Execute("SELECT Warehouse,PartNo INTO tmpWhsePart FROM Warehouse,Part ORDER BY Warehouse, PartNo");
    else
        gDatabase->Execute("SELECT Warehouse,PartNo INTO tmpWhsePart FROM Warehouse,Part WHERE Warehouse = '" +
                           Warehouse + "' ORDER BY Warehouse, PartNo");
    handOver.read("crptNewAvailInv",
                  gDatabase->OpenRecordset("SELECT Warehouse,PartNo,Avail FROM tmpWhsePart LEFT JOIN AvailInv ON "
                                           "tmpWhsePart.PartNo = AvailInv.Part AND tmpWhsePart.Warehouse = "
                                           "AvailInv.Whse ORDER BY Warehouse,PartNo"));
    handOver.deliver("Quick Available Inv, " + QString(Warehouse).remove('*'));
}

/// One line for each part of the count taken on 2/28/2003, which stands fixed in the statements, and for no other part.
void Reports::ReportInventorySales(const QString &BeginDate, const QString &EndDate)
{
    HandOver handOver(HandOver::Pointer::Owned);
    Movements::clear();
    Movements::addTransfers(EndDate);
    Movements::addAdjustmentsByList(EndDate);
    Movements::addShipments(EndDate);

    const QString shippedLines =
        " FROM (((OrderItem LEFT JOIN Orders ON OrderItem.OrderID = Orders.ID) LEFT JOIN Shipment ON Orders.ID = "
        "Shipment.OrderID) LEFT JOIN ShipmentItems ON OrderItem.OrderID = ShipmentItems.OrderID AND "
        "OrderItem.ItemNumber = ShipmentItems.OrderLineItem) Where Shipment.id = ShipmentItems.ShipmentID ";
    DropTableIfExists("tmpinventoryregister3");
    gDatabase->Execute("SELECT OrderItem.PartNo, SUM(ShipmentItems.Qty) AS MonthSalesQty INTO tmpInventoryRegister3" +
                       shippedLines + "AND Shipment.Date >= #" + BeginDate + "# AND Shipment.Date <= #" + EndDate +
                       "# GROUP BY OrderItem.PartNo");
    // From the day of the count up to the day before the period, so that the two columns meet.
    DropTableIfExists("tmpinventoryregister4");
    gDatabase->Execute("SELECT OrderItem.PartNo, SUM(ShipmentItems.Qty) AS PrevSalesQty INTO tmpInventoryRegister4" +
                       shippedLines + "AND Shipment.Date >= #2/28/2003# AND Shipment.Date < #" + BeginDate +
                       "# GROUP BY OrderItem.PartNo");
    // The current stock is asked for part by part, over all movements. The front end joins the sums instead, where the
    // table has no index to look them up by.
    DropTableIfExists("tmpjuniorspeedtest");
    gDatabase->Execute(
        "SELECT FebInventory.Part, Part.Cost, "
        "FebInventory.Qty,tmpInventoryRegister3.MonthSalesQty,tmpInventoryRegister4.PrevSalesQty, (SELECT SUM(Qty) "
        "FROM tmpInventoryRegister WHERE PartNo = FebInventory.Part) AS CurrentInventory INTO tmpJuniorSpeedTest From "
        "(((FebInventory LEFT JOIN Part ON FebInventory.Part = Part.PartNo) LEFT JOIN tmpInventoryRegister3 ON "
        "FebInventory.Part = tmpInventoryRegister3.PartNo) LEFT JOIN tmpInventoryRegister4 ON FebInventory.Part = "
        "tmpInventoryRegister4.PartNo)");

    Report &report =
        handOver.read("crptInventorySalesReport", gDatabase->OpenRecordset("select * from tmpjuniorspeedtest"));
    report.object("txtBeginDate").SetText(BeginDate);
    report.object("txtEndDate").SetText(EndDate);
    handOver.deliver("Inventory Sales Report, " + BeginDate + " to " + EndDate);
}
