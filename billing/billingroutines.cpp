#include "billing/billingroutines.h"

#include "toolkit/forms/mainmod.h"

double GetShipmentCost(const QString &ShipmentIDs)
{
    Recordset rs = gDatabase->OpenRecordset(
        "SELECT SUM(Part.Cost * ShipmentItems.Qty) AS TotalCost FROM (((Shipment LEFT JOIN ShipmentItems ON "
        "Shipment.ID = ShipmentItems.ShipmentID) LEFT JOIN OrderItem ON ShipmentItems.OrderID = OrderItem.OrderID AND "
        "ShipmentItems.OrderLineItem = OrderItem.ItemNumber) LEFT JOIN Part ON OrderItem.PartNo = Part.PartNo) WHERE "
        "Shipment.ID IN (" +
        ShipmentIDs + ")");
    // A sum without groups always has its one row, which is Null for shipments without lines. Costs are today's, not
    // those of the day the goods left.
    const Value total = rs.Eof() ? Value() : rs.Fields("TotalCost").value();
    rs.Close();
    return total.isNull() ? 0 : total.toDouble();
}
