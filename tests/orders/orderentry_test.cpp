#include "tests/orders/orderdesk.h"

namespace {

class OrderEntry : public OrderDesk
{
protected:
    static const QList<const char *> &shipTo()
    {
        static const QList<const char *> fields = {"txtShipTo", "txtAddress1", "txtAddress2", "txtCity",
                                                   "txtState",  "txtZip",      "txtPhone",    "txtFax"};
        return fields;
    }
    int viewers() const { return int(mdi->findChildren<QWidget *>("Viewer").size()); }
};

TEST_F(OrderEntry, ANewFormShowsTodayTheDefaultWarehouseAndAnEmptyGrid)
{
    FormDriver form("frmOrderEntry");
    EXPECT_EQ(texts(form, {"cmbCustomer", "txtOrderNumber", "dtOrderDate", "dtDueDate", "cmbWarehouse", "lblID",
                           "lblStatus", "lblTotal", "txtOverDue"}),
              ",,3/30/2011,3/30/2011,North,,,0,");
    EXPECT_EQ(form.row("vsfgItems", 0), "Item Number|Qty|Part No.|Category|Price Each|Price Ext.|Cust. No.");
    EXPECT_EQ(form.grid("vsfgItems").mid(1), QStringList());
    EXPECT_FALSE(form.enabled("txtFreight"));
    EXPECT_EQ(form.control<ComboBox>("cmbCustomer")->listCount(), 2) << "active ones only";
    EXPECT_EQ(form.control<ComboBox>("cmbWarehouse")->listCount(), 2);
    const auto *parts = form.control<ComboBox>("cmbPart");
    EXPECT_EQ(parts->list(0) + parts->list(1) + parts->list(2), "P1P2P3") << "whichever was written first";
    for (const char *list : {"cmbCategory", "cmbPrice"}) {
        EXPECT_EQ(form.control<ComboBox>(list)->listCount(), 3);
        EXPECT_FALSE(form.control<ComboBox>(list)->isVisible());
    }
    EXPECT_FALSE(QGuiApplication::overrideCursor());
}

TEST_F(OrderEntry, LoadingStopsAtAnUnknownDefaultWarehouseAndAtANullPrice)
{
    gDefaultWarehouse = "Closed Hall";
    EXPECT_EQ(errorNumberOf([] { FormDriver("frmOrderEntry"); }), 383);
    setDefaultPointer();
}

TEST_F(OrderEntry, LoadingStopsAtAPartWithoutPrice)
{
    addRow("Part", {{"PartNo", "P9"}, {"Category", "Nuts"}, {"SalePrice", Value()}, {"Status", "Active"}});
    EXPECT_EQ(errorNumberOf([] { FormDriver("frmOrderEntry"); }), 94);
    setDefaultPointer();
}

TEST_F(OrderEntry, PickingACustomerCopiesItsShipToOverWhatStands)
{
    FormDriver form("frmOrderEntry");
    form.choose("cmbCustomer", "Acme");
    EXPECT_EQ(texts(form, shipTo()), "Acme Dock,1 Quay,Gate 3,Erie,PA,16501,555-1,555-2");
    form.type("txtCity", "Corry");
    form.choose("cmbCustomer", "Bolt Bros");
    EXPECT_EQ(texts(form, shipTo()), ",,,,,,,");
}

TEST_F(OrderEntry, OverdueBalanceShowsWhenTheCustomerIsLeft)
{
    addRow("Invoice", {{"Invoice", "1"}, {"Customer", "Acme"}, {"DueDate", Date(2011, 3, 29)}, {"Total", 120.5}});
    FormDriver form("frmOrderEntry");
    form.choose("cmbCustomer", "Acme");
    EXPECT_EQ(form.text("txtOverDue"), "");
    form.key(Qt::Key_Tab);
    EXPECT_EQ(form.text("txtOverDue"), "120.5");
    EXPECT_EQ(form.control<MaskEdBox>("txtOverDue")->formattedText(), "$120.50");
    EXPECT_EQ(form.focus(), "txtOrderNumber");
}

TEST_F(OrderEntry, SaveRequiresWarehouseCustomerAndNumber)
{
    FormDriver form("frmOrderEntry");
    const auto refused = [&] {
        boxes.expect("Required Fields", "Warehouse, Customer, and Order Number fields are required.");
        form.click("btnSave");
        boxes.verify();
    };
    refused();
    form.choose("cmbCustomer", "Acme");
    refused();
    form.type("txtOrderNumber", "A-1");
    form.control<ComboBox>("cmbWarehouse")->setListIndex(-1);
    refused();
    EXPECT_TRUE(form.isLoaded());
    EXPECT_EQ(database.rows("SELECT * FROM Orders"), QStringList());
}

TEST_F(OrderEntry, SavesANewOrderOfSheetListAndTypedPricesAndShowsThePickTicket)
{
    FormDriver form = newOrder();
    addLine(form, "P1", "4");
    addLine(form, "P2", "3");
    enterLine(form, "P2", "2", "1.15");
    form.type("txtCustomerNumber", "their-7");
    form.click("btnSaveItem");
    form.type("txtZip", "16502");
    const int before = viewers();
    form.click("btnSave");
    EXPECT_FALSE(form.isLoaded());
    EXPECT_EQ(viewers(), before + 1);
    EXPECT_FALSE(QGuiApplication::overrideCursor());
    EXPECT_EQ(header("1"), "1|A-1|Acme|North|Open|3/30/2011|3/30/2011|Acme Dock|1 Quay|Gate 3|Erie|PA|16502|555-1|"
                           "555-2|3/30/2011|44.8");
    EXPECT_EQ(lines("1"),
              (QStringList{"1|1|4|P1|Bolts|8.75|35|", "1|2|3|P2|Nuts|2.5|7.5|", "1|3|2|P2|Nuts|1.15|2.3|their-7"}));
    EXPECT_EQ(database.rows("SELECT * FROM Shipment") + database.rows("SELECT * FROM AvailInv"), QStringList());
}

TEST_F(OrderEntry, AnOrderWithoutLinesSavesAndItsNumberMayRepeat)
{
    for (int i = 0; i < 2; ++i) {
        FormDriver form = newOrder("Bolt Bros", "B-1");
        leave(form, "btnSave");
    }
    EXPECT_EQ(database.rows("SELECT ID, OrderNumber, Customer, Total FROM Orders ORDER BY ID"),
              (QStringList{"1|B-1|Bolt Bros|0", "2|B-1|Bolt Bros|0"}));
}

TEST_F(OrderEntry, OpeningAnOrderFillsTheFormAndLocksItsKeys)
{
    const QString id = order("A-7", 2, "Bolt Bros", "South", "Closed");
    FormDriver form = opened(id);
    EXPECT_EQ(texts(form, {"cmbCustomer", "txtOrderNumber", "dtOrderDate", "dtDueDate", "cmbWarehouse", "lblID",
                           "lblStatus", "lblTotal", "txtOverDue"}),
              "Bolt Bros,A-7,3/1/2011,3/9/2011,South," + id + ",Closed,20,");
    EXPECT_EQ(texts(form, shipTo()), "Dock,,,,,,,");
    EXPECT_EQ(form.grid("vsfgItems").mid(1), (QStringList{"1|1|P1|Bolts|10|10|C1", "2|2|P1|Bolts|10|20|C2"}))
        << "amounts are computed, the stored 99 is not read";
    EXPECT_EQ(form.shownRow("vsfgItems", 2), "2|2|P1|Bolts|$10.|$20.|C2");
    for (const char *name : {"cmbCustomer", "txtOrderNumber", "dtOrderDate", "dtDueDate"})
        EXPECT_FALSE(form.enabled(name)) << name;
    for (const char *name : {"cmbWarehouse", "txtShipTo", "chkDropShip"})
        EXPECT_TRUE(form.enabled(name)) << name;
    EXPECT_EQ(form.text("txtOverDue"), "") << "locking the box is not leaving it";
}

TEST_F(OrderEntry, AnUnknownOrderLeavesTheFormNew)
{
    FormDriver form = opened("0");
    EXPECT_EQ(form.text("lblID"), "");
    EXPECT_TRUE(form.enabled("cmbCustomer"));
}

TEST_F(OrderEntry, AShippedOrderCannotBecomeADropShipment)
{
    const QString id = order("A-7");
    addRow("Shipment", {{"OrderID", id}});
    FormDriver form = opened(id);
    EXPECT_FALSE(form.enabled("chkDropShip"));
    EXPECT_FALSE(form.enabled("txtFreight"));
    leave(form, "btnExit");
    gDatabase->Execute("DELETE FROM Shipment");
    FormDriver other = opened(id);
    other.click("chkDropShip");
    EXPECT_TRUE(other.enabled("txtFreight"));
    addRow("Shipment", {{"OrderID", id}});
    static_cast<frmOrderEntry *>(other.form())->OpenOrder(qint16(id.toInt()));
    EXPECT_FALSE(other.enabled("txtFreight")) << "opened over one that was to be dropped";
}

TEST_F(OrderEntry, AnOrderOfAnInactiveCustomerStopsAtThatField)
{
    const QString id = order("A-7", 1, "Old Co");
    EXPECT_EQ(errorNumberOf([&] { opened(id); }), 383);
}

TEST_F(OrderEntry, NullAmountsShowAsNothingAndAnEmptyStatusIsSavedOpen)
{
    const QString id = order("A-7", 2);
    gDatabase->Execute("UPDATE Orders SET Total = NULL, Status = '' WHERE ID = " + id);
    gDatabase->Execute("UPDATE OrderItem SET Qty = NULL WHERE ItemNumber = 1");
    gDatabase->Execute("UPDATE OrderItem SET PriceEach = NULL WHERE ItemNumber = 2");
    FormDriver form = opened(id);
    EXPECT_EQ(form.text("lblTotal"), "0");
    EXPECT_EQ(form.grid("vsfgItems").mid(1), (QStringList{"1||P1|Bolts|10||C1", "2|2|P1|Bolts|||C2"}));
    gDatabase->Execute("DELETE FROM OrderItem");
    static_cast<frmOrderEntry *>(form.form())->OpenOrder(qint16(id.toInt()));
    form.click("btnSave");
    EXPECT_EQ(database.rows("SELECT Status FROM Orders"), QStringList{"Open"});
}

TEST_F(OrderEntry, AnExistingOrderIsDroppedOnItsOwnDateAsItsOwn)
{
    order("A-6", 0);
    const QString id = order("A-7", 2);
    FormDriver form = opened(id);
    form.click("chkDropShip");
    form.type("txtFreight", "$12.50");
    form.click("btnSave");
    EXPECT_EQ(database.rows("SELECT * FROM Shipment"), QStringList{"1|2|3/1/2011||12.5|0|False|"});
    EXPECT_EQ(database.rows("SELECT * FROM ShipmentItems"), (QStringList{"1|2|1|1", "1|2|2|2"}));
    EXPECT_EQ(database.rows("SELECT DueDate FROM Orders WHERE ID = 2"), QStringList{"3/9/2011"});
    form = newOrder();
    form.click("chkDropShip");
    form.type("txtFreight", "abc");
    expectRuntimeError(3421, [&] { form.click("btnSave"); });
}

TEST_F(OrderEntry, SavingAnOpenedOrderRewritesHeaderAndLines)
{
    const QString id = order("A-7", 2);
    FormDriver form = opened(id);
    form.type("txtShipTo", "Dock 9");
    form.choose("cmbWarehouse", "South");
    addLine(form, "P2", "2");
    form.click("btnSave");
    EXPECT_EQ(header(id), id + "|A-7|Acme|South|Open|3/1/2011|3/9/2011|Dock 9||||||||3/30/2011|35");
    EXPECT_EQ(lines(id),
              (QStringList{id + "|1|1|P1|Bolts|10|10|C1", id + "|2|2|P1|Bolts|10|20|C2", id + "|3|2|P2|Nuts|2.5|5|"}));
}

TEST_F(OrderEntry, StatusButtonsAskAndTheSaveWrites)
{
    struct Press
    {
        const char *button, *title, *question, *status;
    };
    const QString id = order("A-7");
    for (const Press &press :
         {Press{"btnVoidOrder", "Void Order Confirmations", "Are you sure you want to void this order?", "Void"},
          Press{"btnClose", "Close Order Confirmations", "Are you sure you want to close this order?", "Closed"},
          Press{"btnOpenOrder", "Open Order Confirmations", "Are you sure you want to open this order?", "Open"}}) {
        const QString before = header(id);
        FormDriver form = opened(id);
        const QString shown = form.text("lblStatus");
        boxes.expect(press.title, press.question, "No");
        form.click(press.button);
        EXPECT_EQ(form.text("lblStatus"), shown);
        boxes.expect(press.title, press.question, "Yes");
        form.click(press.button);
        EXPECT_EQ(form.text("lblStatus"), press.status);
        boxes.verify();
        EXPECT_EQ(header(id), before) << "nothing is written yet";
        leave(form, "btnSave");
        EXPECT_EQ(database.rows("SELECT Status FROM Orders WHERE ID = " + id), QStringList{press.status});
    }
}

TEST_F(OrderEntry, ExitThrowsAStatusChangeAway)
{
    const QString id = order("A-7");
    const QString before = header(id);
    FormDriver form = opened(id);
    boxes.expect("Void Order Confirmations", "Are you sure you want to void this order?", "Yes");
    form.click("btnVoidOrder");
    form.click("btnExit");
    EXPECT_FALSE(form.isLoaded());
    EXPECT_EQ(header(id), before);
}

TEST_F(OrderEntry, ANewOrderIsSavedOpenWhateverWasPressed)
{
    FormDriver form = newOrder();
    boxes.expect("Void Order Confirmations", "Are you sure you want to void this order?", "Yes");
    form.click("btnVoidOrder");
    form.click("btnSave");
    EXPECT_EQ(database.rows("SELECT Status FROM Orders"), QStringList{"Open"});
}

TEST_F(OrderEntry, ADropShipmentIsBookedInsteadOfThePickTicket)
{
    FormDriver form = newOrder();
    form.click("chkDropShip");
    EXPECT_TRUE(form.enabled("txtFreight"));
    form.type("txtFreight", "12.50");
    addLine(form, "P1", "4");
    addLine(form, "P2", "0");
    addLine(form, "P2", "-1");
    const int before = viewers();
    form.click("btnSave");
    EXPECT_EQ(viewers(), before);
    EXPECT_EQ(database.rows("SELECT * FROM Shipment"), QStringList{"1|1|3/30/2011||12.5|0|False|"});
    EXPECT_EQ(database.rows("SELECT * FROM ShipmentItems"), (QStringList{"1|1|1|4", "1|1|3|-1"}));
    EXPECT_EQ(database.rows("SELECT Status FROM Orders"), QStringList{"Open"});
    EXPECT_EQ(database.rows("SELECT * FROM AvailInv"), QStringList());
}

TEST_F(OrderEntry, ADropShipmentWithoutFreightOrQuantitiesStoresZeroAndNoLines)
{
    FormDriver form = newOrder();
    form.click("chkDropShip");
    form.click("chkDropShip");
    EXPECT_FALSE(form.enabled("txtFreight"));
    form.click("chkDropShip");
    addLine(form, "P1", "0");
    form.click("btnSave");
    EXPECT_EQ(database.rows("SELECT * FROM Shipment"), QStringList{"1|1|3/30/2011||0|0|False|"});
    EXPECT_EQ(database.rows("SELECT * FROM ShipmentItems"), QStringList());
}

TEST_F(OrderEntry, TheTabOrderGoesThroughHeaderThenLines)
{
    FormDriver form("frmOrderEntry");
    form.control<QWidget>("cmbCustomer")->setFocus();
    QStringList passed;
    for (int i = 0; i < 14; ++i) {
        passed += form.focus();
        form.key(Qt::Key_Tab);
    }
    EXPECT_EQ(passed.join(' '), "cmbCustomer txtOrderNumber dtOrderDate dtDueDate cmbWarehouse txtShipTo txtAddress1 "
                                "txtAddress2 txtCity txtState txtZip txtPhone txtFax chkDropShip");
    EXPECT_EQ(form.focus(), "cmbPart") << "the freight is off";
}

} // namespace
