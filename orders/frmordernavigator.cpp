#include "orders/frmordernavigator.h"

#include "data/values/numbers.h"
#include "orders/frmorderentry.h"
#include "toolkit/controls/formatgrid.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/forms/criteria.h"
#include "toolkit/forms/fillcombo.h"
#include "toolkit/forms/formlayout.h"
#include "toolkit/forms/forms.h"
#include "toolkit/forms/mainmod.h"
#include "toolkit/forms/navigatorlayout.h"
#include <QVBoxLayout>

namespace {
/// Columns of the two grids, as far as they are spoken to.
enum OrderColumn { OrderNumberColumn = 1, TotalColumn = 6, OrderIDColumn = 11 };
enum LineColumn { PriceEachColumn = 5, PriceExtColumn = 6 };

/// Columns by name, looked up once: the list may hold every order of all years.
std::vector<Field> fields(const Recordset &rs, std::initializer_list<const char *> names)
{
    std::vector<Field> found;
    for (const char *name : names)
        found.push_back(rs.Fields(name));
    return found;
}

void appendCells(QString &row, const std::vector<Field> &cells)
{
    for (const Field &cell : cells)
        row += cell.joined() + '\t';
}
} // namespace

frmOrderNavigator::frmOrderNavigator()
    : Form("frmOrderNavigator", "Order Navigator"), Frame1(addFrame("Frame1", "Search Criteria")),
      cmbWarehouse(addList("cmbWarehouse")), cmbCustomer(addList("cmbCustomer")), cmbStatus(addList("cmbStatus")),
      txtOrderNumber(addText("txtOrderNumber")), chkOrderDate(addCheck("chkOrderDate", "Order Date")),
      dtStartDate(addDate("dtStartDate")), dtEndDate(addDate("dtEndDate")), btnFind(addButton("btnFind", "Find")),
      btnClear(addButton("btnClear", "Clear")), btnAddNew(addButton("btnAddNew", "Add New")),
      btnExit(addButton("btnExit", "Exit")), Frame2(addFrame("Frame2", "Orders")), vsfgOrders(addGrid("vsfgOrders")),
      Frame3(addFrame("Frame3", "Line Items")), vsfgItems(addGrid("vsfgItems"))
{
    layOut();
    setTypeAhead(cmbWarehouse);
    setTypeAhead(cmbCustomer);
    connect(btnFind, &QPushButton::clicked, this, &frmOrderNavigator::UpdateGrids);
    connect(btnClear, &QPushButton::clicked, this, &frmOrderNavigator::btnClear_Click);
    connect(btnAddNew, &QPushButton::clicked, this, [] { Load("frmOrderEntry"); });
    connect(btnExit, &QPushButton::clicked, this, &Form::unload);
    connect(vsfgOrders, &FlexGrid::afterRowColChange, this,
            [this](int, int, int newRow) { vsfgOrders_AfterRowColChange(newRow); });
    connect(vsfgOrders, &FlexGrid::dblClick, this, &frmOrderNavigator::vsfgOrders_DblClick);
}

void frmOrderNavigator::layOut()
{
    auto *layout = new QVBoxLayout(Frame1);
    auto *fields = new FieldLayout;
    layout->addLayout(fields);
    fields->add("Warehouse", cmbWarehouse);
    fields->add("Customer", cmbCustomer);
    fields->add("Status", cmbStatus);
    fields->add("Order Number", txtOrderNumber, 1);
    fields->add(chkOrderDate, 1);
    for (DTPicker *date : {dtStartDate, dtEndDate})
        setFieldWidth(date, 11);
    fields->add({}, {dtStartDate, dtEndDate}, 1);
    for (ComboBox *list : {cmbWarehouse, cmbCustomer, cmbStatus})
        list->setMinimumContentsLength(12);                                  // the window opens 600 pixels wide
    Frame1->setMaximumWidth(Frame1->fontMetrics().averageCharWidth() * 110); // a wider window is for the lists
    layout->addLayout(buttonRow({btnFind, btnClear, btnAddNew, btnExit}));
    vsfgOrders->setParent(Frame2);
    vsfgItems->setParent(Frame3);
    setTabOrder({cmbWarehouse, cmbCustomer, cmbStatus, txtOrderNumber, chkOrderDate, dtStartDate, dtEndDate, btnFind,
                 btnClear, btnAddNew, btnExit, vsfgOrders, vsfgItems});
}

void frmOrderNavigator::formLoad()
{
    // The order form asks this flag when it goes, and has the list searched anew.
    gOrderNavigatorOpen = true;
    placeNavigator(this, 9000, mainWindowTwips().height() * 0.9);
    cmbStatus->addItems({"Open", "Closed", "Void"});
    fillCombo(cmbWarehouse, "SELECT Warehouse FROM Warehouse WHERE Status = 'Active' ORDER BY Warehouse", "Warehouse");
    fillCombo(cmbCustomer, "SELECT Customer FROM Customer WHERE Status = 'Active' ORDER BY Customer", "Customer");
    dtStartDate->setValue(Date::today());
    dtEndDate->setValue(Date::today());
    UpdateGrids();
    vsfgItems->setRows(0);
}

void frmOrderNavigator::formUnload()
{
    gOrderNavigatorOpen = false;
}

void frmOrderNavigator::formResize()
{
    sizeNavigator(this, {Frame1, Frame2, vsfgOrders, Frame3, vsfgItems});
}

QString frmOrderNavigator::searchStatement() const
{
    Criteria criteria;
    if (!cmbWarehouse->text().isEmpty())
        criteria.add(" Orders.Warehouse = '" + cmbWarehouse->text() + "'");
    if (!cmbCustomer->text().isEmpty())
        criteria.add(" Orders.Customer = '" + cmbCustomer->text() + "'");
    if (!cmbStatus->text().isEmpty())
        criteria.add(" Orders.Status = '" + cmbStatus->text() + "'");
    if (chkOrderDate->isChecked())
        criteria.add(" Orders.OrderDate >= #" + dtStartDate->value().toText() + "# AND Orders.OrderDate <= #" +
                     dtEndDate->value().toText() + "#");
    if (!txtOrderNumber->text().isEmpty())
        criteria.add(" Orders.OrderNumber Like '*" + txtOrderNumber->text() + "*'");
    return "SELECT * FROM Orders" + criteria.clause() + " ORDER BY Orders.Customer, Orders.OrderNumber";
}

/// The frame of the lines keeps naming the order last shown, over an empty grid, until another is picked or all is
/// cleared.
void frmOrderNavigator::UpdateGrids()
{
    const Hourglass hourglass;
    Recordset rs = gDatabase->OpenRecordset(searchStatement());
    fillOrders(rs);
    rs.Close();
    formatGrid(vsfgOrders, {TotalColumn});
    vsfgItems->setRows(0);
}

void frmOrderNavigator::fillOrders(Recordset &rs)
{
    vsfgOrders->setRows(0);
    vsfgOrders->setCols(12);
    vsfgOrders->addItem("Warehouse\tOrder Number\tCustomer\tOrder Date\tDue Date\tStatus\tTotal\tShip To\tShip To "
                        "Phone\tShip To Fax\tDate Added\tOrderID");
    const auto before = fields(rs, {"Warehouse", "OrderNumber", "Customer", "OrderDate", "DueDate", "Status", "Total"});
    const auto shipTo =
        fields(rs, {"ShipTo", "ShipToAddress1", "ShipToAddress2", "ShipToCity", "ShipToState", "ShipToZip"});
    const auto after = fields(rs, {"ShipToPhone", "ShipToFax", "DateAdded"});
    const Field id = rs.Fields("ID");
    QString row;
    while (!rs.Eof()) {
        row.resize(0);
        appendCells(row, before);
        const QString address2 = shipTo[2].joined();
        row += shipTo[0].joined() + ", " + shipTo[1].joined() + ", ";
        if (!address2.isEmpty())
            row += address2 + ", ";
        row += shipTo[3].joined() + ", " + shipTo[4].joined() + ' ' + shipTo[5].joined() + '\t';
        appendCells(row, after);
        vsfgOrders->addItem(row + id.joined());
        rs.MoveNext();
    }
}

/// Runs its statement for every row that the arrow keys pass.
void frmOrderNavigator::vsfgOrders_AfterRowColChange(int newRow)
{
    if (newRow <= 0)
        return;
    const QString orderID = vsfgOrders->textMatrix(newRow, OrderIDColumn);
    Frame3->setTitle("Order " + vsfgOrders->textMatrix(newRow, OrderNumberColumn) + " Line Items");
    vsfgItems->setRows(0);
    vsfgItems->setCols(8);
    vsfgItems->addItem("Item Number\tQty Ordered\tQty Shipped\tPart No.\tCategory\tPrice Each\tPrice Ext.\tCust. No.");
    Recordset rs = gDatabase->OpenRecordset(
        "SELECT ItemNumber,OrderItem.Qty,SUM(ShipmentItems.Qty) AS Shipped, "
        "PartNo,Category,PriceEach,PriceExt,CustomerNumber FROM (OrderItem LEFT JOIN ShipmentItems ON "
        "OrderItem.OrderID = ShipmentItems.OrderID AND OrderItem.ItemNumber = ShipmentItems.OrderLineItem) WHERE "
        "OrderItem.OrderID = " +
        orderID + " GROUP BY ItemNumber,OrderItem.Qty,PartNo,Category,PriceEach,PriceExt,CustomerNumber");
    const auto cells = fields(rs, {"ItemNumber", "Qty", "Shipped", "PartNo", "Category", "PriceEach", "PriceExt"});
    while (!rs.Eof()) {
        QString row;
        appendCells(row, cells);
        vsfgItems->addItem(row + rs.Fields("CustomerNumber").joined());
        rs.MoveNext();
    }
    rs.Close();
    formatGrid(vsfgItems, {PriceEachColumn, PriceExtColumn});
}

void frmOrderNavigator::vsfgOrders_DblClick(int row)
{
    // The header counts as no order: the form opens empty. Numbers beyond 16 bits overflow here.
    const qint16 id = row >= 1 ? CInt(vsfgOrders->textMatrix(row, OrderIDColumn)) : 0;
    static_cast<frmOrderEntry *>(Load("frmOrderEntry"))->OpenOrder(id);
}

/// The two dates stay; without the check mark they filter nothing.
void frmOrderNavigator::btnClear_Click()
{
    cmbWarehouse->setListIndex(-1);
    cmbStatus->setListIndex(-1);
    cmbCustomer->setListIndex(-1);
    txtOrderNumber->clear();
    chkOrderDate->setChecked(false);
    UpdateGrids();
    vsfgItems->setRows(0);
    Frame3->setTitle("Line Items");
}
