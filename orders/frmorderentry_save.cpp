// The save of the order form. Each statement and each Update stands by itself; their order is part of the contract,
// as a failure half way leaves what was written.

#include "orders/frmorderentry.h"

#include "data/values/conversions.h"
#include "reports/operational.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/mainmod.h"

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
    rs.Fields("DateAdded") = Date::today();
    rs.Fields("Total") = lblTotal->text();
    lblID->setText(rs.Fields("ID").text()); // a new order's number is known before it is written
    rs.Update();
    rs.Close();
}

void frmOrderEntry::saveLines()
{
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

// Books the goods as shipped and no more: neither ledger nor status is touched.
void frmOrderEntry::bookDropShipment()
{
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
