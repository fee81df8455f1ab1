#include "reports/operational.h"
#include "data/values/format.h"
#include "data/values/numbers.h"
#include "reportengine/report.h"
#include "reports/handover.h"
#include "toolkit/forms/mainmod.h"

namespace {

HandOver::Output outputFor(bool Preview)
{
    return Preview ? HandOver::Output::OwnWindow : HandOver::Output::Printer;
}

/// Lines plus freight plus adjustments of the listed shipments, as the invoice shows it. A shipment list that finds
/// nothing has no freight to convert: error 94.
QString invoiceTotal(const QString &ShipmentIDs)
{
    Value TotalFreight, TotalAdjustment;
    auto charges = gDatabase->OpenRecordset(
        "SELECT SUM(Freight) AS TotalFreight, SUM(Adjustment) AS TotalAdjustment FROM Shipment WHERE ID IN (" +
        ShipmentIDs + ")");
    // A sum always has its row, so only the values in it can be Null. Asked all the same, here and below.
    if (!charges.Eof()) {
        TotalFreight = charges.Fields("TotalFreight").value();
        TotalAdjustment = charges.Fields("TotalAdjustment").value();
    }
    charges.Close();

    QString Total;
    // Joined on the line number alone; the condition on the order ties a shipped line to its own order.
    auto lines = gDatabase->OpenRecordset(
        "SELECT SUM(ShipmentItems.Qty * OrderItem.PriceEach) AS Total FROM ((Shipment LEFT JOIN ShipmentItems ON "
        "Shipment.ID = ShipmentItems.ShipmentID) LEFT JOIN OrderItem ON ShipmentItems.OrderLineItem = "
        "OrderItem.ItemNumber) WHERE OrderItem.OrderID = Shipment.OrderID AND Shipment.ID IN (" +
        ShipmentIDs + ")");
    if (!lines.Eof())
        Total = lines.Fields("Total").isNull() ? "0" : lines.Fields("Total").text();
    lines.Close();

    // By way of the texts, as the totals were always taken; halves of a cent go to the even one.
    const double sum = Val(TotalFreight.toText()) + Val(TotalAdjustment.toText()) + Val(Total);
    return Format(roundTo2(sum), InvoiceTotalFormat);
}

} // namespace

/// In the order in which the shelves are walked, by category and part, not in that of the order's lines.
void Reports::PrintPickTicket(const QString &OrderID)
{
    HandOver handOver(HandOver::Pointer::Owned);
    handOver.read(
        "crptPickTicket",
        gDatabase->OpenRecordset(
            "SELECT "
            "Warehouse,ID,OrderNumber,Customer,OrderDate,DueDate,ShipTo,ShipToAddress1,ShipToAddress2,ShipToCity,"
            "ShipToState,ShipToZip,ShipToPhone,ShipToFax,ItemNumber,Qty,OrderItem.PartNo,Part.Category,BinLocation "
            "FROM ((Orders LEFT JOIN OrderItem ON Orders.ID = OrderItem.OrderID) LEFT JOIN Part ON OrderItem.PartNo = "
            "Part.PartNo) WHERE Orders.ID = " +
            OrderID + " ORDER BY Orders.ID,Part.Category,OrderItem.PartNo"));
    handOver.deliver("Pick Ticket, order ID " + OrderID);
}

void Reports::PrintPackingSlip(const QString &ShipmentID, bool Preview)
{
    HandOver handOver(HandOver::Pointer::Owned, outputFor(Preview));
    // Shipment lines are joined on the line number alone; the last condition ties them to the shipment and drops the
    // lines of the order that are not in it.
    handOver.read(
        "crptPackingSlip",
        gDatabase->OpenRecordset(
            "SELECT "
            "Orders.ID,Orders.OrderNumber,Orders.OrderDate,Orders.Customer,Customer.Address1,Customer.Address2,"
            "Customer.City,Customer.State,Customer.Zip,Orders.ShipTo,Orders.ShipToAddress1,Orders.ShipToAddress2,"
            "Orders.ShipToCity,Orders.ShipToState,Orders.ShipToZip,Shipment.ID,Shipment.Date,OrderItem.ItemNumber, "
            "OrderItem.Qty, ShipmentItems.Qty,OrderItem.PartNo,Part.Category,CustomerNumber FROM (((((Orders LEFT JOIN "
            "Customer ON Orders.Customer = Customer.Customer) LEFT JOIN SHIPMENT ON  Orders.ID = Shipment.OrderID) "
            "LEFT JOIN OrderItem ON Orders.ID = OrderItem.OrderID) LEFT OUTER JOIN ShipmentItems ON "
            "OrderItem.ItemNumber = ShipmentItems.OrderLineItem) LEFT JOIN Part ON OrderItem.PartNo = Part.PartNo) "
            "WHERE Shipment.ID = " +
            ShipmentID + " AND Shipment.ID = ShipmentItems.ShipmentID ORDER BY Orders.ID,OrderItem.ItemNumber"));
    handOver.deliver("Packing Slip, shipment " + ShipmentID);
}

/// Computed anew at each call: a reprint shows today's prices and freight of the shipments, whatever amount was stored.
/// The due date is handed in and printed nowhere.
QString Reports::PrintInvoice(const QString &ShipmentIDs, const QString &InvoiceNumber, const QString &InvoiceDate,
                              const QString & /*DueDate*/, const QString &Terms, bool Preview)
{
    // The one document without an hourglass of its own.
    HandOver handOver(HandOver::Pointer::NotOwned, outputFor(Preview));
    Report &report = handOver.read(
        "crptInvoice",
        gDatabase->OpenRecordset(
            "SELECT "
            "Orders.ID,Orders.OrderNumber,Orders.OrderDate,Orders.Warehouse,Orders.Customer,Customer.Address1,"
            "Customer.Address2,Customer.City,Customer.State,Customer.Zip,Orders.ShipTo,Orders.ShipToAddress1,"
            "Orders.ShipToAddress2,Orders.ShipToCity,Orders.ShipToState,Orders.ShipToZip,Shipment.ID,Shipment.Date,"
            "Shipment.Via,OrderItem.ItemNumber, OrderItem.Qty, ShipmentItems.Qty,OrderItem.PartNo,Part.Category,"
            "OrderItem.PriceEach,Shipment.Freight,Shipment.Adjustment,CustomerNumber FROM (((((Orders LEFT JOIN "
            "Customer ON Orders.Customer = Customer.Customer) LEFT JOIN SHIPMENT ON  Orders.ID = Shipment.OrderID) "
            "LEFT JOIN OrderItem ON Orders.ID = OrderItem.OrderID) LEFT OUTER JOIN ShipmentItems ON "
            "OrderItem.ItemNumber = ShipmentItems.OrderLineItem) LEFT JOIN Part ON OrderItem.PartNo = Part.PartNo) "
            "WHERE Shipment.ID IN (" +
            ShipmentIDs + ") AND Shipment.ID = ShipmentItems.ShipmentID ORDER BY Orders.ID,OrderItem.ItemNumber"));
    // What is known of the invoice as such: the rows are those of its shipments.
    report.object("txtInvoiceNumber").SetText(InvoiceNumber);
    report.object("txtTerms").SetText(Terms);
    report.object("txtInvoiceDate").SetText(InvoiceDate);
    const QString Total = invoiceTotal(ShipmentIDs);
    report.object("txtTotal").SetText(Total);
    handOver.deliver("Invoice " + InvoiceNumber);
    // The invoice run stores this very text, so that what is owed is what was printed.
    return Total;
}
