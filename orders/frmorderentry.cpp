#include "orders/frmorderentry.h"

#include "data/values/numbers.h"
#include "inventory/ledger.h"
#include "orders/frmordernavigator.h"
#include "orders/orderroutines.h"
#include "reports/operational.h"
#include "toolkit/controls/formatgrid.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/fillcombo.h"
#include "toolkit/forms/forms.h"
#include "toolkit/forms/mainmod.h"

frmOrderEntry::frmOrderEntry() : Form("frmOrderEntry", "Order Entry")
{
    makeControls();
    layOut();
    connectEvents();
}

void frmOrderEntry::formLoad()
{
    const Hourglass hourglass;
    txtFreight->setEnabled(false);
    fillCombo(cmbWarehouse, "SELECT Warehouse FROM Warehouse WHERE Status = 'Active' ORDER BY Warehouse", "Warehouse");
    // A default that is no active warehouse is error 383: no order is entered before the settings are mended.
    cmbWarehouse->setText(gDefaultWarehouse);
    fillCombo(cmbCustomer, "SELECT Customer FROM Customer WHERE Status = 'Active' ORDER BY Customer", "Customer");
    loadParts();
    dtOrderDate->setValue(Date::today());
    dtDueDate->setValue(Date::today());
    lblTotal->setText(textOf(0.0));
    RefreshGrid();
}

/// Categories and prices stand in two hidden lists at the part's index. The prices are those of this moment: one
/// changed meanwhile reaches the form when it is loaded again.
void frmOrderEntry::loadParts()
{
    Recordset rs =
        gDatabase->OpenRecordset("SELECT PartNo,Category,SalePrice FROM Part WHERE Status = 'Active' ORDER BY PartNo");
    const Field partNo = rs.Fields("PartNo"), category = rs.Fields("Category"), salePrice = rs.Fields("SalePrice");
    QStringList parts, categories, prices;
    while (!rs.Eof()) {
        parts += partNo.text();
        categories += category.text();
        prices += salePrice.text();
        rs.MoveNext();
    }
    rs.Close();
    cmbPart->addItems(parts);
    cmbCategory->addItems(categories);
    cmbPrice->addItems(prices);
}

void frmOrderEntry::formUnload()
{
    // With the criteria as they stand there, so that the order saved shows or not.
    if (gOrderNavigatorOpen)
        static_cast<frmOrderNavigator *>(Forms::loaded("frmOrderNavigator"))->UpdateGrids();
}

void frmOrderEntry::cmbCustomer_Click()
{
    Recordset rs = gDatabase->OpenRecordset("SELECT * FROM Customer WHERE Customer = '" + cmbCustomer->text() + "'");
    if (!(rs.Bof() && rs.Eof()))
        showShipTo(rs);
    rs.Close();
}

/// Informs and stops nobody.
void frmOrderEntry::cmbCustomer_LostFocus()
{
    txtOverDue->setText(textOf(OverdueBalance(cmbCustomer->text())));
}

void frmOrderEntry::chkDropShip_Click()
{
    txtFreight->setEnabled(chkDropShip->isChecked());
}

/// The three buttons change what the form shows; the save writes it.
void frmOrderEntry::btnClose_Click()
{
    if (MsgBoxYesNo("Are you sure you want to close this order?", "Close Order Confirmations"))
        lblStatus->setText("Closed");
}

void frmOrderEntry::btnOpenOrder_Click()
{
    if (MsgBoxYesNo("Are you sure you want to open this order?", "Open Order Confirmations"))
        lblStatus->setText("Open");
}

void frmOrderEntry::btnVoidOrder_Click()
{
    if (MsgBoxYesNo("Are you sure you want to void this order?", "Void Order Confirmations"))
        lblStatus->setText("Void");
}

/// Customers and orders name these columns alike.
void frmOrderEntry::showShipTo(const Recordset &rs)
{
    txtShipTo->setText(rs.Fields("ShipTo").joined());
    txtAddress1->setText(rs.Fields("ShipToAddress1").joined());
    txtAddress2->setText(rs.Fields("ShipToAddress2").joined());
    txtCity->setText(rs.Fields("ShipToCity").joined());
    txtState->setText(rs.Fields("ShipToState").joined());
    txtZip->setText(rs.Fields("ShipToZip").joined());
    txtPhone->setText(rs.Fields("ShipToPhone").joined());
    txtFax->setText(rs.Fields("ShipToFax").joined());
}

/// The order total is left alone: an order opened again shows the stored one until a line changes.
void frmOrderEntry::RefreshGrid()
{
    vsfgItems->setRows(0);
    vsfgItems->setCols(7);
    vsfgItems->addItem("Item Number\tQty\tPart No.\tCategory\tPrice Each\tPrice Ext.\tCust. No.");
    if (!lblID->text().isEmpty()) {
        Recordset rs = gDatabase->OpenRecordset("SELECT * FROM OrderItem WHERE ORDERID = " + lblID->text());
        while (!rs.Eof()) {
            const Value qty = rs.Fields("Qty").value(), each = rs.Fields("PriceEach").value();
            // Computed anew; the stored amount is not read.
            const QString amount = qty.isNull() || each.isNull() ? QString() : textOf(each.toDouble() * qty.toDouble());
            vsfgItems->addItem(rs.Fields("ItemNumber").joined() + "\t" + qty.joined() + "\t" +
                               rs.Fields("PartNo").joined() + "\t" + rs.Fields("Category").joined() + "\t" +
                               each.joined() + "\t" + amount + "\t" + rs.Fields("CustomerNumber").joined());
            rs.MoveNext();
        }
        rs.Close();
    }
    formatGrid(vsfgItems, {PriceEach, PriceExt});
}

/// An unknown order leaves the fields as they are. A customer or a warehouse that has been retired since is in no list,
/// and the text set is error 383.
void frmOrderEntry::OpenOrder(qint16 ID)
{
    Recordset rs = gDatabase->OpenRecordset("SELECT * FROM Orders WHERE ID = " + QString::number(ID));
    if (!(rs.Bof() && rs.Eof())) {
        cmbWarehouse->setText(rs.Fields("Warehouse").text());
        cmbCustomer->setText(rs.Fields("Customer").text());
        txtOrderNumber->setText(rs.Fields("OrderNumber").text());
        dtOrderDate->setValue(rs.Fields("OrderDate").value());
        dtDueDate->setValue(rs.Fields("DueDate").value());
        lblStatus->setText(rs.Fields("Status").text());
        lblID->setText(rs.Fields("ID").text());
        showShipTo(rs);
        const Field total = rs.Fields("Total");
        lblTotal->setText(total.isNull() ? textOf(0.0) : total.text());
        // Who ordered, under what number and when, is settled by the first save; from where and to where is not.
        cmbCustomer->setEnabled(false);
        txtOrderNumber->setEnabled(false);
        dtOrderDate->setEnabled(false);
        dtDueDate->setEnabled(false);
    }
    RefreshGrid();
    rs.Close();
    if (!lblID->text().isEmpty()) {
        Recordset shipments = gDatabase->OpenRecordset("SELECT * FROM Shipment WHERE OrderID = " + lblID->text());
        if (!(shipments.Bof() && shipments.Eof())) {
            // Goods have left already; all lines booked as shipped would leave a second time.
            chkDropShip->setEnabled(false);
            txtFreight->setEnabled(false);
        }
        shipments.Close();
    }
}

// The lines. They live in the grid until the order is saved. The number in a row's first column is the row's index;
// changing a line relies on it and deleting one keeps it.

/// Runs whenever the box is left, so passing through it again overwrites a price typed by hand.
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

/// Not rounded; so is the total.
void frmOrderEntry::showLineAmount()
{
    lblPriceExt->setText(textOf(Val(txtPriceEach->text()) * Val(txtQty->text())));
}

/// The amount cells are converted as a whole, not by their leading number, so that "$1,200.00" counts in full.
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
    // The availability stays that of the part chosen last.
    lblItem->setText(vsfgItems->textMatrix(newRow, ItemNumber));
    txtQty->setText(vsfgItems->textMatrix(newRow, Qty));
    // A part that was retired is in no list, and the text set is error 383.
    cmbPart->setText(vsfgItems->textMatrix(newRow, PartNo));
    txtPriceEach->setText(vsfgItems->textMatrix(newRow, PriceEach));
    lblPriceExt->setText(vsfgItems->textMatrix(newRow, PriceExt));
    txtCustomerNumber->setText(vsfgItems->textMatrix(newRow, CustomerNumber));
    setFocusTo(txtQty);
}

/// Any quantity passes, negative ones and more than there is.
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
    // One more than the last line's, not the number of lines.
    const double item = last == 0 ? 1 : CDbl(vsfgItems->textMatrix(last, ItemNumber)) + 1;
    vsfgItems->addItem(textOf(item) + "\t" + txtQty->text() + "\t" + cmbPart->text() + "\t" +
                       cmbCategory->list(cmbPart->listIndex()) + "\t" + txtPriceEach->text() + "\t" +
                       lblPriceExt->text() + "\t" + txtCustomerNumber->text());
    vsfgItems->autoSize();
    clearLineFields();
    setFocusTo(cmbPart);
}

/// Column 3 keeps the category of the part the line had first.
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

/// Shipment lines point at item numbers, so nothing is renumbered once goods have left. The lines of an order that
/// was never saved can't be deleted either, as only a saved one is looked up; staff know it so.
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
        // Column 0 stays in place, so that the numbers go on running from 1 without a gap.
        for (int col = 1; col <= 6; ++col)
            vsfgItems->setTextMatrix(row, col, vsfgItems->textMatrix(row + 1, col));
    vsfgItems->setRows(vsfgItems->rows() - 1);
    vsfgItems->autoSize();
    clearLineFields();
    setFocusTo(txtQty);
    UpdateTotal();
}

// The save. Each statement and each Update stands by itself; their order is part of the contract, as a failure half
// way leaves what was written.

void frmOrderEntry::btnSave_Click()
{
    if (cmbWarehouse->text().isEmpty() || cmbCustomer->text().isEmpty() || txtOrderNumber->text().isEmpty()) {
        MsgBox("Warehouse, Customer, and Order Number fields are required.", "Required Fields");
        return;
    }
    const Hourglass hourglass;
    saveHeader();
    saveLines();
    if (chkDropShip->isChecked())
        bookDropShipment();
    else
        Reports::PrintPickTicket(lblID->text());
    unload();
}

void frmOrderEntry::saveHeader()
{
    const bool exists = !lblID->text().isEmpty();
    Recordset rs =
        gDatabase->OpenRecordset(exists ? "SELECT * FROM Orders WHERE ID = " + lblID->text() : "SELECT * FROM Orders");
    if (exists) {
        rs.Edit();
        rs.Fields("Status") = lblStatus->text().isEmpty() ? "Open" : lblStatus->text();
    } else {
        rs.AddNew();
        rs.Fields("Status") = "Open"; // whatever the form shows: a new order can't be voided before it exists
        rs.Fields("OrderNumber") = txtOrderNumber->text();
    }
    rs.Fields("Warehouse") = cmbWarehouse->text();
    rs.Fields("Customer") = cmbCustomer->text();
    rs.Fields("OrderDate") = dtOrderDate->value();
    rs.Fields("DueDate") = dtDueDate->value();
    rs.Fields("ShipTo") = txtShipTo->text();
    rs.Fields("ShipToAddress1") = txtAddress1->text();
    rs.Fields("ShipToAddress2") = txtAddress2->text();
    rs.Fields("ShipToCity") = txtCity->text();
    rs.Fields("ShipToState") = txtState->text();
    rs.Fields("ShipToZip") = txtZip->text();
    rs.Fields("ShipToPhone") = txtPhone->text();
    rs.Fields("ShipToFax") = txtFax->text();
    // The day of the last save, of an order that was changed too.
    rs.Fields("DateAdded") = Date::today();
    rs.Fields("Total") = lblTotal->text();
    lblID->setText(rs.Fields("ID").text()); // a new order's number is known before it is written
    rs.Update();
    rs.Close();
}

void frmOrderEntry::saveLines()
{
    // Written anew from the grid, by the numbers that stand there.
    gDatabase->Execute("DELETE FROM OrderItem WHERE OrderID = " + lblID->text());
    Recordset rs = gDatabase->OpenRecordset("SELECT * FROM OrderItem WHERE OrderID = " + lblID->text());
    for (int row = 1; row < vsfgItems->rows(); ++row) {
        rs.AddNew();
        rs.Fields("OrderID") = lblID->text();
        rs.Fields("ItemNumber") = vsfgItems->textMatrix(row, ItemNumber);
        rs.Fields("Qty") = vsfgItems->textMatrix(row, Qty);
        rs.Fields("PartNo") = vsfgItems->textMatrix(row, PartNo);
        rs.Fields("Category") = vsfgItems->textMatrix(row, Category);
        rs.Fields("PriceEach") = vsfgItems->textMatrix(row, PriceEach);
        rs.Fields("PriceExt") = vsfgItems->textMatrix(row, PriceExt);
        rs.Fields("CustomerNumber") = vsfgItems->textMatrix(row, CustomerNumber);
        rs.Update();
    }
    rs.Close();
}

/// Books the goods as shipped and no more: neither ledger nor status is touched.
void frmOrderEntry::bookDropShipment()
{
    // A new shipment at every save with the box checked.
    Recordset shipment = gDatabase->OpenRecordset("SELECT TOP 1 *  FROM Shipment");
    shipment.AddNew();
    const QString shipmentID = shipment.Fields("ID").text();
    shipment.Fields("OrderID") = lblID->text();
    shipment.Fields("Date") = dtOrderDate->value();
    shipment.Fields("Freight") = txtFreight->text().isEmpty() ? "0.0" : txtFreight->text();
    shipment.Fields("Invoiced") = false;
    shipment.Update();
    shipment.Close();

    gDatabase->Execute("DELETE FROM ShipmentItems WHERE ShipmentID = " + shipmentID);
    Recordset items = gDatabase->OpenRecordset("SELECT TOP 1 * FROM ShipmentItems");
    for (int row = 1; row < vsfgItems->rows(); ++row) {
        if (Val(vsfgItems->textMatrix(row, Qty)) == 0)
            continue;
        items.AddNew();
        items.Fields("ShipmentID") = shipmentID;
        items.Fields("OrderID") = lblID->text();
        items.Fields("OrderLineItem") = vsfgItems->textMatrix(row, ItemNumber);
        items.Fields("Qty") = vsfgItems->textMatrix(row, Qty);
        items.Update();
    }
    items.Close();
}
