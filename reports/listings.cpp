#include "reports/listings.h"
#include "reportengine/report.h"
#include "reports/handover.h"
#include "toolkit/forms/mainmod.h"

/// Neither this nor its menu entry touches the pointer.
void Reports::ReportOpenOrders()
{
    HandOver handOver(HandOver::Pointer::NotOwned);
    DropTableIfExists("tmpShipped");
    gDatabase->Execute("SELECT OrderID,OrderLineItem,SUM(Qty) AS Shipped INTO tmpShipped  FROM ShipmentItems GROUP BY "
                       "OrderID, OrderLineItem");
    handOver.read(
        "crptOpenOrders",
        gDatabase->OpenRecordset(
            "SELECT Orders.ID,Orders.OrderNumber,Orders.OrderDate,Orders.Customer,Customer.Address1,"
            "Customer.Address2,Customer.City,Customer.State,Customer.Zip,Orders.ShipTo,Orders.ShipToAddress1,"
            "Orders.ShipToAddress2,Orders.ShipToCity,Orders.ShipToState,Orders.ShipToZip,OrderItem.ItemNumber, "
            "OrderItem.PartNo,Part.Category,CustomerNumber,OrderItem.Qty,tmpShipped.Shipped FROM ((((Orders LEFT JOIN "
            "Customer ON Orders.Customer = Customer.Customer) LEFT JOIN OrderItem ON Orders.ID = OrderItem.OrderID) "
            "LEFT JOIN Part ON OrderItem.PartNo = Part.PartNo) LEFT JOIN tmpShipped ON OrderItem.OrderID = "
            "tmpShipped.OrderID AND OrderItem.ItemNumber = tmpShipped.OrderLineItem) WHERE Orders.Status = 'Open'  "
            "ORDER BY Orders.ID,OrderItem.ItemNumber"));
    handOver.deliver("Open Orders");
}

/// The listings sort by status first, so that what is in use and what is retired stand in blocks.
void Reports::ReportPartListing()
{
    HandOver handOver(HandOver::Pointer::Owned);
    handOver.read("crptPartListing",
                  gDatabase->OpenRecordset(
                      "SELECT PartNo,Category,Vendor,LeadTime,Superceded,BinLocation,MinOnHand,ReorderQty,QtyPerPack,"
                      "Cost,SalePrice,Status,DateAdded FROM Part ORDER BY Status,PartNo"));
    handOver.deliver("Part Listing");
}

void Reports::ReportCustomerListing()
{
    HandOver handOver(HandOver::Pointer::Owned);
    handOver.read("crptCustomerListing",
                  gDatabase->OpenRecordset(
                      "SELECT Customer,Address1,Address2,City,State,Zip,Phone,Fax,Status,DateAdded,ShipTo,"
                      "ShipToAddress1,ShipToAddress2,ShipToCity,ShipToState,ShipToZip,ShipToPhone,ShipToFax,Terms,"
                      "Days,PriceSheet,Territory FROM Customer ORDER BY Status,Customer,DateAdded"));
    handOver.deliver("Customer Listing");
}

void Reports::ReportWarehouseListing()
{
    HandOver handOver(HandOver::Pointer::Owned);
    handOver.read("crptWarehouseListing",
                  gDatabase->OpenRecordset("SELECT WareHouse,Address1,Address2,City,State,Zip,Phone,Fax,Contact,Status,"
                                           "DateAdded FROM Warehouse ORDER BY Status,Warehouse"));
    handOver.deliver("Warehouse Listing");
}

/// With no adjustment picked the statement ends behind its equals sign, and the engine's error ends the program. Meant,
/// as with transfers.
void Reports::ReportAdjustmentControl(const QString &AdjustmentID)
{
    HandOver handOver(HandOver::Pointer::Owned);
    handOver.read(
        "crptInventoryAdjustControlReport",
        gDatabase->OpenRecordset(
            "SELECT ID,Date,AdjustmentHeader.DateAdded,Warehouse,AdjustmentDetail.PartNo,Qty,Part.Category FROM "
            "((AdjustmentHeader LEFT JOIN AdjustmentDetail ON AdjustmentHeader.ID = AdjustmentDetail.AdjustmentID) "
            "LEFT JOIN Part ON AdjustmentDetail.PartNo = Part.PartNo) WHERE AdjustmentHeader.ID = " +
            AdjustmentID));
    handOver.deliver("Adjustment Control Report " + AdjustmentID);
}

/// Shows the receiving side; of the sending one only the warehouse.
void Reports::ReportTransferControl(const QString &TransferID)
{
    HandOver handOver(HandOver::Pointer::Owned);
    auto transfer = gDatabase->OpenRecordset(
        "SELECT TransferHeader.ID,TransferHeader.FromID,AdjustmentHeader.Date,AdjustmentHeader.DateAdded,"
        "AdjustmentHeader.Warehouse,AdjustmentDetail.PartNo,Qty,Part.Category, Warehouse.Address1, "
        "Warehouse.Address2, Warehouse.City, Warehouse.State, Warehouse.Zip FROM ((((TransferHeader LEFT JOIN "
        "AdjustmentHeader ON TransferHeader.ToID = AdjustmentHeader.ID) LEFT JOIN AdjustmentDetail ON "
        "AdjustmentHeader.ID = AdjustmentDetail.AdjustmentID) LEFT JOIN Part ON AdjustmentDetail.PartNo = "
        "Part.PartNo) LEFT JOIN Warehouse ON AdjustmentHeader.Warehouse = Warehouse.Warehouse) WHERE "
        "TransferHeader.ID = " +
        TransferID + " ORDER BY Part.Category,AdjustmentDetail.PartNo");
    // While the rows are still here to be asked. A transfer that is gone has none, which is error 3021.
    auto from = gDatabase->OpenRecordset("SELECT Warehouse FROM AdjustmentHeader WHERE ID = " +
                                         transfer.Fields("FromID").joined());
    Report &report = handOver.read("crptInventoryTransferControlReport", std::move(transfer));
    report.object("txtFromWarehouse").SetText(from.Fields("Warehouse").text());
    handOver.deliver("Transfer Control Report " + TransferID);
    from.Close();
}
