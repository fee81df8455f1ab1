#include "reports/dialogs/documentdialogs.h"
#include "reports/operational.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/fillcombo.h"
#include "toolkit/forms/mainmod.h"

frmPickTicket::frmPickTicket() : KeyedSelectionDialog("frmPickTicket", "Pick Ticket") {}

/// Open orders only; what is closed or void is not picked.
void frmPickTicket::formLoad()
{
    fill("SELECT * FROM Orders WHERE Status = 'Open' ORDER BY Customer,OrderNumber", "Customer", "OrderNumber", "ID");
}

void frmPickTicket::btnPrint_Click()
{
    Reports::PrintPickTicket(selectedID());
    unload();
}

frmPackingSlip::frmPackingSlip() : SelectionDialog("frmPackingSlip", "Shipment ID:") {}

/// What is read in the list is the key itself, so it needs no hidden one beside it.
void frmPackingSlip::formLoad()
{
    fillCombo(cmbReport, "SELECT ID FROM Shipment ORDER BY ID DESC", "ID");
}

void frmPackingSlip::btnPrint_Click()
{
    Reports::PrintPackingSlip(cmbReport->text(), true);
    unload();
}

frmInvoiceReport::frmInvoiceReport() : SelectionDialog("frmInvoiceReport", "Invoice ") {}

/// Numbers are texts here, so the list begins with 99 and not with 100.
void frmInvoiceReport::formLoad()
{
    fillCombo(cmbReport, "SELECT * FROM Invoice ORDER BY Invoice DESC", "Invoice");
}

void frmInvoiceReport::btnPrint_Click()
{
    // A number that finds nothing closes the dialog without a word.
    auto invoice = gDatabase->OpenRecordset("SELECT * FROM Invoice WHERE Invoice = '" + cmbReport->text() + "'");
    // A list that is Null is neither "0" nor anything else: nothing is printed and nothing said.
    if (!invoice.Eof() && !invoice.Fields("Shipment").isNull()) {
        const QString Shipment = invoice.Fields("Shipment").text();
        if (Shipment != "0")
            Reports::PrintInvoice(Shipment, cmbReport->text(), invoice.Fields("InvoiceDate").text(),
                                  invoice.Fields("DueDate").text(), invoice.Fields("Terms").text(), true);
        else
            MsgBox("You cannot Print this Invoice.", "Unable to Print");
    }
    invoice.Close();
    unload();
}
