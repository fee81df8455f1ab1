#include "orders/orderroutines.h"

#include "data/values/numbers.h"
#include "toolkit/forms/mainmod.h"

namespace {
double zeroIfNull(const Field &field)
{
    return field.isNull() ? 0 : field.value().toDouble();
}
} // namespace

double OverdueBalance(const QString &Customer)
{
    // Payments of an invoice come out as one row, and so do two invoices alike in all the columns grouped by: the
    // total of such a pair counts once. Kept that way.
    Recordset rs = gDatabase->OpenRecordset(
        "SELECT Customer,Invoice.Invoice,InvoiceDate,DueDate,Total,SUM(Adjustment) AS Adj,SUM(Amount) AS Payment From "
        "Invoice LEFT JOIN Payments ON Invoice.Id = Payments.Invoice WHERE Customer = '" +
        Customer + "' AND DueDate < #" + Date::today().toText() +
        "# Group By Customer,Invoice.Invoice,InvoiceDate,DueDate,Total");
    double balance = 0;
    while (!rs.Eof()) {
        // Only the payments go through text; cents that don't add up exactly in the others leave their residue.
        balance += zeroIfNull(rs.Fields("Total")) - zeroIfNull(rs.Fields("Adj")) - Val(rs.Fields("Payment").joined());
        rs.MoveNext();
    }
    rs.Close();
    return balance;
}

/// A sheet may list a part twice; the first row found is the price. -1 tells a part without a price from one at 0,
/// which is a price.
QString GetCustomerPrice(const QString &Part, const QString &Customer)
{
    Recordset rs = gDatabase->OpenRecordset(
        "SELECT PriceSheet.Price FROM PriceSheet LEFT JOIN Customer ON PriceSheet.PriceSheet = Customer.PriceSheet "
        "WHERE PriceSheet.Part = '" +
        Part + "' AND Customer.Customer = '" + Customer + "'");
    QString price = "-1";
    if (!(rs.Bof() && rs.Eof()))
        price = rs.Fields("Price").text();
    rs.Close();
    return price;
}

/// Never asks what the status is: a void order comes back, and one closed by hand with goods left opens again. An order
/// without lines has nothing open and is closed.
void UpdateOrderStatus(const QString &OrderID)
{
    Recordset rs = gDatabase->OpenRecordset(
        "SELECT OrderItem.OrderID,ItemNumber,OrderItem.Qty AS Ordered,SUM(ShipmentItems.qty) As Shipped From "
        "(OrderItem LEFT JOIN  ShipmentItems ON OrderItem.OrderID = ShipmentItems.OrderID AND  OrderItem.ItemNumber = "
        "ShipmentItems.OrderLineItem) Where OrderItem.OrderID = " +
        OrderID + " Group By OrderItem.OrderID, ItemNumber,OrderItem.qty ");
    bool complete = true;
    while (!rs.Eof()) {
        // A line of quantity 0 that never shipped has no sum and keeps the order open for ever.
        const Field ordered = rs.Fields("Ordered"), shipped = rs.Fields("Shipped");
        if (shipped.isNull() || (!ordered.isNull() && ordered.value().toDouble() > shipped.value().leadingNumber()))
            complete = false;
        rs.MoveNext();
    }
    rs.Close();
    const QString status = complete ? "Closed" : "Open";
    gDatabase->Execute("UPDATE Orders SET Status = '" + status + "' WHERE ID = " + OrderID);
}
