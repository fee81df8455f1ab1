#include "tests/orders/orderdesk.h"
#include "toolkit/controls/mousepointer.h"

namespace {

const char *const Header =
    "cmbCustomer txtOrderNumber dtOrderDate dtDueDate cmbWarehouse lblID lblStatus lblTotal txtOverDue";
const char *const ShipTo = "txtShipTo txtAddress1 txtAddress2 txtCity txtState txtZip txtPhone txtFax";

using OrderEntry = OrderDesk;

TEST_F(OrderEntry, ANewFormShowsTodayTheDefaultWarehouseAndWhatIsActive)
{
    gDefaultWarehouse = "North";
    FormDriver form("frmOrderEntry");
    EXPECT_EQ(form.shows(Header), "||3/30/2011|3/30/2011|North|||0|");
    EXPECT_EQ(form.grid("vsfgItems"), QStringList{"Item Number|Qty|Part No.|Category|Price Each|Price Ext.|Cust. No."});
    EXPECT_FALSE(form.enabled("txtFreight"));
    for (const auto &[list, held] : {std::pair{"cmbCustomer", "Acme Rail|Birch Mill"},
                                     {"cmbWarehouse", "Main|North"},
                                     {"cmbPart", "AX-100|BR-200|CX-300"},
                                     {"cmbCategory", "Axles|Brackets|Brackets"},
                                     {"cmbPrice", "10|2.5|0.1"}})
        EXPECT_EQ(entries(form, list), held) << "whichever was written first";
    for (const char *list : {"cmbCategory", "cmbPrice"})
        EXPECT_FALSE(form.control<ComboBox>(list)->isVisible());
}

TEST_F(OrderEntry, LoadingStopsAtAnUnknownDefaultWarehouseAndAtAPartWithoutPrice)
{
    gDefaultWarehouse = "Old";
    expectErrorUnderHourglass(383, [] { Load("frmOrderEntry"); });
    Forms::unloadAll();
    gDefaultWarehouse = "Main";
    database.execute("UPDATE Part SET SalePrice = NULL WHERE PartNo = 'BR-200'");
    expectRuntimeError(94, [] { Load("frmOrderEntry"); });
}

TEST_F(OrderEntry, PickingACustomerCopiesItsShipToAndLeavingItShowsItsOverdueBalance)
{
    addRow("Invoice", {{"Invoice", "1"}, {"Customer", "Acme Rail"}, {"DueDate", Date(2011, 3, 29)}, {"Total", 120.5}});
    FormDriver form("frmOrderEntry", "cmbCustomer: Acme Rail");
    EXPECT_EQ(form.shows(ShipTo), "Acme Dock|1 Quay|Gate 3|Erie|PA|16501|555-1|555-2");
    EXPECT_EQ(form.text("txtOverDue"), "");
    form.act("<Tab>");
    EXPECT_EQ(form.text("txtOverDue"), "120.5");
    EXPECT_EQ(form.control<MaskEdBox>("txtOverDue")->formattedText(), "$120.50");
    EXPECT_EQ(form.focus(), "txtOrderNumber");
    form.act("txtCity: Corry; cmbCustomer: Birch Mill");
    EXPECT_EQ(form.shows(ShipTo), "|||||||") << "over what stands there";
}

TEST_F(OrderEntry, SaveRequiresWarehouseCustomerAndNumber)
{
    FormDriver form("frmOrderEntry");
    for (const char *steps :
         {"btnSave", "cmbCustomer: Acme Rail; btnSave", "txtOrderNumber: A-1; cmbWarehouse:; btnSave"})
        expectBox(form, steps, "Required Fields", "Warehouse, Customer, and Order Number fields are required.");
    EXPECT_TRUE(form.isLoaded());
    EXPECT_EQ(table("Orders"), QStringList());
}

TEST_F(OrderEntry, SavesANewOrderOfSheetListAndTypedPricesAndShowsThePickTicket)
{
    FormDriver form = newOrder("cmbPart: AX-100; txtQty: 4; btnSaveItem; cmbPart: BR-200; txtQty: 3; btnSaveItem;"
                               "cmbPart: BR-200; txtQty: 2; txtPriceEach: 1.15; txtCustomerNumber: their-7;"
                               "btnSaveItem; txtZip: 16502; btnSave");
    EXPECT_FALSE(form.isLoaded());
    EXPECT_EQ(table("Orders"),
              QStringList{"1|A-1|Acme Rail|Main|Open|3/30/2011|3/30/2011|Acme Dock|1 Quay|Gate 3|Erie|PA|16502|555-1|"
                          "555-2|3/30/2011|44.8"});
    EXPECT_EQ(savedLines(), (QStringList{"1|1|4|AX-100|Axles|8.75|35|", "1|2|3|BR-200|Brackets|2.5|7.5|",
                                         "1|3|2|BR-200|Brackets|1.15|2.3|their-7"}));
    newOrder("btnSave", "Birch Mill");
    EXPECT_EQ(table("Orders").constLast(), "2|A-1|Birch Mill|Main|Open|3/30/2011|3/30/2011|||||||||3/30/2011|0")
        << "a number may repeat, and lines be none";
    EXPECT_EQ(viewers(), 2);
    EXPECT_EQ(mdi->findChildren<QWidget *>("Viewer")[1]->windowTitle(), "Pick Ticket, order ID 2");
    EXPECT_EQ(table("Shipment") + ledger(), QStringList());
}

TEST_F(OrderEntry, OpeningAnOrderFillsTheFormAndLocksItsKeys)
{
    const QString id =
        addOrder("A-7", "Birch Mill", {{"AX-100", 1, 10}, {"BR-200", 2, 10}}, "Closed", "North", Date(2011, 2, 1));
    database.execute("UPDATE OrderItem SET PriceExt = 99");
    FormDriver form = opened(id);
    EXPECT_EQ(form.shows(Header), "Birch Mill|A-7|2/1/2011|2/9/2011|North|" + id + "|Closed|30|")
        << "locking the customer is not leaving it";
    EXPECT_EQ(form.shows(ShipTo), "Dock 4|1 Pier Rd||Erie|PA|16501||");
    EXPECT_EQ(lines(form, "vsfgItems"), (QStringList{"1|1|AX-100|Axles|10|10|C1", "2|2|BR-200|Axles|10|20|C2"}))
        << "amounts are computed, the stored 99 is not read";
    EXPECT_EQ(form.shownRow("vsfgItems", 2), "2|2|BR-200|Axles|$10.|$20.|C2");
    for (const char *name : {"cmbCustomer", "txtOrderNumber", "dtOrderDate", "dtDueDate"})
        EXPECT_FALSE(form.enabled(name)) << name;
    for (const char *name : {"cmbWarehouse", "txtShipTo", "chkDropShip"})
        EXPECT_TRUE(form.enabled(name)) << name;
    form.act("btnExit");
    FormDriver unknown = opened("0");
    EXPECT_EQ(unknown.text("lblID"), "");
    EXPECT_TRUE(unknown.enabled("cmbCustomer"));
    unknown.act("btnExit");
    const QString inactive = addOrder("A-8", "Cobb Yard");
    expectRuntimeError(383, [&] { opened(inactive); });
}

TEST_F(OrderEntry, AShippedOrderCannotBecomeADropShipment)
{
    const QString id = twoLines();
    FormDriver form = opened(id);
    form.act("chkDropShip");
    EXPECT_TRUE(form.enabled("txtFreight"));
    addShipment(id, {});
    for (const QString &shown : {id, addOrder("A-8", "Birch Mill")}) {
        opened(shown);
        EXPECT_FALSE(form.enabled("txtFreight")) << "opened over one that was to be dropped";
        EXPECT_FALSE(form.enabled("chkDropShip")) << "nor the order opened over it";
        EXPECT_EQ(form.text("chkDropShip"), "True");
    }
    EXPECT_EQ(form.shows("lblID cmbCustomer lblTotal"), "2|Birch Mill|0");
    EXPECT_EQ(lines(form, "vsfgItems"), QStringList());
}

TEST_F(OrderEntry, NullAmountsShowAsNothingAndAnEmptyStatusIsSavedOpen)
{
    const QString id = twoLines();
    database.execute("UPDATE Orders SET Total = NULL, Status = ''");
    database.execute("UPDATE OrderItem SET Qty = NULL WHERE ItemNumber = 1");
    database.execute("UPDATE OrderItem SET PriceEach = NULL WHERE ItemNumber = 2");
    FormDriver form = opened(id);
    EXPECT_EQ(form.text("lblTotal"), "0");
    EXPECT_EQ(lines(form, "vsfgItems"), (QStringList{"1||AX-100|Axles|10||C1", "2|2|AX-100|Axles|||C2"}));
    database.execute("DELETE FROM OrderItem");
    opened(id).act("btnSave");
    EXPECT_EQ(status(id), "Open");
}

TEST_F(OrderEntry, SavingAnOpenedOrderRewritesHeaderAndLines)
{
    opened(twoLines()).act("txtShipTo: Dock 9; cmbWarehouse: North; cmbPart: BR-200; txtQty: 2; btnSaveItem; btnSave");
    EXPECT_EQ(table("Orders"), QStringList{"1|A-7|Acme Rail|North|Open|3/1/2011|3/9/2011|Dock 9|1 Pier Rd||Erie|PA|"
                                           "16501|||3/30/2011|35"});
    EXPECT_EQ(savedLines(), (QStringList{"1|1|1|AX-100|Axles|10|10|C1", "1|2|2|AX-100|Axles|10|20|C2",
                                         "1|3|2|BR-200|Brackets|2.5|5|"}));
}

TEST_F(OrderEntry, StatusButtonsAskAndTheSaveWrites)
{
    const QString id = twoLines();
    for (const auto &[button, does, after] : {std::tuple{"btnVoidOrder", "Void", "Void"},
                                              {"btnClose", "Close", "Closed"},
                                              {"btnOpenOrder", "Open", "Open"}}) {
        const QString title = QString(does) + " Order Confirmations";
        const QString question = "Are you sure you want to " + QString(does).toLower() + " this order?";
        const QString before = status(id);
        for (const char *end : {"btnExit", "btnSave"}) {
            FormDriver form = opened(id);
            expectBox(form, button, title, question, "No");
            EXPECT_EQ(form.text("lblStatus"), before);
            expectBox(form, button, title, question, "Yes");
            EXPECT_EQ(form.text("lblStatus"), after);
            EXPECT_EQ(status(id), before) << "nothing is written yet";
            form.act(end);
        }
        EXPECT_EQ(status(id), after);
    }
    FormDriver form = newOrder();
    expectBox(form, "btnVoidOrder; btnSave", "Void Order Confirmations", "Are you sure you want to void this order?",
              "Yes");
    EXPECT_EQ(status("2"), "Open") << "a new order is, whatever was pressed";
}

TEST_F(OrderEntry, ADropShipmentIsBookedInsteadOfThePickTicket)
{
    addOrder("A-0", "Acme Rail"); // so that orders and shipments differ in their numbers
    FormDriver form = newOrder("chkDropShip; txtFreight: 12.50; cmbPart: AX-100; txtQty: 4; btnSaveItem;"
                               "cmbPart: BR-200; txtQty: 0; btnSaveItem; cmbPart: BR-200; txtQty: -1; btnSaveItem;"
                               "btnSave");
    EXPECT_EQ(viewers(), 0);
    EXPECT_EQ(status("2"), "Open");
    form = newOrder("chkDropShip; chkDropShip");
    EXPECT_FALSE(form.enabled("txtFreight"));
    form.act("chkDropShip; cmbPart: AX-100; txtQty: 0; btnSaveItem; btnSave");
    opened(twoLines()).act("chkDropShip; txtFreight: $7.50; btnSave");
    EXPECT_EQ(table("Shipment"),
              (QStringList{"1|2|3/30/2011||12.5|0|False|", "2|3|3/30/2011||0|0|False|", "3|4|3/1/2011||7.5|0|False|"}))
        << "an existing order on its own date";
    EXPECT_EQ(table("ShipmentItems", "ShipmentID, OrderLineItem"),
              (QStringList{"1|2|1|4", "1|2|3|-1", "3|4|1|1", "3|4|2|2"}));
    EXPECT_EQ(database.rows("SELECT DueDate FROM Orders WHERE ID = 4"), QStringList{"3/9/2011"});
    EXPECT_EQ(ledger(), QStringList());
    expectErrorUnderHourglass(3421, [] { newOrder("chkDropShip; txtFreight: abc; btnSave"); });
}

} // namespace
