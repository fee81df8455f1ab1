#include "reports/invoicedates.h"
#include "toolkit/forms/mainmod.h"

/// An invoice names its shipments as a text list, which joins with nothing; so each report that asks when something was
/// invoiced copies the dates to the shipments first. All of them, each time: nobody keeps the column otherwise, and an
/// invoice that is gone leaves no trace.
void Reports::RefillShipmentInvoiceDates()
{
    gDatabase->Execute("UPDATE Shipment SET InvoiceDate = NULL");
    auto invoices = gDatabase->OpenRecordset("SELECT * FROM Invoice WHERE Shipment <> '0' Order By Shipment");
    const Field InvoiceDate = invoices.Fields("InvoiceDate");
    const Field Shipment = invoices.Fields("Shipment");
    // A shipment that two invoices name keeps the date of the later one in the order of the lists as texts. An invoice
    // without a date or with an empty list breaks the statement, half way through.
    while (!invoices.Eof()) {
        gDatabase->Execute("UPDATE Shipment SET InvoiceDate = #" + InvoiceDate.joined() + "# WHERE ID IN (" +
                           Shipment.joined() + ")");
        invoices.MoveNext();
    }
    invoices.Close();
}
