#include "reports/production.h"
#include "reportengine/report.h"
#include "reports/handover.h"
#include "reports/invoicedates.h"
#include "reports/saleswindow.h"
#include "toolkit/forms/mainmod.h"

namespace {

void execute(const char *statement)
{
    gDatabase->Execute(QLatin1String(statement));
}

/// What was invoiced in the window, a row per shipped line.
void addSold(const QString &constants, const SalesWindow &window)
{
    gDatabase->Execute(
        "INSERT INTO tmpProductionSummary (Warehouse,PartNo,Months,Req,QtySold) SELECT Orders.Warehouse, "
        "OrderItem.PartNo," +
        constants +
        ", ShipmentItems.Qty FROM Orders,OrderItem,Shipment,ShipmentItems WHERE Orders.ID = OrderItem.OrderID AND "
        "Orders.ID = Shipment.OrderID AND OrderItem.ItemNumber = ShipmentItems.OrderLineItem AND Shipment.ID = "
        "ShipmentItems.ShipmentID AND Shipment.InvoiceDate >= #" +
        window.StartDate + "# AND Shipment.InvoiceDate <= #" + window.EndDate +
        "# ORDER BY Orders.Warehouse,OrderItem.PartNo");
}

/// The movements of all time. Only invoiced shipments leave the stock here; what is shipped and not invoiced is still
/// on hand, and committed.
void collectOnHand()
{
    execute("DELETE * FROM tmpProductionInventoryRegister");
    execute("INSERT INTO tmpProductionInventoryRegister (Warehouse,PartNo,Qty) SELECT AdjustmentHeader.Warehouse, "
            "AdjustmentDetail.PartNo,AdjustmentDetail.Qty FROM ((TransferHeader LEFT JOIN AdjustmentHeader ON "
            "TransferHeader.FromID = AdjustmentHeader.ID) LEFT JOIN AdjustmentDetail ON AdjustmentHeader.ID = "
            "AdjustmentDetail.AdjustmentID)");
    execute("INSERT INTO tmpProductionInventoryRegister (Warehouse,PartNo,Qty) SELECT AdjustmentHeader.Warehouse, "
            "AdjustmentDetail.PartNo,AdjustmentDetail.Qty FROM ((TransferHeader LEFT JOIN AdjustmentHeader ON "
            "TransferHeader.ToID = AdjustmentHeader.ID) LEFT JOIN AdjustmentDetail ON AdjustmentHeader.ID = "
            "AdjustmentDetail.AdjustmentID)");
    execute("INSERT INTO tmpProductionInventoryRegister (Warehouse,PartNo,Qty) SELECT Warehouse, "
            "AdjustmentDetail.PartNo,Qty FROM ((AdjustmentHeader LEFT JOIN AdjustmentDetail ON AdjustmentHeader.ID = "
            "AdjustmentDetail.AdjustmentID)) WHERE AdjustmentHeader.ID NOT IN (SELECT FromID FROM TransferHeader) AND "
            "AdjustmentHeader.ID NOT IN (SELECT ToID FROM TransferHeader)");
    execute("INSERT INTO tmpProductionInventoryRegister (Warehouse,PartNo,Qty) SELECT Orders.WareHouse, "
            "OrderItem.PartNo,ShipmentItems.Qty*-1 FROM ((((ShipmentItems LEFT JOIN Shipment ON "
            "ShipmentItems.ShipmentID = Shipment.ID) LEFT JOIN Orders ON Shipment.OrderID = Orders.ID) LEFT JOIN "
            "OrderItem ON Orders.ID = OrderItem.OrderID)) WHERE ShipmentItems.OrderLineItem = OrderItem.ItemNumber "
            "AND Shipment.Invoiced = TRUE");
}

/// All lines of orders without any shipment, whatever the order's status, and what is shipped and not invoiced. The
/// shipped lines are not tied to their shipment: an order with two uninvoiced shipments counts each of them twice.
void collectCommitted()
{
    execute("DELETE * FROM tmpProductionInventoryRegister");
    execute("INSERT INTO tmpProductionInventoryRegister (Warehouse, PartNo, Qty) SELECT Orders.Warehouse, "
            "OrderItem.PartNo, OrderItem.Qty FROM Orders LEFT JOIN OrderItem ON Orders.ID = OrderItem.OrderID WHERE "
            "Orders.ID NOT IN (SELECT OrderID FROM Shipment)");
    execute("INSERT INTO tmpProductionInventoryRegister (Warehouse, PartNo, Qty) SELECT Orders.Warehouse, "
            "OrderItem.PartNo, ShipmentItems.Qty FROM (((Orders LEFT JOIN OrderItem ON Orders.ID = "
            "OrderItem.OrderID) LEFT JOIN Shipment ON Orders.ID = Shipment.OrderID) LEFT JOIN ShipmentItems ON "
            "OrderItem.OrderID = ShipmentItems.OrderID AND OrderItem.ItemNumber = ShipmentItems.OrderLineItem) WHERE "
            "Shipment.Invoiced = FALSE");
}

/// The three blocks of rows, each in its own quantity column.
void fillSummary(qint16 Months, qint16 Req)
{
    const QString constants = QString::number(Months) + "," + QString::number(Req);
    Reports::RefillShipmentInvoiceDates();
    execute("DELETE * FROM tmpProductionSummary");
    addSold(constants, salesWindow(Months));
    // One work list serves both blocks, emptied and filled for each.
    collectOnHand();
    gDatabase->Execute("INSERT INTO tmpProductionSummary (Warehouse,PartNo,Months,Req,QtyOnHand) SELECT "
                       "Warehouse,PartNo," +
                       constants + ", SUM(Qty) FROM tmpProductionInventoryRegister GROUP BY Warehouse,PartNo");
    collectCommitted();
    gDatabase->Execute("INSERT INTO tmpProductionSummary (Warehouse,PartNo,Months,Req,QtyCommitted) SELECT Warehouse, "
                       "PartNo," +
                       constants + ", SUM(Qty) FROM tmpProductionInventoryRegister GROUP BY Warehouse, PartNo");
}

QString title(const char *report, qint16 Months, qint16 Req)
{
    return QString("%1, %2 months, requirements %3").arg(QLatin1String(report)).arg(Months).arg(Req);
}

/// The part of both routines up to the point where their suppress formulas differ.
Report &bindSummary(HandOver &handOver, const char *designer, qint16 Months, qint16 Req, const QString &order)
{
    fillSummary(Months, Req);
    // The rows sum up by the two constants too, which are the same in all of them.
    Report &report = handOver.bind(
        designer,
        gDatabase->OpenRecordset("SELECT Warehouse, PartNo, Months, Req, SUM(QtySold) AS SumQtySold, SUM(QtyOnHand) AS "
                                 "SumQtyOnHand, SUM(QtyCommitted) AS SumQtyCommitted FROM tmpProductionSummary GROUP "
                                 "BY Warehouse, Partno, Months, Req ORDER BY " +
                                 order));
    // These two reports set their texts before the reading, all others after it.
    report.object("txtMonths").SetText(QString::number(Months));
    report.object("txtReq").SetText(QString::number(Req));
    return report;
}

} // namespace

void Reports::ReportProductionByWhsePart(qint16 Months, qint16 Req, bool SuppressBlank)
{
    HandOver handOver(HandOver::Pointer::NotOwned);
    Report &report = bindSummary(handOver, "crptProductionWhsePart", Months, Req, "Warehouse, PartNo");
    if (SuppressBlank)
        // A formula text must be set before the rows are read, when the layout is parsed.
        report.setFormulaText(4, "if ({@Req} = 0) then true");
    handOver.readRows();
    handOver.deliver(title("Production By Whse/Part", Months, Req));
}

void Reports::ReportProductionByPartWhse(qint16 Months, qint16 Req, bool SuppressBlank)
{
    HandOver handOver(HandOver::Pointer::NotOwned);
    Report &report = bindSummary(handOver, "crptProductionPartWhse", Months, Req, "PartNo,Warehouse");
    if (SuppressBlank) {
        report.setFormulaText(4, "if ({@Req} = 0) then true");
        report.setFormulaText(6, "if (Sum ({@Req}, {ProductionByWhsePartReport_ttx.PartNo}) = 0) then true");
    }
    handOver.readRows();
    handOver.deliver(title("Production By Part/Whse", Months, Req));
}
