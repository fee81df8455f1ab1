#include "orders/frmorderentry.h"

#include "toolkit/forms/formlayout.h"
#include <QVBoxLayout>

void frmOrderEntry::makeControls()
{
    Frame1 = addFrame("Frame1", "Order Info");
    cmbCustomer = addList("cmbCustomer");
    txtOrderNumber = addText("txtOrderNumber");
    dtOrderDate = addDate("dtOrderDate");
    dtDueDate = addDate("dtDueDate");
    cmbWarehouse = addList("cmbWarehouse");
    lblID = addLabel("lblID");
    lblStatus = addLabel("lblStatus");
    txtShipTo = addText("txtShipTo");
    txtAddress1 = addText("txtAddress1");
    txtAddress2 = addText("txtAddress2");
    txtCity = addText("txtCity");
    txtState = addText("txtState");
    txtZip = addText("txtZip");
    txtPhone = addText("txtPhone");
    txtFax = addText("txtFax");
    chkDropShip = addCheck("chkDropShip", "Drop Ship");
    txtFreight = addMoney("txtFreight");
    txtOverDue = addMoneyDisplay("txtOverDue");
    lblTotal = addMoneyDisplay("lblTotal");

    Frame2 = addFrame("Frame2", "Line Items");
    lblItem = addLabel("lblItem");
    cmbPart = addList("cmbPart");
    cmbCategory = addHiddenList("cmbCategory");
    cmbPrice = addHiddenList("cmbPrice");
    txtQty = addText("txtQty");
    lblQtyAvail = addLabel("lblQtyAvail");
    txtPriceEach = addMoney("txtPriceEach");
    lblPriceExt = addMoneyDisplay("lblPriceExt");
    txtCustomerNumber = add<TextBox>("txtCustomerNumber"); // the one text box that keeps its cursor
    btnSaveItem = addButton("btnSaveItem", "Save");
    btnDeleteItem = addButton("btnDeleteItem", "Delete");
    vsfgItems = addGrid("vsfgItems");

    btnSave = addButton("btnSave", "Save and Close");
    btnExit = addButton("btnExit", "Exit");
    btnClose = addButton("btnClose", "Close Order");
    btnOpenOrder = addButton("btnOpenOrder", "Open Order");
    btnVoidOrder = addButton("btnVoidOrder", "Void Order");

    for (ComboBox *box : {cmbCustomer, cmbWarehouse, cmbPart})
        setTypeAhead(box);
}

void frmOrderEntry::connectEvents()
{
    connect(cmbCustomer, &ComboBox::click, this, &frmOrderEntry::cmbCustomer_Click);
    connect(cmbCustomer, &ComboBox::lostFocus, this, &frmOrderEntry::cmbCustomer_LostFocus);
    connect(chkDropShip, &QCheckBox::toggled, this, &frmOrderEntry::chkDropShip_Click);
    connect(cmbPart, &ComboBox::lostFocus, this, &frmOrderEntry::cmbPart_LostFocus);
    connect(txtQty, &TextBox::lostFocus, this, &frmOrderEntry::showLineAmount);
    connect(txtPriceEach, &TextBox::lostFocus, this, &frmOrderEntry::showLineAmount);
    connect(vsfgItems, &FlexGrid::afterRowColChange, this,
            [this](int, int, int newRow) { vsfgItems_AfterRowColChange(newRow); });
    connect(btnSaveItem, &QPushButton::clicked, this, &frmOrderEntry::btnSaveItem_Click);
    connect(btnDeleteItem, &QPushButton::clicked, this, &frmOrderEntry::btnDeleteItem_Click);
    connect(btnSave, &QPushButton::clicked, this, &frmOrderEntry::btnSave_Click);
    connect(btnExit, &QPushButton::clicked, this, &Form::unload);
    connect(btnClose, &QPushButton::clicked, this, &frmOrderEntry::btnClose_Click);
    connect(btnOpenOrder, &QPushButton::clicked, this, &frmOrderEntry::btnOpenOrder_Click);
    connect(btnVoidOrder, &QPushButton::clicked, this, &frmOrderEntry::btnVoidOrder_Click);
}

void frmOrderEntry::layOut()
{
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(Frame1);
    layout->addWidget(Frame2, 1);
    layOutHeader();
    layOutLines();
    layout->addLayout(buttonRow({btnSave, btnExit}, {btnClose, btnOpenOrder, btnVoidOrder}));
    setTabOrder({cmbCustomer, txtOrderNumber, dtOrderDate,  dtDueDate,    cmbWarehouse,      txtShipTo,   txtAddress1,
                 txtAddress2, txtCity,        txtState,     txtZip,       txtPhone,          txtFax,      chkDropShip,
                 txtFreight,  cmbPart,        txtQty,       txtPriceEach, txtCustomerNumber, btnSaveItem, btnDeleteItem,
                 vsfgItems,   btnClose,       btnOpenOrder, btnVoidOrder, btnSave,           btnExit});
}

void frmOrderEntry::layOutHeader()
{
    auto *fields = new FieldLayout(Frame1);
    fields->add("Customer", cmbCustomer);
    fields->add("Order Number", txtOrderNumber);
    fields->add("Order Date", dtOrderDate);
    fields->add("Due Date", dtDueDate);
    fields->add("Warehouse", cmbWarehouse);
    fields->add("ID", lblID);
    fields->add("Status", lblStatus);
    fields->add("Ship To", txtShipTo, 1);
    fields->add("Address 1", txtAddress1, 1);
    fields->add("Address 2", txtAddress2, 1);
    fields->add("City/St/Zip", {txtCity, txtState, txtZip}, 1);
    fields->add("Ship To Phone", txtPhone, 1);
    fields->add("Ship To Fax", txtFax, 1);
    fields->add(chkDropShip, 2);
    fields->add("Freight", txtFreight, 2);
    fields->add("Overdue Balance", txtOverDue, 2);
    fields->add("Order Total", lblTotal, 2);
    setFieldWidth(txtState, 3);
    setFieldWidth(txtZip, 10);
    txtCity->setMinimumWidth(120);
    cmbCustomer->setMinimumContentsLength(26);
    for (DTPicker *date : {dtOrderDate, dtDueDate})
        setFieldWidth(date, 14);
    for (MaskEdBox *amount : {txtFreight, txtOverDue, lblTotal})
        setFieldWidth(amount, 12);
}

void frmOrderEntry::layOutLines()
{
    auto *layout = new QVBoxLayout(Frame2);
    auto *fields = new FieldLayout;
    layout->addLayout(fields);
    fields->setColumnMinimumWidth(0, fontMetrics().horizontalAdvance("Order Number")); // as in the frame above
    // What is typed stands in one row in the order it is typed in, and below it what belongs to it.
    fields->add("Part Number", cmbPart);
    fields->add("Qty Ordered", txtQty, 1);
    fields->add("Price Each", txtPriceEach, 2);
    fields->add("Cust No.", txtCustomerNumber, 3);
    fields->add("Item", lblItem);
    fields->add("Qty Avail", lblQtyAvail, 1);
    fields->add("Price Ext", lblPriceExt, 2);
    for (QPushButton *button : {btnSaveItem, btnDeleteItem})
        setFieldWidth(button, 10);
    fields->add({}, {btnSaveItem, btnDeleteItem}, 3);
    setFieldWidth(txtQty, 9);
    for (MaskEdBox *amount : {txtPriceEach, lblPriceExt})
        setFieldWidth(amount, 12);
    layout->addWidget(vsfgItems, 1);
}
