#include "shipping/frmshipmententry.h"

#include "data/values/numbers.h"
#include "inventory/ledger.h"
#include "orders/orderroutines.h"
#include "reports/operational.h"
#include "toolkit/controls/formatgrid.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/fillcombo.h"
#include "toolkit/forms/formlayout.h"
#include "toolkit/forms/mainmod.h"

namespace {
enum Column { ItemNumber, QtyOrdered, PrevShipped, ThisShipment, PartNo, PriceEach, PriceExt, ColumnCount };

/// The amount of the whole line; Null when either factor is.
Value priceExt(const Recordset &lines)
{
    const Value price = lines.Fields("PriceEach").value();
    const Value qty = lines.Fields("OrderItem.Qty").value();
    return price.isNull() || qty.isNull() ? Value() : Value(price.toDouble() * qty.toDouble());
}
} // namespace

frmShipmentEntry::frmShipmentEntry()
    : Form("frmShipmentEntry", "Shipment Entry"), Frame1(addFrame("Frame1", "Order Info")),
      Frame2(addFrame("Frame2", "Shipment Selection")), cmbCustomer(addList("cmbCustomer")),
      cmbOrder(addEditable("cmbOrder")), cmbOrderID(addHiddenList("cmbOrderID")), txtID(add<TextBox>("txtID")),
      dtDate(addDate("dtDate")), txtShipVia(addText("txtShipVia")), txtFreight(addMoney("txtFreight")),
      txtAdjustment(add<MaskEdBox>("txtAdjustment")), txtShipTo(addText("txtShipTo")),
      txtAddress1(addText("txtAddress1")), txtAddress2(addText("txtAddress2")), txtCity(addText("txtCity")),
      txtState(addText("txtState")), txtZip(addText("txtZip")), vsfgItems(addGrid("vsfgItems")),
      btnShipAll(addButton("btnShipAll", "Ship All")), btnSave(addButton("btnSave", "Save and Close")),
      btnExit(addButton("btnExit", "Exit"))
{
    // What new shipments go by unless the clerk says otherwise.
    txtShipVia->setText("UPS Ground");
    for (TextBox *box : {txtShipTo, txtAddress1, txtAddress2, txtCity, txtState, txtZip})
        box->setReadOnly(true); // the order's, for display only
    setTypeAhead(cmbCustomer);
    setTypeAhead(cmbOrder);
    vsfgItems->setEditableColumn(ThisShipment);
    connect(cmbCustomer, &ComboBox::change, this, &frmShipmentEntry::cmbCustomer_Change);
    connect(cmbCustomer, &ComboBox::click, this, &frmShipmentEntry::cmbCustomer_Click);
    connect(cmbOrder, &ComboBox::click, this, &frmShipmentEntry::cmbOrder_Click);
    connect(vsfgItems, &FlexGrid::beforeEdit, this, &frmShipmentEntry::vsfgItems_BeforeEdit);
    connect(vsfgItems, &FlexGrid::afterEdit, this, &frmShipmentEntry::vsfgItems_AfterEdit);
    connect(btnShipAll, &QPushButton::clicked, this, &frmShipmentEntry::btnShipAll_Click);
    connect(btnSave, &QPushButton::clicked, this, &frmShipmentEntry::btnSave_Click);
    connect(btnExit, &QPushButton::clicked, this, &frmShipmentEntry::unload);
    layOut();
}

void frmShipmentEntry::formLoad()
{
    txtFreight->setText("0");
    txtAdjustment->setText("0");
    dtDate->setValue(Date::today());
    fillCombo(cmbCustomer, "SELECT Customer FROM Customer WHERE Status = 'Active' ORDER BY Customer", "Customer");
    vsfgItems->setRows(0);
}

/// Appends and never clears: the orders of customers chosen before stay in the lists, repeats included, and can
/// still be picked. Both lists grow alike.
void frmShipmentEntry::cmbCustomer_Change()
{
    if (cmbCustomer->text().isEmpty())
        return;
    Recordset orders = gDatabase->OpenRecordset("SELECT * FROM Orders WHERE Customer = '" + cmbCustomer->text() +
                                                "' AND Status = 'Open' ORDER BY OrderNumber");
    while (!orders.Eof()) {
        cmbOrder->addItem(orders.Fields("OrderNumber").joined() + " - " + orders.Fields("OrderDate").joined());
        cmbOrderID->addItem(orders.Fields("ID").value());
        orders.MoveNext();
    }
    orders.Close();
}

void frmShipmentEntry::cmbCustomer_Click()
{
    cmbCustomer_Change();
}

void frmShipmentEntry::cmbOrder_Click()
{
    FillOrder(cmbOrderID->list(cmbOrder->listIndex()));
}

/// Asks the text shown and not the number handed in: an order whose entry is blank is not filled.
void frmShipmentEntry::FillOrder(const QString &OrderID)
{
    if (cmbOrder->text().isEmpty())
        return;
    Recordset order = gDatabase->OpenRecordset("SELECT * FROM Orders WHERE ID = " + OrderID);
    if (!(order.Bof() && order.Eof())) {
        txtShipTo->setText(order.Fields("ShipTo").text());
        txtAddress1->setText(order.Fields("ShipToAddress1").text());
        txtAddress2->setText(order.Fields("ShipToAddress2").text());
        txtCity->setText(order.Fields("ShipToCity").text());
        txtState->setText(order.Fields("ShipToState").text());
        txtZip->setText(order.Fields("ShipToZip").text());
    }
    order.Close();
    fillLines(OrderID);
}

/// One grid line for each order line, with what other shipments took; "This Shipment" starts empty.
void frmShipmentEntry::fillLines(const QString &OrderID)
{
    vsfgItems->setRows(0);
    vsfgItems->setCols(ColumnCount);
    vsfgItems->addItem("Item Number\tQty Ordered\tPrev. Shipped\tThis Shipment\tPart No.\tPrice Each\tPrice Ext.");
    Recordset lines = gDatabase->OpenRecordset(
        "SELECT ItemNumber,OrderItem.Qty,SUM(ShipmentItems.Qty) AS Shipped, PartNo,Category,PriceEach,PriceExt FROM "
        "(OrderItem LEFT JOIN ShipmentItems ON OrderItem.OrderID = ShipmentItems.OrderID AND OrderItem.ItemNumber = "
        "ShipmentItems.OrderLineItem) WHERE OrderItem.OrderID = " +
        OrderID + " GROUP BY ItemNumber,OrderItem.Qty,PartNo,Category,PriceEach,PriceExt ORDER BY ItemNumber ");
    while (!lines.Eof()) {
        vsfgItems->addItem(lines.Fields("ItemNumber").joined() + '\t' + lines.Fields("OrderItem.Qty").joined() + '\t' +
                           lines.Fields("Shipped").joined() + "\t\t" + lines.Fields("PartNo").joined() + '\t' +
                           lines.Fields("PriceEach").joined() + '\t' + priceExt(lines).joined());
        lines.MoveNext();
    }
    lines.Close();
    formatGrid(vsfgItems, {PriceEach, PriceExt});
}

/// Asked for each cell that is merely entered, too.
void frmShipmentEntry::vsfgItems_BeforeEdit(int, int col, bool &cancel)
{
    cancel = col != ThisShipment;
}

/// Refuses by clipping to 0, without a word. Negative and fractional quantities pass.
void frmShipmentEntry::vsfgItems_AfterEdit(int row, int col)
{
    if (col != ThisShipment)
        return;
    if (!IsNumeric(vsfgItems->textMatrix(row, ThisShipment)))
        vsfgItems->setTextMatrix(row, ThisShipment, "0");
    if (number(row, QtyOrdered) - number(row, PrevShipped) < number(row, ThisShipment))
        vsfgItems->setTextMatrix(row, ThisShipment, "0");
}

/// A line shipped beyond its order gets a negative quantity.
void frmShipmentEntry::btnShipAll_Click()
{
    for (int row = 1; row < vsfgItems->rows(); ++row)
        vsfgItems->setTextMatrix(row, ThisShipment, textOf(number(row, QtyOrdered) - number(row, PrevShipped)));
}

/// Each step commits by itself. The order's status comes last, behind the question: stopped at it, the goods have left
/// and the order still counts as it did.
void frmShipmentEntry::btnSave_Click()
{
    if (!hasItems() || cmbCustomer->text().isEmpty()) {
        MsgBox("No Items to save.", "Unable to Save");
        return;
    }
    const QString orderID = saveHeader();
    saveLines();
    do
        // Only Yes leaves the loop, and every No prints two more copies.
        Reports::PrintPackingSlip(txtID->text(), false);
    while (!MsgBoxYesNo("Did the Shipping Ticket Print OK?", "Print Confirmation"));
    UpdateOrderStatus(orderID);
    unload();
}

bool frmShipmentEntry::hasItems() const
{
    for (int row = 1; row < vsfgItems->rows(); ++row) {
        if (number(row, ThisShipment) != 0)
            return true;
    }
    return false;
}

/// Writes the shipment's row and, for a new one, shows the number it took. Returns the order it belongs to, which
/// is written once and never changed.
QString frmShipmentEntry::saveHeader()
{
    const bool existing = !txtID->text().isEmpty();
    Recordset shipment = gDatabase->OpenRecordset(existing ? "SELECT * FROM Shipment WHERE ID = " + txtID->text()
                                                           : QString("SELECT TOP 1 *  FROM Shipment"));
    if (existing) {
        shipment.Edit();
    } else {
        shipment.AddNew();
        txtID->setText(shipment.Fields("ID").text());
        shipment.Fields("OrderID") = cmbOrderID->list(cmbOrder->listIndex());
    }
    const QString orderID = shipment.Fields("OrderID").text();
    const QString freight = txtFreight->text(), adjustment = txtAdjustment->text();
    shipment.Fields("Date") = dtDate->value();
    shipment.Fields("Freight") = freight.isEmpty() ? Value("0.0") : Value(freight);
    shipment.Fields("Adjustment") = adjustment.isEmpty() ? Value(0) : Value(adjustment);
    shipment.Fields("Via") = txtShipVia->text();
    shipment.Update();
    shipment.Close();
    return orderID;
}

/// Replaces the shipment's lines and adds every quantity to the ledger, positive and once more at each save: only
/// a rebuild of the ledger turns the sign and drops the repeats.
void frmShipmentEntry::saveLines()
{
    const QString warehouse = GetOrderWarehouse(shownOrderID());
    gDatabase->Execute("DELETE FROM ShipmentItems WHERE ShipmentID = " + txtID->text());
    Recordset items = gDatabase->OpenRecordset("SELECT TOP 1 * FROM ShipmentItems");
    for (int row = 1; row < vsfgItems->rows(); ++row) {
        // A line set back to 0 loses its row; what it has done to the ledger stays.
        if (number(row, ThisShipment) == 0)
            continue;
        items.AddNew();
        items.Fields("ShipmentID") = txtID->text();
        items.Fields("OrderID") = shownOrderID();
        items.Fields("OrderLineItem") = vsfgItems->textMatrix(row, ItemNumber);
        items.Fields("Qty") = vsfgItems->textMatrix(row, ThisShipment);
        items.Update();
        if (!warehouse.isEmpty())
            UpdateAvailInv(warehouse, vsfgItems->textMatrix(row, PartNo),
                           CInt(vsfgItems->textMatrix(row, ThisShipment)));
    }
    items.Close();
}

/// Of an order that is no longer open the list has no entry; its number is then the text that OpenShipment put there.
QString frmShipmentEntry::shownOrderID() const
{
    const int index = cmbOrder->listIndex();
    return index >= 0 ? cmbOrderID->list(index) : cmbOrderID->text();
}

double frmShipmentEntry::number(int row, int col) const
{
    return Val(vsfgItems->textMatrix(row, col));
}

/// The order of the assignments counts: the customer's text appends his open orders to the lists before the number and
/// the order are set. A customer retired since is in no list, and his text is error 383.
void frmShipmentEntry::OpenShipment(const QString &ShipmentID)
{
    if (ShipmentID.isEmpty())
        return;
    Recordset shipment = gDatabase->OpenRecordset(
        "SELECT Shipment.Date,Shipment.Via, Shipment.Freight,Shipment.Adjustment,Orders.ID,Orders.OrderDate, "
        "Orders.Customer, Orders.OrderNumber, Orders.ShipTo, Orders.ShipToAddress1, Orders.ShipToAddress2, "
        "Orders.ShipToCity, Orders.ShipToState, Orders.ShipToZip, Invoiced FROM Shipment LEFT JOIN Orders ON "
        "Shipment.OrderID = Orders.ID WHERE Shipment.ID = " +
        ShipmentID);
    if (!(shipment.Bof() && shipment.Eof())) {
        txtID->setText(ShipmentID);
        cmbCustomer->setText(shipment.Fields("Customer").text());
        cmbOrderID->setText(shipment.Fields("Orders.ID").text());
        cmbOrder->setText(shipment.Fields("OrderNumber").joined() + " - " + shipment.Fields("OrderDate").joined());
        dtDate->setValue(shipment.Fields("Date").value());
        txtFreight->setText(shipment.Fields("Freight").text());
        txtAdjustment->setText(shipment.Fields("Adjustment").text());
        // An empty carrier leaves the one that new shipments start with.
        if (const QString via = shipment.Fields("Via").joined(); !via.isEmpty())
            txtShipVia->setText(via);
        // Invoiced: it may be looked at and even typed over, but not stored.
        if (shipment.Fields("Invoiced").value().toBoolean())
            btnSave->setEnabled(false);
        FillOrder(shipment.Fields("Orders.ID").text());
    }
    shipment.Close();
    fillShipped(ShipmentID);
}

/// Puts the shipment's own quantities into their column and takes them out of "Prev. Shipped". An item number is
/// taken for its grid row: the lines of an order run from 1 without gaps.
void frmShipmentEntry::fillShipped(const QString &ShipmentID)
{
    Recordset items = gDatabase->OpenRecordset("SELECT * FROM ShipmentItems WHERE ShipmentID = " + ShipmentID);
    while (!items.Eof()) {
        const int row = items.Fields("OrderLineItem").value().toLong();
        const Value qty = items.Fields("Qty").value();
        vsfgItems->setTextMatrix(row, ThisShipment, qty.toText());
        vsfgItems->setTextMatrix(row, PrevShipped, textOf(number(row, PrevShipped) - qty.toDouble()));
        items.MoveNext();
    }
    items.Close();
    vsfgItems->autoSize();
}

void frmShipmentEntry::layOut()
{
    setFieldWidth(txtID, 12);
    setFieldWidth(dtDate, 12);
    setFieldWidth(txtState, 3);
    txtCity->setMinimumWidth(110);
    setFieldWidth(txtZip, 10);
    for (QWidget *amount : {txtFreight, txtAdjustment})
        setFieldWidth(amount, 14);
    auto *header = new FieldLayout(Frame1);
    header->add("Customer", cmbCustomer);
    header->add("Order Number", cmbOrder);
    header->add("Shipment ID", txtID);
    header->add("Shipment Date", dtDate);
    header->add("Ship Via", txtShipVia, 1);
    header->add("Freight Charges", txtFreight, 1);
    header->add("Adjustment", txtAdjustment, 1);
    header->add("Ship To", txtShipTo, 2);
    header->add("Address 1", txtAddress1, 2);
    header->add("Address 2", txtAddress2, 2);
    header->add("City/St/Zip", {txtCity, txtState, txtZip}, 2);

    auto *selection = new QVBoxLayout(Frame2);
    selection->addWidget(vsfgItems, 1);
    selection->addLayout(buttonRow({btnShipAll}));

    auto *form = new QVBoxLayout(this);
    form->addWidget(Frame1);
    form->addWidget(Frame2, 1);
    form->addLayout(buttonRow({btnSave, btnExit}));

    setTabOrder({cmbCustomer, cmbOrder, txtID, dtDate, txtShipVia, txtFreight, txtAdjustment, txtShipTo, txtAddress1,
                 txtAddress2, txtCity, txtState, txtZip, vsfgItems, btnShipAll, btnSave, btnExit});
    resize(1120, 560);
}
