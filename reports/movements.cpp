#include "reports/movements.h"
#include "toolkit/forms/mainmod.h"

namespace {

void add(const QString &select, const QString &EndDate, const QString &filter)
{
    gDatabase->Execute("INSERT INTO tmpInventoryRegister (Warehouse,PartNo,[Date],Qty,Cost,Memo)" + select + EndDate +
                       "# " + filter);
}

/// Quantities come as they are stored, negative on the sending side. Costs are today's, here and below.
QString transferSide(const QString &idColumn)
{
    return " SELECT AdjustmentHeader.Warehouse, AdjustmentDetail.PartNo,AdjustmentHeader.Date,AdjustmentDetail.Qty,"
           "Part.Cost,'Transfer ID - ' & TransferHeader.ID AS Memo FROM (((TransferHeader LEFT JOIN AdjustmentHeader "
           "ON " +
           idColumn +
           " = AdjustmentHeader.ID) LEFT JOIN AdjustmentDetail ON AdjustmentHeader.ID = "
           "AdjustmentDetail.AdjustmentID) LEFT JOIN Part ON AdjustmentDetail.PartNo = Part.PartNo) WHERE "
           "AdjustmentHeader.Date <= #";
}

/// `exclusion` is what keeps the transfers' adjustments out.
QString adjustments(const QString &exclusion)
{
    return " SELECT Warehouse, AdjustmentDetail.PartNo,Date,Qty,Cost,('Adjustment ID - ' &  AdjustmentHeader.ID) AS "
           "Memo FROM ((AdjustmentHeader LEFT JOIN AdjustmentDetail ON AdjustmentHeader.ID = "
           "AdjustmentDetail.AdjustmentID) LEFT JOIN Part ON AdjustmentDetail.PartNo = Part.PartNo) WHERE " +
           exclusion + " AND AdjustmentHeader.Date <= #";
}

} // namespace

void Movements::clear()
{
    gDatabase->Execute("DELETE * FROM tmpInventoryRegister");
}

void Movements::addTransfers(const QString &EndDate, const QString &filter)
{
    add(transferSide("TransferHeader.FromID"), EndDate, filter);
    add(transferSide("TransferHeader.ToID"), EndDate, filter);
}

void Movements::addAdjustments(const QString &EndDate, const QString &filter)
{
    add(adjustments("AdjustmentHeader.ID NOT IN (SELECT FromID FROM TransferHeader) AND AdjustmentHeader.ID NOT IN "
                    "(SELECT ToID FROM TransferHeader)"),
        EndDate, filter);
}

/// The same rows as above by way of a list of all halves, as this one report has always built them.
void Movements::addAdjustmentsByList(const QString &EndDate)
{
    gDatabase->Execute("DELETE * FROM tmpTransferHeaderIDs");
    gDatabase->Execute("INSERT INTO tmpTransferHeaderIDs (ID) SELECT FromID FROM TransferHeader");
    gDatabase->Execute("INSERT INTO tmpTransferHeaderIDs (ID) SELECT ToID FROM TransferHeader");
    add(adjustments("AdjustmentHeader.ID NOT IN (SELECT ID FROM tmpTransferHeaderIDs)"), EndDate, {});
}

/// On the day the goods left, invoiced or not, unlike the sales figures.
void Movements::addShipments(const QString &EndDate, const QString &filter)
{
    add(" SELECT Orders.WareHouse, OrderItem.PartNo,Shipment.Date,ShipmentItems.Qty*-1,Part.Cost,'Shipment ID - ' & "
        "Shipment.ID FROM ((((ShipmentItems LEFT JOIN Shipment ON ShipmentItems.ShipmentID = Shipment.ID) LEFT JOIN "
        "Orders ON Shipment.OrderID = Orders.ID) LEFT JOIN OrderItem ON Orders.ID = OrderItem.OrderID) LEFT JOIN Part "
        "ON OrderItem.PartNo = Part.PartNo) WHERE ShipmentItems.OrderLineItem = OrderItem.ItemNumber AND "
        "Shipment.Date <= #",
        EndDate, filter);
}
