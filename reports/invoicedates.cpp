#include "reports/invoicedates.h"
#include "toolkit/forms/mainmod.h"

void Reports::RefillShipmentInvoiceDates()
{
    gDatabase->Execute("UPDATE Shipment SET InvoiceDate = NULL");
    auto invoices = gDatabase->OpenRecordset("SELECT * FROM Invoice WHERE Shipment <> '0' Order By Shipment");
    const Field InvoiceDate = invoices.Fields("InvoiceDate");
    const Field Shipment = invoices.Fields("Shipment");
    while (!invoices.Eof()) {
        gDatabase->Execute("UPDATE Shipment SET InvoiceDate = #" + InvoiceDate.joined() + "# WHERE ID IN (" +
                           Shipment.joined() + ")");
        invoices.MoveNext();
    }
    invoices.Close();
}
