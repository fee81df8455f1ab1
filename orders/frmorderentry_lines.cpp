// The line editor of the order form: lines live in the grid until the order is saved. The number in a row's first
// column is the row's index; changing a line relies on it and deleting one keeps it.

#include "orders/frmorderentry.h"

#include "data/values/conversions.h"
#include "inventory/ledger.h"
#include "orders/orderroutines.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/mainmod.h"

void frmOrderEntry::cmbPart_LostFocus()
{
    const Hourglass hourglass;
    const QString part = cmbPart->text(), warehouse = cmbWarehouse->text(), customer = cmbCustomer->text();
    if (!warehouse.isEmpty() && !part.isEmpty())
        lblQtyAvail->setText(textOf(GetAvailableQty(part, warehouse)));
    else
        lblQtyAvail->setText("N/A");
    if (gAutoPriceFlag == "YES") {
        // Without a customer the price comes out 0, not the list price. Meant so, like a sheet price of 0.
        double price = 0;
        if (!customer.isEmpty() && !part.isEmpty())
            price = Val(GetCustomerPrice(part, customer));
        txtPriceEach->setText(price < 0 ? cmbPrice->list(cmbPart->listIndex()) : textOf(price));
    }
}

void frmOrderEntry::showLineAmount()
{
    lblPriceExt->setText(textOf(Val(txtPriceEach->text()) * Val(txtQty->text())));
}

void frmOrderEntry::UpdateTotal()
{
    double total = 0;
    for (int row = 1; row < vsfgItems->rows(); ++row) {
        const QString amount = vsfgItems->textMatrix(row, PriceExt);
        if (!amount.isEmpty())
            total += CDbl(amount);
    }
    lblTotal->setText(textOf(total));
}

void frmOrderEntry::vsfgItems_AfterRowColChange(int newRow)
{
    if (newRow <= 0)
        return;
    lblItem->setText(vsfgItems->textMatrix(newRow, ItemNumber));
    txtQty->setText(vsfgItems->textMatrix(newRow, Qty));
    cmbPart->setText(vsfgItems->textMatrix(newRow, PartNo));
    txtPriceEach->setText(vsfgItems->textMatrix(newRow, PriceEach));
    lblPriceExt->setText(vsfgItems->textMatrix(newRow, PriceExt));
    txtCustomerNumber->setText(vsfgItems->textMatrix(newRow, CustomerNumber));
    setFocusTo(txtQty);
}

void frmOrderEntry::btnSaveItem_Click()
{
    if (cmbPart->text().isEmpty() || !IsNumeric(txtQty->text()) || !IsNumeric(txtPriceEach->text())) {
        MsgBox("You must enter a Part, Quantity, and Price before saving.", "Not Enough Information");
        setFocusTo(cmbPart);
        return;
    }
    if (lblItem->text().isEmpty())
        addLine();
    else
        changeLine();
    UpdateTotal();
    lblQtyAvail->clear();
}

void frmOrderEntry::addLine()
{
    const int last = vsfgItems->rows() - 1;
    const double item = last == 0 ? 1 : CDbl(vsfgItems->textMatrix(last, ItemNumber)) + 1;
    vsfgItems->addItem(textOf(item) + "\t" + txtQty->text() + "\t" + cmbPart->text() + "\t" +
                       cmbCategory->list(cmbPart->listIndex()) + "\t" + txtPriceEach->text() + "\t" +
                       lblPriceExt->text() + "\t" + txtCustomerNumber->text());
    vsfgItems->autoSize();
    clearLineFields();
    setFocusTo(cmbPart);
}

// Column 3 keeps the category of the part the line had first.
void frmOrderEntry::changeLine()
{
    const int row = CLng(lblItem->text());
    vsfgItems->setTextMatrix(row, ItemNumber, lblItem->text());
    vsfgItems->setTextMatrix(row, PartNo, cmbPart->text());
    vsfgItems->setTextMatrix(row, Qty, txtQty->text());
    vsfgItems->setTextMatrix(row, PriceEach, txtPriceEach->text());
    vsfgItems->setTextMatrix(row, PriceExt, lblPriceExt->text());
    vsfgItems->setTextMatrix(row, CustomerNumber, txtCustomerNumber->text());
    vsfgItems->autoSize();
    clearLineFields();
    setFocusTo(txtQty);
}

void frmOrderEntry::clearLineFields()
{
    lblItem->clear();
    cmbPart->setListIndex(-1);
    cmbCategory->setListIndex(-1);
    cmbPrice->setListIndex(-1);
    txtQty->clear();
    txtPriceEach->clear();
    lblPriceExt->clear();
    txtCustomerNumber->clear();
}

// Shipment lines point at item numbers, so nothing is renumbered once goods have left. The lines of an order that
// was never saved can't be deleted either, as only a saved one is looked up; staff know it so.
bool frmOrderEntry::mayDeleteLine() const
{
    if (lblID->text().isEmpty())
        return false;
    Recordset rs = gDatabase->OpenRecordset("SELECT * FROM Shipment WHERE OrderID = " + lblID->text());
    const bool noShipment = rs.Bof() && rs.Eof();
    rs.Close();
    return noShipment;
}

void frmOrderEntry::btnDeleteItem_Click()
{
    const int current = vsfgItems->row();
    if (current < 1 || lblItem->text().isEmpty())
        return;
    if (!mayDeleteLine()) {
        MsgBox("One or more Shipments exists for this Order. The Line Item cannot be deleted.",
               "Cannot Delete Line Item");
        return;
    }
    if (!MsgBoxYesNo("Are you sure you want to delete Line Item " + lblItem->text() + "?", "Delete Confirmation"))
        return;
    for (int row = current; row <= vsfgItems->rows() - 2; ++row)
        for (int col = 1; col <= 6; ++col)
            vsfgItems->setTextMatrix(row, col, vsfgItems->textMatrix(row + 1, col));
    vsfgItems->setRows(vsfgItems->rows() - 1);
    vsfgItems->autoSize();
    clearLineFields();
    setFocusTo(txtQty);
    UpdateTotal();
}
