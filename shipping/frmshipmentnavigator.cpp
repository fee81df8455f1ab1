#include "shipping/frmshipmentnavigator.h"

#include "shipping/frmshipmententry.h"
#include "toolkit/controls/formatgrid.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/forms/criteria.h"
#include "toolkit/forms/fillcombo.h"
#include "toolkit/forms/formlayout.h"
#include "toolkit/forms/forms.h"
#include "toolkit/forms/mainmod.h"
#include "toolkit/forms/navigatorlayout.h"

namespace {
constexpr int ShipmentIDColumn = 2;
enum LineColumn { PriceEachColumn = 4, PriceExtColumn = 5 };
} // namespace

frmShipmentNavigator::frmShipmentNavigator()
    : Form("frmShipmentNavigator", "Shipment Navigator"), Frame1(addFrame("Frame1", "Search Criteria")),
      Frame2(addFrame("Frame2", "Shipments")), Frame3(addFrame("Frame3", "Line Items")),
      cmbCustomer(addList("cmbCustomer")), txtOrderNumber(addText("txtOrderNumber")),
      chkShipDate(addCheck("chkShipDate", "Ship Date")), dtStartDate(addDate("dtStartDate")),
      dtEndDate(addDate("dtEndDate")), btnFind(addButton("btnFind", "Find")), btnClear(addButton("btnClear", "Clear")),
      btnExit(addButton("btnExit", "Exit")), vsfgShipments(addGrid("vsfgShipments")), vsfgItems(addGrid("vsfgItems"))
{
    setTypeAhead(cmbCustomer);
    connect(btnFind, &QPushButton::clicked, this, &frmShipmentNavigator::btnFind_Click);
    connect(btnClear, &QPushButton::clicked, this, &frmShipmentNavigator::btnClear_Click);
    connect(btnExit, &QPushButton::clicked, this, &frmShipmentNavigator::unload);
    connect(vsfgShipments, &FlexGrid::afterRowColChange, this, &frmShipmentNavigator::vsfgShipments_AfterRowColChange);
    connect(vsfgShipments, &FlexGrid::dblClick, this, &frmShipmentNavigator::vsfgShipments_DblClick);
    layOut();
}

void frmShipmentNavigator::formLoad()
{
    // Kept like its counterpart of the orders, though nobody asks it: a saved shipment shows after the next search.
    gShipmentNavigatorOpen = true;
    placeNavigator(this, mainWindowTwips().width() * 0.9, mainWindowTwips().height() * 0.9);
    fillCombo(cmbCustomer, "SELECT Customer FROM Customer WHERE Status = 'Active' ORDER BY Customer", "Customer");
    dtStartDate->setValue(Date::today());
    dtEndDate->setValue(Date::today());
    UpdateGrids();
    vsfgItems->setRows(0);
}

void frmShipmentNavigator::formUnload()
{
    gShipmentNavigatorOpen = false;
}

void frmShipmentNavigator::formResize()
{
    sizeNavigator(this, {Frame1, Frame2, vsfgShipments, Frame3, vsfgItems});
}

void frmShipmentNavigator::btnFind_Click()
{
    UpdateGrids();
}

/// The caption is set back here too, though picking a shipment never changes it.
void frmShipmentNavigator::btnClear_Click()
{
    cmbCustomer->setListIndex(-1);
    txtOrderNumber->clear();
    chkShipDate->setChecked(false);
    UpdateGrids();
    vsfgItems->setRows(0);
    Frame3->setTitle("Line Items");
}

void frmShipmentNavigator::UpdateGrids()
{
    const Hourglass hourglass;
    fillShipments(searchStatement());
    vsfgItems->setRows(0);
}

/// The columns of both tables share names, so the grid reads them by their qualified ones. A shipment whose order is
/// gone is listed with empty columns.
QString frmShipmentNavigator::searchStatement() const
{
    const QString sql =
        "SELECT Shipment.ID,Shipment.Date,Orders.ID,Orders.Customer,Orders.OrderNumber,Orders.ShipTo,"
        "Orders.ShipToAddress1,Orders.ShipToAddress2,Orders.ShipToCity,Orders.ShipToState,Orders.ShipToZip,"
        "Shipment.Invoiced FROM Shipment LEFT JOIN Orders ON Shipment.OrderID = Orders.ID ";
    Criteria criteria;
    if (!cmbCustomer->text().isEmpty())
        criteria.add(" Orders.Customer = '" + cmbCustomer->text() + "'");
    if (chkShipDate->isChecked())
        criteria.add(" Shipment.Date >= #" + dtStartDate->value().toText() + "# AND Shipment.Date <= #" +
                     dtEndDate->value().toText() + "#");
    if (!txtOrderNumber->text().isEmpty())
        criteria.add(" Orders.OrderNumber Like '*" + txtOrderNumber->text() + "*'");
    return sql + criteria.clause() + " ORDER BY Orders.Customer, Orders.OrderNumber";
}

void frmShipmentNavigator::fillShipments(const QString &sql)
{
    vsfgShipments->setRows(0);
    vsfgShipments->setCols(7);
    vsfgShipments->addItem("Customer\tOrder Number\tShipment ID\tShipment Date\tOrder ID\tShip To\tInvoiced");
    Recordset rs = gDatabase->OpenRecordset(sql);
    const Field customer = rs.Fields("Orders.Customer"), number = rs.Fields("Orders.OrderNumber"),
                id = rs.Fields("Shipment.ID"), date = rs.Fields("Shipment.Date"), orderID = rs.Fields("Orders.ID"),
                shipTo = rs.Fields("Orders.ShipTo"), address1 = rs.Fields("Orders.ShipToAddress1"),
                address2 = rs.Fields("Orders.ShipToAddress2"), city = rs.Fields("Orders.ShipToCity"),
                state = rs.Fields("Orders.ShipToState"), zip = rs.Fields("Orders.ShipToZip"),
                invoiced = rs.Fields("Shipment.Invoiced");
    while (!rs.Eof()) {
        vsfgShipments->addItem({customer.joined(), number.joined(), id.joined(), date.joined(), orderID.joined(),
                                // Empty parts keep their commas here; the order list leaves the second address line
                                // out.
                                shipTo.joined() + ", " + address1.joined() + ", " + address2.joined() + ", " +
                                    city.joined() + ", " + state.joined() + "  " + zip.joined(),
                                invoiced.joined()});
        rs.MoveNext();
    }
    rs.Close();
    formatGrid(vsfgShipments, {});
}

/// The last column is the amount of the whole ordered quantity, not of what this shipment holds.
void frmShipmentNavigator::vsfgShipments_AfterRowColChange(int, int, int newRow, int)
{
    if (newRow <= 0)
        return;
    const QString shipmentID = vsfgShipments->textMatrix(newRow, ShipmentIDColumn);
    vsfgItems->setRows(0);
    vsfgItems->setCols(6);
    vsfgItems->addItem("Item Number\tQty Ordered\tQty Shipped\tPart No.\tPrice Each\tPrice Ext.");
    Recordset lines = gDatabase->OpenRecordset(
        "SELECT Shipment.ID,Shipment.Date,Orders.ID,Orders.Customer,Orders.OrderNumber,Orders.ShipTo,"
        "Orders.ShipToAddress1,Orders.ShipToAddress2,Orders.ShipToCity,Orders.ShipToState,Orders.ShipToZip,"
        "OrderItem.ItemNumber, OrderItem.Qty, ShipmentItems.Qty,OrderItem.PartNo, OrderItem.PriceEach,"
        "OrderItem.PriceExt FROM (((Shipment LEFT JOIN ShipmentItems ON Shipment.ID = ShipmentItems.ShipmentID) LEFT "
        "JOIN Orders ON Shipment.OrderID = Orders.ID) LEFT JOIN OrderItem ON Shipment.OrderID = OrderItem.OrderID) "
        "WHERE ShipmentItems.OrderLineItem = OrderItem.ItemNumber AND ShipmentID = " +
        shipmentID + " ORDER BY OrderLineItem");
    while (!lines.Eof()) {
        vsfgItems->addItem(lines.Fields("ItemNumber").joined() + '\t' + lines.Fields("OrderItem.Qty").joined() + '\t' +
                           lines.Fields("ShipmentItems.Qty").joined() + '\t' + lines.Fields("PartNo").joined() + '\t' +
                           lines.Fields("PriceEach").joined() + '\t' + lines.Fields("PriceExt").joined());
        lines.MoveNext();
    }
    lines.Close();
    formatGrid(vsfgItems, {PriceEachColumn, PriceExtColumn});
}

/// A double-click on the header opens the entry form empty.
void frmShipmentNavigator::vsfgShipments_DblClick(int row)
{
    QString shipmentID;
    if (row >= 1)
        shipmentID = vsfgShipments->textMatrix(vsfgShipments->row(), ShipmentIDColumn);
    static_cast<frmShipmentEntry *>(Load("frmShipmentEntry"))->OpenShipment(shipmentID);
}

void frmShipmentNavigator::layOut()
{
    auto *criteria = new QVBoxLayout(Frame1);
    auto *fields = new FieldLayout;
    criteria->addLayout(fields);
    fields->add("Customer", cmbCustomer);
    fields->add("Order Number", txtOrderNumber, 1);
    auto *foot = new QHBoxLayout;
    criteria->addLayout(foot);
    for (QWidget *widget : {static_cast<QWidget *>(chkShipDate), static_cast<QWidget *>(dtStartDate),
                            static_cast<QWidget *>(addLabel("Label3", "to")), static_cast<QWidget *>(dtEndDate)})
        foot->addWidget(widget);
    foot->addLayout(buttonRow({btnFind, btnClear, btnExit}), 1);
    for (QWidget *date : {dtStartDate, dtEndDate})
        setFieldWidth(date, 12);

    vsfgShipments->setParent(Frame2);
    vsfgItems->setParent(Frame3);
    setTabOrder({cmbCustomer, txtOrderNumber, chkShipDate, dtStartDate, dtEndDate, btnFind, btnClear, btnExit,
                 vsfgShipments, vsfgItems});
}
