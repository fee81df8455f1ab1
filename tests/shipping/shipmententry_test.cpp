#include "reportengine/output/printing.h"
#include "reportengine/report.h"
#include "reportengine/rows/rowstore.h"
#include "shipping/frmshipmententry.h"
#include "tests/support/company.h"

namespace {

class ShipmentEntry : public CompanyTest
{
protected:
    QStringList items() const { return database.rows("SELECT * FROM ShipmentItems"); }

    /// A new shipment of the first of a customer's orders, and what is done on it.
    static FormDriver begin(const QString &steps = {}, const QString &customer = "Acme Rail")
    {
        FormDriver user("frmShipmentEntry", "cmbCustomer: " + customer);
        user.choose("cmbOrder", entries(user, "cmbOrder").section('|', 0, 0));
        user.act(steps);
        return user;
    }
    static FormDriver open(const QString &shipment)
    {
        FormDriver user("frmShipmentEntry");
        static_cast<frmShipmentEntry *>(user.form())->OpenShipment(shipment);
        return user;
    }
    /// Saves, answering the print question as told, Yes in the end.
    void save(FormDriver user, int timesNo = 0)
    {
        for (int i = 0; i <= timesNo; ++i)
            boxes.expect("Print Confirmation", "Did the Shipping Ticket Print OK?", i < timesNo ? "No" : "Yes");
        user.act("btnSave");
        boxes.verify();
    }
};

TEST_F(ShipmentEntry, OpensEmptyAndFillsShipToAndLinesOfAnOrder)
{
    FormDriver user("frmShipmentEntry");
    EXPECT_EQ(user.shows("txtFreight txtAdjustment dtDate txtShipVia"), "0|0|3/30/2011|UPS Ground");
    EXPECT_EQ(entries(user, "cmbCustomer"), "Acme Rail|Birch Mill");
    EXPECT_EQ(user.control<FlexGrid>("vsfgItems")->rows(), 0);
    user.act("btnExit");

    addShipment(addOrder("A-1", "Acme Rail", {{"BR-200", 10, 4.75}, {"AX-100", 2.5, 2.2}}), {4});
    database.execute("UPDATE Orders SET ShipToAddress2 = 'Gate 3'");
    user = begin("txtShipTo: x; txtAddress1: x; txtAddress2: x; txtCity: x; txtState: x; txtZip: x");
    EXPECT_EQ(user.shows("cmbOrder txtShipTo txtAddress1 txtAddress2 txtCity txtState txtZip"),
              "A-1 - 3/1/2011|Dock 4|1 Pier Rd|Gate 3|Erie|PA|16501")
        << "for display only";
    EXPECT_EQ(lines(user, "vsfgItems"), (QStringList{"1|10|4||BR-200|4.75|47.5", "2|2.5|||AX-100|2.2|5.5"}))
        << "nothing shipped is an empty cell, not 0";
    EXPECT_EQ(user.shownRow("vsfgItems", 1), "1|10|4||BR-200|$4.75|$47.5");
    database.execute("UPDATE OrderItem SET PriceEach = NULL WHERE ItemNumber = 2");
    EXPECT_EQ(lines(begin(), "vsfgItems").constLast(), "2|2.5|||AX-100||");
}

TEST_F(ShipmentEntry, OrderListsGrowWithEveryChoiceOfACustomer)
{
    const QString first = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 4.75}});
    addOrder("A-2", "Acme Rail", {}, "Closed");
    const QString second = addOrder("B-1", "Birch Mill", {{"AX-100", 3, 4}});
    const QString lower = addOrder("A-0", "Acme Rail");
    FormDriver user("frmShipmentEntry", "cmbCustomer: Acme Rail; cmbCustomer: Birch Mill; cmbCustomer: Acme Rail");
    EXPECT_EQ(entries(user, "cmbOrder"), "A-0 - 3/1/2011|A-1 - 3/1/2011|B-1 - 3/1/2011|A-0 - 3/1/2011|A-1 - 3/1/2011");
    EXPECT_EQ(entries(user, "cmbOrderID"), QStringList({lower, first, second, lower, first}).join('|'));
    user.choose("cmbOrder", "B-1 - 3/1/2011");
    user.act("btnShipAll");
    save(user);
    EXPECT_EQ(database.rows("SELECT OrderID FROM Shipment"), QStringList{second})
        << "the order counts, not the customer shown";
}

TEST_F(ShipmentEntry, CellsAreClippedWithoutAWordAndShipAllTakesWhatRemains)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"BR-200", 10, 1}, {"AX-100", 4, 1}, {"BR-200", 5, 1}});
    addShipment(order, {4, 4, 7});
    FormDriver user = begin();
    for (const auto &[typed, left] : {std::pair{"6", "6"},
                                      {"6.5", "0"},
                                      {"7", "0"},
                                      {"abc", "0"},
                                      {"-3", "-3"},
                                      {"2.5", "2.5"},
                                      {"3 x", "0"},
                                      {"$9", "$9"},
                                      {"1,200", "1,200"}}) {
        user.typeCell("vsfgItems", 1, 3, typed);
        EXPECT_EQ(column(user, "vsfgItems", 3).section(' ', 0, 0), left) << typed;
    }
    for (const int col : {0, 1, 2, 4, 5, 6}) {
        const QStringList before = lines(user, "vsfgItems");
        user.typeCell("vsfgItems", 1, col, "99");
        EXPECT_EQ(lines(user, "vsfgItems"), before) << "only one column is edited";
    }
    user.act("btnShipAll");
    EXPECT_EQ(column(user, "vsfgItems", 3), "6 0 -2") << "whatever stood there";
}

TEST_F(ShipmentEntry, SaveNeedsACustomerAndAQuantity)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 1}});
    const auto expectRefusal = [this](FormDriver user, const char *steps) {
        expectBox(user, steps, "Unable to Save", "No Items to save.");
    };
    expectRefusal(FormDriver("frmShipmentEntry"), "btnSave");
    FormDriver user = begin();
    for (const char *steps : {"btnSave", "vsfgItems[1,3]: 0; btnSave", "vsfgItems[1,3]: -3; cmbCustomer:; btnSave"})
        expectRefusal(user, steps);
    EXPECT_EQ(table("Shipment"), QStringList());
    EXPECT_EQ(status(order), "Open");
    user.control<ComboBox>("cmbCustomer")->setListIndex(0);
    save(user);
    EXPECT_EQ(items(), QStringList{"1|1|1|-3"}) << "goods come back alone";
}

TEST_F(ShipmentEntry, AnotherOrderTakesTheLinesButNotTheShipment)
{
    const QString own = addOrder("A-1", "Acme Rail", {{"AX-100", 3, 1}}, "Closed");
    const QString other = addOrder("A-2", "Acme Rail", {{"AX-100", 2, 1}});
    addShipment(own, {3});
    FormDriver user = open("1");
    user.choose("cmbOrder", "A-2 - 3/1/2011");
    user.act("btnShipAll");
    save(user);
    EXPECT_EQ(database.rows("SELECT ID, OrderID FROM Shipment"), QStringList{"1|1"});
    EXPECT_EQ(items(), QStringList{"1|2|1|2"});
    EXPECT_EQ(status(own) + status(other), "OpenOpen") << "its own order's status is recomputed, not the other's";
}

TEST_F(ShipmentEntry, PartialShipmentLeavesTheOrderOpenAndTheLastOneClosesIt)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 4.75}, {"BR-200", 3, 2.2}}, "Open", "North");
    save(begin("vsfgItems[1,3]: 4; txtFreight: 12.5; txtAdjustment:; txtShipVia: Truck; dtDate: 3/28/2011"));
    EXPECT_FALSE(Forms::loaded("frmShipmentEntry"));
    EXPECT_EQ(table("Shipment"), QStringList{"1|1|3/28/2011|Truck|12.5|0|False|"});
    EXPECT_EQ(items(), QStringList{"1|1|1|4"}) << "a line of 0 has no row";
    EXPECT_EQ(ledger(), QStringList{"North|AX-100|4"}) << "a shipment adds";
    EXPECT_EQ(status(order), "Open");

    save(begin("btnShipAll; txtFreight:; txtAdjustment: (3.25)"));
    EXPECT_EQ(table("Shipment").value(1), "2|1|3/30/2011|UPS Ground|0|-3.25|False|");
    EXPECT_EQ(items().mid(1), (QStringList{"2|1|1|6", "2|1|2|3"}));
    EXPECT_EQ(ledger(), (QStringList{"North|AX-100|10", "North|BR-200|3"}));
    EXPECT_EQ(status(order), "Closed");
}

TEST_F(ShipmentEntry, TheLedgerGetsTheCellsTextAsAWholeNumberNotItsFirstDigits)
{
    addOrder("A-1", "Acme Rail",
             {{"AX-100", 10, 1}, {"AX-100", 10, 1}, {"BR-200", 10, 1}, {"CX-300", 2000, 1}, {"ZZ-900", 10, 1}});
    save(begin("vsfgItems[1,3]: 2.5; vsfgItems[2,3]: 3.5; vsfgItems[3,3]: -2; vsfgItems[4,3]: 1,200; "
               "vsfgItems[5,3]: 5-"));
    EXPECT_EQ(items(), (QStringList{"1|1|1|2", "1|1|2|4", "1|1|3|-2", "1|1|4|1200", "1|1|5|-5"}));
    EXPECT_EQ(ledger(), (QStringList{"Main|AX-100|6", "Main|BR-200|-2", "Main|CX-300|1200", "Main|ZZ-900|-5"}));
}

TEST_F(ShipmentEntry, PrintQuestionRepeatsUntilYesAndTheStatusComesAfter)
{
    addOrder("A-0", "Acme Rail", {}, "Closed"); // so that orders and shipments differ in their numbers
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 1, 1}});
    QStringList printed;
    setPrintDestination([&](Report &slip, int copies) {
        printed += QString("%1 copies, order %2, %3 line").arg(copies).arg(status(order)).arg(slip.rows().rowCount());
        return true;
    });
    save(begin("btnShipAll"), 2);
    EXPECT_EQ(printed, QStringList(3, "2 copies, order Open, 1 line"));
    EXPECT_EQ(status(order), "Closed");
    EXPECT_EQ(table("Shipment").size(), 1);

    const QString stuck = addOrder("B-1", "Birch Mill", {{"BR-200", 1, 1}});
    setPrintDestination([](Report &, int) { return false; });
    expectRuntimeError(482, [] { begin("btnShipAll; btnSave", "Birch Mill"); });
    setPrintDestination({});
    EXPECT_EQ(items().mid(1), QStringList{"2|3|1|1"}) << "a printer that fails leaves the shipment";
    EXPECT_EQ(ledger().mid(1), QStringList{"Main|BR-200|1"});
    EXPECT_EQ(status(stuck), "Open");
}

TEST_F(ShipmentEntry, OpenedShipmentShowsItsOwnQuantitiesAndPostsThemAgain)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 1}, {"BR-200", 3, 1}});
    addShipment(order, {2, 1}, Date(2011, 3, 4));
    addShipment(order, {3}, Date(2011, 3, 5), 7.5, -1);
    EXPECT_EQ(open("").text("txtID"), "");
    FormDriver user = open("2");
    EXPECT_EQ(user.shows("txtID cmbCustomer cmbOrder cmbOrderID dtDate txtFreight txtAdjustment txtShipVia"),
              "2|Acme Rail|A-1 - 3/1/2011|" + order + "|3/5/2011|7.5|-1|Truck");
    EXPECT_EQ(column(user, "vsfgItems", 2), "2 1") << "what other shipments took";
    EXPECT_EQ(column(user, "vsfgItems", 3), "3 ");
    user.act("vsfgItems[1,3]: 8");
    save(user);
    EXPECT_EQ(table("Shipment").size(), 2);
    EXPECT_EQ(items(), (QStringList{"1|1|1|2", "1|1|2|1", "2|1|1|8"}));
    EXPECT_EQ(ledger(), QStringList{"Main|AX-100|8"}) << "the whole quantity, nothing taken back";
    database.execute("UPDATE Shipment SET Via = ''");
    user = open("2");
    EXPECT_EQ(user.text("txtShipVia"), "UPS Ground") << "an empty carrier leaves the usual one";
    save(user);
    EXPECT_EQ(ledger(), QStringList{"Main|AX-100|16"});
}

TEST_F(ShipmentEntry, EditingAShipmentDownOpensItsClosedOrderAgain)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 1}}, "Closed");
    addShipment(order, {10});
    FormDriver user = open("1");
    EXPECT_EQ(user.control<ComboBox>("cmbOrder")->listIndex(), -1) << "a closed order is not in the list";
    EXPECT_EQ(user.text("cmbOrder"), "A-1 - 3/1/2011");
    user.act("vsfgItems[1,3]: 9");
    save(user);
    EXPECT_EQ(items(), QStringList{"1|1|1|9"}) << "the order's number comes from the text of the box";
    EXPECT_EQ(ledger(), QStringList{"Main|AX-100|9"});
    EXPECT_EQ(status(order), "Open");
}

TEST_F(ShipmentEntry, InvoicedShipmentCanBeLookedAtOnlyAndOneWithoutOrderMovesNoLedger)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 1}});
    addShipment(order, {3});
    database.execute("UPDATE Shipment SET Invoiced = True");
    addShipment(order, {2});
    const QStringList before = items();
    for (const char *shipment : {"1", "2"}) {
        FormDriver user = open(shipment);
        EXPECT_FALSE(user.enabled("btnSave")) << "and stays so for one opened over it";
        user.act("btnShipAll; vsfgItems[1,3]: 1; btnSave");
        EXPECT_EQ(user.shows("txtID") + column(user, "vsfgItems", 3), shipment + QString("1"));
    }
    Forms::unloadAll();
    FormDriver user = open("2");
    database.execute("DELETE FROM Orders");
    save(user);
    EXPECT_EQ(items(), before);
    EXPECT_EQ(ledger(), QStringList());
}

TEST_F(ShipmentEntry, WhatCannotBeShownOrStoredEndsTheProgram)
{
    addShipment(addOrder("C-1", "Cobb Yard", {{"AX-100", 10, 1}}), {3});
    expectRuntimeError(383, [] { open("1"); }); // the customer is no longer active
    Forms::unloadAll();
    addOrder("A-1", "Acme Rail", {{"AX-100", 10, 1}});
    expectRuntimeError(3421, [] { begin("btnShipAll; txtFreight: free; btnSave"); });
    EXPECT_EQ(table("Shipment").size(), 1) << "before anything is stored";
    EXPECT_EQ(addShipment("1", {}), "3") << "the number is spent";
}

} // namespace
