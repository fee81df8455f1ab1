#include "reportengine/output/printing.h"
#include "shipping/frmshipmententry.h"
#include "tests/support/company.h"

namespace {

class ShipmentEntry : public CompanyTest
{
protected:
    QStringList shipments() const { return table("Shipment"); }
    QStringList items() const { return database.rows("SELECT * FROM ShipmentItems"); }

    /// The form with an order of a customer chosen.
    static FormDriver begin(const QString &customer, int order = 0)
    {
        FormDriver user("frmShipmentEntry");
        pick(user, "cmbCustomer", customer);
        pick(user, "cmbOrder", entries(user, "cmbOrder").at(order));
        return user;
    }
    static FormDriver open(const QString &shipment)
    {
        FormDriver user("frmShipmentEntry");
        static_cast<frmShipmentEntry *>(user.form())->OpenShipment(shipment);
        return user;
    }
    /// Saves, answering the print question as told, Yes in the end.
    void save(FormDriver &user, int timesNo = 0)
    {
        for (int i = 0; i <= timesNo; ++i)
            boxes.expect("Print Confirmation", "Did the Shipping Ticket Print OK?", i < timesNo ? "No" : "Yes");
        user.click("btnSave");
        boxes.verify();
        settle();
    }
};

TEST_F(ShipmentEntry, OpensEmptyWithTheUsualCarrier)
{
    FormDriver user("frmShipmentEntry");
    EXPECT_EQ(user.text("txtFreight"), "0");
    EXPECT_EQ(user.text("txtAdjustment"), "0");
    EXPECT_EQ(user.text("dtDate"), "3/30/2011");
    EXPECT_EQ(user.text("txtShipVia"), "UPS Ground");
    EXPECT_EQ(user.control<ComboBox>("cmbCustomer")->listCount(), 2) << "active customers";
    EXPECT_EQ(user.control<FlexGrid>("vsfgItems")->rows(), 0);
}

TEST_F(ShipmentEntry, OrderFillsShipToAndLines)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 4.75}, {"BR-200", 2.5, 2.2}});
    addShipment(order, Date(2011, 3, 5), {4});
    FormDriver user = begin("Acme Rail");
    EXPECT_EQ(user.text("cmbOrder"), "A-1 - 3/1/2011");
    EXPECT_EQ(lines(user, "vsfgItems"), (QStringList{"1|10|4||AX-100|4.75|47.5", "2|2.5|||BR-200|2.2|5.5"}))
        << "nothing shipped is an empty cell, not 0";
    EXPECT_EQ(user.shownRow("vsfgItems", 1), "1|10|4||AX-100|$4.75|$47.5");
    QStringList shipTo;
    for (const char *box : {"txtShipTo", "txtAddress1", "txtAddress2", "txtCity", "txtState", "txtZip"})
        shipTo += user.text(box);
    EXPECT_EQ(shipTo, (QStringList{"Dock 4", "1 Pier Rd", "", "Erie", "PA", "16501"}));
    database.execute("UPDATE OrderItem SET PriceEach = NULL WHERE ItemNumber = 2");
    EXPECT_EQ(lines(begin("Acme Rail"), "vsfgItems").constLast(), "2|2.5|||BR-200||");
}

TEST_F(ShipmentEntry, OrderListsGrowWithEveryChoiceOfACustomer)
{
    const QString first = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 4.75}});
    addOrder("A-2", "Acme Rail", {}, "Closed");
    const QString second = addOrder("B-1", "Birch Mill", {{"AX-100", 3, 4}});
    const QString lower = addOrder("A-0", "Acme Rail", {});
    FormDriver user("frmShipmentEntry");
    for (const char *customer : {"Acme Rail", "Birch Mill", "Acme Rail"})
        pick(user, "cmbCustomer", customer);
    EXPECT_EQ(entries(user, "cmbOrder"),
              (QStringList{"A-0 - 3/1/2011", "A-1 - 3/1/2011", "B-1 - 3/1/2011", "A-0 - 3/1/2011", "A-1 - 3/1/2011"}));
    EXPECT_EQ(entries(user, "cmbOrderID"), (QStringList{lower, first, second, lower, first}));

    pick(user, "cmbOrder", "B-1 - 3/1/2011");
    user.click("btnShipAll");
    save(user);
    EXPECT_EQ(database.rows("SELECT OrderID FROM Shipment"), QStringList{second})
        << "the order counts, not the customer shown";
}

TEST_F(ShipmentEntry, CellsAreClippedWithoutAWord)
{
    addShipment(addOrder("A-1", "Acme Rail", {{"AX-100", 10, 4.75}}), Date(2011, 3, 5), {4});
    FormDriver user = begin("Acme Rail");
    const QPair<const char *, const char *> cases[] = {{"6", "6"},   {"6.5", "0"}, {"7", "0"},
                                                       {"abc", "0"}, {"-3", "-3"}, {"2.5", "2.5"},
                                                       {"3 x", "0"}, {"$9", "$9"}, {"1,200", "1,200"}};
    for (const auto &[typed, left] : cases) {
        user.typeCell("vsfgItems", 1, 3, typed);
        EXPECT_EQ(column(user, "vsfgItems", 3), QStringList{left}) << typed;
    }
    for (const int col : {0, 1, 2, 4, 5, 6}) {
        const QStringList before = lines(user, "vsfgItems");
        user.typeCell("vsfgItems", 1, col, "99");
        EXPECT_EQ(lines(user, "vsfgItems"), before) << "only one column is edited";
    }
}

TEST_F(ShipmentEntry, ShipAllTakesWhatRemainsWhateverStoodThere)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"BR-200", 10, 1}, {"AX-100", 4, 1}, {"BR-200", 5, 1}});
    addShipment(order, Date(2011, 3, 5), {3, 4, 7});
    FormDriver user = begin("Acme Rail");
    user.typeCell("vsfgItems", 1, 3, "1");
    user.click("btnShipAll");
    EXPECT_EQ(column(user, "vsfgItems", 3), (QStringList{"7", "0", "-2"}));
}

TEST_F(ShipmentEntry, SaveNeedsACustomerAndAQuantity)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 1}});
    for (int i = 0; i < 4; ++i)
        boxes.expect("Unable to Save", "No Items to save.");
    FormDriver("frmShipmentEntry").click("btnSave");
    FormDriver user = begin("Acme Rail");
    user.click("btnSave");
    user.typeCell("vsfgItems", 1, 3, "0");
    user.click("btnSave");
    user.typeCell("vsfgItems", 1, 3, "-3");
    user.control<ComboBox>("cmbCustomer")->setListIndex(-1);
    user.click("btnSave");
    boxes.verify();
    EXPECT_TRUE(user.isLoaded());
    EXPECT_EQ(shipments(), QStringList());
    EXPECT_EQ(status(order), "Open");
    user.control<ComboBox>("cmbCustomer")->setListIndex(0);
    save(user);
    EXPECT_EQ(items(), QStringList{"1|1|1|-3"}) << "goods come back alone";
}

TEST_F(ShipmentEntry, AnotherOrderTakesTheLinesButNotTheShipment)
{
    const QString own = addOrder("A-1", "Acme Rail", {{"AX-100", 3, 1}}, "Closed");
    const QString other = addOrder("A-2", "Acme Rail", {{"AX-100", 2, 1}});
    addShipment(own, Date(2011, 3, 5), {3});
    FormDriver user = open("1");
    pick(user, "cmbOrder", "A-2 - 3/1/2011");
    user.click("btnShipAll");
    save(user);
    EXPECT_EQ(database.rows("SELECT ID, OrderID FROM Shipment"), QStringList{"1|1"});
    EXPECT_EQ(items(), QStringList{"1|2|1|2"});
    EXPECT_EQ(status(own) + status(other), "OpenOpen") << "its own order's status is recomputed, not the other's";
}

TEST_F(ShipmentEntry, PartialShipmentLeavesTheOrderOpenAndTheLastOneClosesIt)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 4.75}, {"BR-200", 3, 2.2}});
    FormDriver first = begin("Acme Rail");
    first.typeCell("vsfgItems", 1, 3, "4");
    first.type("txtFreight", "12.5");
    first.type("txtAdjustment", "");
    first.type("txtShipVia", "Truck");
    first.control<DTPicker>("dtDate")->setValue(Date(2011, 3, 28));
    save(first);
    EXPECT_FALSE(first.isLoaded());
    EXPECT_EQ(shipments(), QStringList{"1|1|3/28/2011|Truck|12.5|0|False|"});
    EXPECT_EQ(items(), QStringList{"1|1|1|4"}) << "a line of 0 has no row";
    EXPECT_EQ(ledger(), QStringList{"Main|AX-100|4"}) << "a shipment adds";
    EXPECT_EQ(status(order), "Open");

    FormDriver second = begin("Acme Rail");
    second.click("btnShipAll");
    second.type("txtFreight", "");
    second.type("txtAdjustment", "(3.25)");
    save(second);
    EXPECT_EQ(shipments().value(1), "2|1|3/30/2011|UPS Ground|0|-3.25|False|");
    EXPECT_EQ(items().mid(1), (QStringList{"2|1|1|6", "2|1|2|3"}));
    EXPECT_EQ(ledger(), (QStringList{"Main|AX-100|10", "Main|BR-200|3"}));
    EXPECT_EQ(status(order), "Closed");
}

TEST_F(ShipmentEntry, FractionsAndNegativesAreShippedRoundedToWholePieces)
{
    addOrder("A-1", "Acme Rail", {{"AX-100", 10, 1}, {"AX-100", 10, 1}, {"BR-200", 10, 1}});
    FormDriver user = begin("Acme Rail");
    user.typeCell("vsfgItems", 1, 3, "2.5");
    user.typeCell("vsfgItems", 2, 3, "3.5");
    user.typeCell("vsfgItems", 3, 3, "-2");
    save(user);
    EXPECT_EQ(items(), (QStringList{"1|1|1|2", "1|1|2|4", "1|1|3|-2"}));
    EXPECT_EQ(ledger(), (QStringList{"Main|AX-100|6", "Main|BR-200|-2"}));
}

TEST_F(ShipmentEntry, PrintQuestionRepeatsUntilYesAndTheStatusComesAfter)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 1, 1}});
    QStringList printed;
    setPrintDestination([&](Report &, int copies) {
        printed += QString("%1 copies, order %2, %3 line").arg(copies).arg(status(order)).arg(items().size());
        return true;
    });
    FormDriver user = begin("Acme Rail");
    user.click("btnShipAll");
    save(user, 2);
    setPrintDestination({});
    EXPECT_EQ(printed, QStringList(3, "2 copies, order Open, 1 line"));
    EXPECT_EQ(status(order), "Closed");
    EXPECT_EQ(shipments().size(), 1);
}

TEST_F(ShipmentEntry, PrinterThatFailsLeavesTheShipmentAndTheStatusAsItWas)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 1, 1}});
    setPrintDestination([](Report &, int) { return false; });
    FormDriver user = begin("Acme Rail");
    user.click("btnShipAll");
    expectRuntimeError(482, [&] { user.click("btnSave"); });
    setPrintDestination({});
    EXPECT_EQ(items(), QStringList{"1|1|1|1"});
    EXPECT_EQ(ledger(), QStringList{"Main|AX-100|1"});
    EXPECT_EQ(status(order), "Open");
}

TEST_F(ShipmentEntry, OpenedShipmentShowsItsOwnQuantitiesAndPostsThemAgain)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 1}, {"BR-200", 3, 1}});
    addShipment(order, Date(2011, 3, 4), {2, 1});
    addShipment(order, Date(2011, 3, 5), {3}, 7.5, -1);
    FormDriver user = open("2");
    EXPECT_EQ(user.text("txtID"), "2");
    EXPECT_EQ(user.text("cmbCustomer"), "Acme Rail");
    EXPECT_EQ(user.text("cmbOrder"), "A-1 - 3/1/2011");
    EXPECT_EQ(user.text("cmbOrderID"), order);
    EXPECT_EQ(user.text("dtDate"), "3/5/2011");
    EXPECT_EQ(user.text("txtFreight"), "7.5");
    EXPECT_EQ(user.text("txtAdjustment"), "-1");
    EXPECT_EQ(user.text("txtShipVia"), "Truck");
    EXPECT_EQ(column(user, "vsfgItems", 2), (QStringList{"2", "1"})) << "what other shipments took";
    EXPECT_EQ(column(user, "vsfgItems", 3), (QStringList{"3", ""}));

    user.typeCell("vsfgItems", 1, 3, "8");
    save(user);
    EXPECT_EQ(shipments().size(), 2);
    EXPECT_EQ(items(), (QStringList{"1|1|1|2", "1|1|2|1", "2|1|1|8"}));
    EXPECT_EQ(ledger(), QStringList{"Main|AX-100|8"}) << "the whole quantity, nothing taken back";
    FormDriver again = open("2");
    save(again);
    EXPECT_EQ(ledger(), QStringList{"Main|AX-100|16"});
}

TEST_F(ShipmentEntry, EditingAShipmentDownOpensItsClosedOrderAgain)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 1}}, "Closed");
    addShipment(order, Date(2011, 3, 5), {10});
    FormDriver user = open("1");
    EXPECT_EQ(user.control<ComboBox>("cmbOrder")->listIndex(), -1) << "a closed order is not in the list";
    EXPECT_EQ(user.text("cmbOrder"), "A-1 - 3/1/2011");
    user.typeCell("vsfgItems", 1, 3, "9");
    save(user);
    EXPECT_EQ(items(), QStringList{"1|1|1|9"}) << "the order's number comes from the text of the box";
    EXPECT_EQ(ledger(), QStringList{"Main|AX-100|9"});
    EXPECT_EQ(status(order), "Open");
}

TEST_F(ShipmentEntry, InvoicedShipmentCanBeLookedAtOnly)
{
    addShipment(addOrder("A-1", "Acme Rail", {{"AX-100", 10, 1}}), Date(2011, 3, 5), {3});
    database.execute("UPDATE Shipment SET Invoiced = True");
    FormDriver user = open("1");
    EXPECT_FALSE(user.enabled("btnSave"));
    user.click("btnShipAll");
    user.typeCell("vsfgItems", 1, 3, "1");
    EXPECT_EQ(column(user, "vsfgItems", 3), QStringList{"1"});
    user.click("btnSave");
    EXPECT_EQ(items(), QStringList{"1|1|1|3"});
    user.click("btnExit");
    EXPECT_FALSE(user.isLoaded());
}

TEST_F(ShipmentEntry, EmptyCarrierLeavesTheUsualOneAndEmptyNumberOpensNothing)
{
    addShipment(addOrder("A-1", "Acme Rail", {{"AX-100", 10, 1}}), Date(2011, 3, 5), {3});
    database.execute("UPDATE Shipment SET Via = ''");
    EXPECT_EQ(open("").text("txtID"), "");
    EXPECT_EQ(open("1").text("txtShipVia"), "UPS Ground");
}

TEST_F(ShipmentEntry, OrderWithoutRowMovesNoLedger)
{
    addShipment(addOrder("A-1", "Acme Rail", {{"AX-100", 10, 1}}), Date(2011, 3, 5), {3});
    FormDriver user = open("1");
    database.execute("DELETE FROM Orders");
    save(user);
    EXPECT_EQ(items(), QStringList{"1|1|1|3"});
    EXPECT_EQ(ledger(), QStringList());
}

TEST_F(ShipmentEntry, CustomerNoLongerActiveIsARunTimeError)
{
    addShipment(addOrder("C-1", "Cobb Yard", {{"AX-100", 10, 1}}), Date(2011, 3, 5), {3});
    expectRuntimeError(383, [] { open("1"); });
}

TEST_F(ShipmentEntry, FreightThatIsNoAmountFailsBeforeAnythingIsStored)
{
    addOrder("A-1", "Acme Rail", {{"AX-100", 10, 1}});
    FormDriver user = begin("Acme Rail");
    user.click("btnShipAll");
    user.type("txtFreight", "free");
    expectRuntimeError(3421, [&] { user.click("btnSave"); });
    EXPECT_EQ(shipments(), QStringList());
    EXPECT_EQ(addShipment("1", Date(2011, 3, 5), {}), "2") << "the number is spent";
}

TEST_F(ShipmentEntry, TheLedgerGetsTheCellsTextAsANumberNotItsFirstDigits)
{
    addOrder("A-1", "Acme Rail", {{"AX-100", 2000, 4.75}, {"BR-200", 10, 2.2}});
    FormDriver user = begin("Acme Rail");
    user.typeCell("vsfgItems", 1, 3, "1,200");
    user.typeCell("vsfgItems", 2, 3, "5-");
    save(user);
    EXPECT_EQ(ledger(), (QStringList{"Main|AX-100|1200", "Main|BR-200|-5"}));
    EXPECT_EQ(database.rows("SELECT Qty FROM ShipmentItems"), (QStringList{"1200", "-5"}));
}
} // namespace
