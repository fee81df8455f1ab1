#include "orders/frmorderentry.h"

#include "data/values/conversions.h"
#include "orders/frmordernavigator.h"
#include "orders/orderroutines.h"
#include "toolkit/controls/formatgrid.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/fillcombo.h"
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
    cmbWarehouse->setText(gDefaultWarehouse);
    fillCombo(cmbCustomer, "SELECT Customer FROM Customer WHERE Status = 'Active' ORDER BY Customer", "Customer");
    loadParts();
    dtOrderDate->setValue(Date::today());
    dtDueDate->setValue(Date::today());
    lblTotal->setText(textOf(0.0));
    RefreshGrid();
}

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

void frmOrderEntry::cmbCustomer_LostFocus()
{
    txtOverDue->setText(textOf(OverdueBalance(cmbCustomer->text())));
}

void frmOrderEntry::chkDropShip_Click()
{
    txtFreight->setEnabled(chkDropShip->isChecked());
}

// The three buttons change what the form shows; the save writes it.
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

// Customers and orders name these columns alike.
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
            chkDropShip->setEnabled(false);
            txtFreight->setEnabled(false);
        }
        shipments.Close();
    }
}
