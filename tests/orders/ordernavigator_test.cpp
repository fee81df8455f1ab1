#include "tests/orders/orderdesk.h"

namespace {

class OrderNavigator : public OrderDesk
{
protected:
    OrderNavigator()
    {
        addOrder("0-10", "Birch Mill", {{"AX-100", 1, 10}, {"AX-100", 2, 10}}, "Closed", "North", Date(2011, 1, 31));
        addOrder("A-2", "Acme Rail", {{"AX-100", 1, 10}}, "Open", "Main", Date(2011, 1, 1));
        addOrder("A-10", "Acme Rail", {}, "Void", "North", Date(2011, 2, 1));
        addOrder("Z-1", "Cobb Yard", {{"AX-100", 1, 10}}, "Open", "Old", Date(2010, 12, 31));
    }
    /// The numbers of the orders listed.
    static QString found(const FormDriver &form) { return column(form, "vsfgOrders", 1); }
    static qsizetype gridSize(const FormDriver &form, const char *grid) { return form.grid(grid).size(); }
};

TEST_F(OrderNavigator, OpensAtTheTopLeftWithAllOrders)
{
    FormDriver form("frmOrderNavigator");
    EXPECT_TRUE(gOrderNavigatorOpen);
    EXPECT_EQ(found(form), "A-10 A-2 0-10 Z-1") << "by customer, then number as text";
    EXPECT_EQ(form.row("vsfgOrders", 0),
              "Warehouse|Order Number|Customer|Order Date|Due Date|Status|Total|Ship To|Ship To Phone|Ship To Fax|Date "
              "Added|OrderID");
    EXPECT_EQ(form.row("vsfgOrders", 2),
              "Main|A-2|Acme Rail|1/1/2011|1/9/2011|Open|10|Dock 4, 1 Pier Rd, Erie, PA 16501|||1/1/2011|2")
        << "an empty second address line is left out";
    EXPECT_TRUE(form.shownRow("vsfgOrders", 2).contains("|Open|$10.|Dock"));
    EXPECT_EQ(gridSize(form, "vsfgItems"), 0);
    for (const auto &[list, held] : {std::pair{"cmbWarehouse", "Main|North"},
                                     {"cmbCustomer", "Acme Rail|Birch Mill"},
                                     {"cmbStatus", "Open|Closed|Void"}})
        EXPECT_EQ(entries(form, list), held);
    EXPECT_EQ(form.shows("dtStartDate dtEndDate Frame3"), "3/30/2011|3/30/2011|Line Items");
    const QWidget *window = form.form()->parentWidget();
    EXPECT_EQ(window->pos(), QPoint(0, 0));
    EXPECT_EQ(window->size(), QSize(600, qRound(mdi->height() * 0.9)));
    database.execute("UPDATE Orders SET ShipToAddress2 = 'Gate 3', ShipToPhone = '555', ShipToFax = '556'");
    form.act("btnFind");
    EXPECT_TRUE(form.row("vsfgOrders", 2).contains("|Dock 4, 1 Pier Rd, Gate 3, Erie, PA 16501|555|556|"));
    form.act("btnExit");
    EXPECT_FALSE(gOrderNavigatorOpen);
}

TEST_F(OrderNavigator, TheListsGrowWithTheWindowAndTheCriteriaStayTogether)
{
    FormDriver form("frmOrderNavigator");
    const auto at = [&](const char *name) { return form.control<QWidget>(name)->geometry(); };
    form.form()->parentWidget()->resize(1100, 800);
    settle();
    EXPECT_EQ(at("Frame2").width(), 1100 - 20);
    EXPECT_EQ(at("Frame3").width(), 1100 - 20);
    EXPECT_EQ(at("vsfgOrders").width(), qRound(1080 - 200 / 15.0));
    EXPECT_EQ(at("vsfgItems").width(), at("vsfgOrders").width());
    const double rest = 800 - at("Frame1").height() - 650 / 15.0;
    EXPECT_EQ(at("Frame2").height(), qRound(rest * 0.55));
    EXPECT_EQ(at("vsfgOrders").height(), qRound(rest * 0.55 - 700 / 15.0));
    EXPECT_EQ(at("Frame3").y(), at("Frame2").y() + at("Frame2").height() + qRound(100 / 15.0));
    EXPECT_EQ(at("Frame3").height(), qRound(rest * 0.45));
    EXPECT_EQ(at("vsfgItems").height(), qRound(rest * 0.45 - 600 / 15.0));
    EXPECT_LT(at("Frame1").width(), 900);
    EXPECT_LT(at("dtEndDate").x() - at("dtStartDate").right(), 12);
}

TEST_F(OrderNavigator, EachCriterionNarrowsTheSearchAloneAndTogether)
{
    FormDriver form("frmOrderNavigator");
    for (const auto &[steps, orders] : {std::pair{"cmbWarehouse: North", "A-10 0-10"},
                                        {"cmbCustomer: Acme Rail", "A-10"},
                                        {"cmbStatus: Open", ""},
                                        {"btnClear", "A-10 A-2 0-10 Z-1"},
                                        {"cmbCustomer: Acme Rail", "A-10 A-2"},
                                        {"btnClear; cmbStatus: Open", "A-2 Z-1"},
                                        {"btnClear; txtOrderNumber: 10", "A-10 0-10"},
                                        {"btnClear; dtStartDate: 1/1/2011; dtEndDate: 1/31/2011", "A-10 A-2 0-10 Z-1"},
                                        {"chkOrderDate", "A-2 0-10"},
                                        {"dtEndDate: 2/1/2011; txtOrderNumber: a; cmbStatus: Void; cmbWarehouse: "
                                         "North; cmbCustomer: Acme Rail",
                                         "A-10"},
                                        {"dtStartDate: 2/2/2011", ""}}) {
        form.act(steps);
        form.act("btnFind");
        EXPECT_EQ(found(form), orders) << steps;
    }
    EXPECT_EQ(gridSize(form, "vsfgOrders"), 1) << "the header alone";
    form.act("btnClear");
    EXPECT_EQ(found(form), "A-10 A-2 0-10 Z-1");
    EXPECT_EQ(form.shows("cmbStatus chkOrderDate dtStartDate dtEndDate"), "|False|2/2/2011|2/1/2011");
}

TEST_F(OrderNavigator, WhatBreaksItsStatementEndsTheProgram)
{
    FormDriver form("frmOrderNavigator");
    expectRuntimeError(
        3075, [&] { form.act("txtOrderNumber: O'Brien; btnFind"); },
        "Syntax error (missing operator) in query expression 'Orders.OrderNumber Like '*O'Brien*' ORDER BY "
        "Orders.Customer, Orders.OrderNumber'.");
    expectErrorUnderHourglass(93, [&] { form.act("txtOrderNumber: [; btnFind"); });
    form.act("txtOrderNumber:");
    addRow("Orders", {{"ID", 40000}, {"OrderNumber", "A-0"}, {"Customer", "Acme Rail"}});
    form.act("btnFind");
    expectRuntimeError(6, [&] { form.doubleClickCell("vsfgOrders", 1); }); // a number beyond 16 bits
    EXPECT_FALSE(Forms::loaded("frmOrderEntry"));
}

TEST_F(OrderNavigator, SelectingARowShowsItsLines)
{
    for (int i = 0; i < 2; ++i)
        addShipment("1", {0, 1});
    database.execute("UPDATE OrderItem SET PriceExt = 99");
    FormDriver form("frmOrderNavigator");
    form.act("vsfgOrders[3]");
    EXPECT_EQ(form.text("Frame3"), "Order 0-10 Line Items");
    EXPECT_EQ(form.row("vsfgItems", 0),
              "Item Number|Qty Ordered|Qty Shipped|Part No.|Category|Price Each|Price Ext.|Cust. No.");
    EXPECT_EQ(lines(form, "vsfgItems"), (QStringList{"1|1||AX-100|Axles|10|99|C1", "2|2|2|AX-100|Axles|10|99|C2"}));
    EXPECT_EQ(form.shownRow("vsfgItems", 2), "2|2|2|AX-100|Axles|$10.|$99.|C2");
    form.key(Qt::Key_Up);
    EXPECT_EQ(form.text("Frame3"), "Order A-2 Line Items");
    form.act("vsfgOrders[1]");
    EXPECT_EQ(gridSize(form, "vsfgItems"), 1) << "an order without lines";
    form.act("btnFind");
    EXPECT_EQ(form.text("Frame3"), "Order A-10 Line Items") << "a search keeps the caption";
    EXPECT_EQ(gridSize(form, "vsfgItems"), 0) << "and empties the lines";
    form.act("btnClear");
    EXPECT_EQ(form.text("Frame3"), "Line Items");
}

TEST_F(OrderNavigator, OpensOrdersByDoubleClickAndAddNewAndSearchesAgainWhenOneCloses)
{
    FormDriver form("frmOrderNavigator");
    form.act("cmbStatus: Open; btnFind; vsfgOrders[2]");
    form.doubleClickCell("vsfgOrders", 0);
    ASSERT_TRUE(Forms::loaded("frmOrderEntry"));
    FormDriver entry("frmOrderEntry");
    EXPECT_EQ(entry.text("lblID"), "") << "on the header: a new one";
    EXPECT_TRUE(entry.enabled("cmbCustomer"));
    entry.act("btnExit");
    form.doubleClickCell("vsfgOrders", 1);
    entry = FormDriver("frmOrderEntry");
    EXPECT_EQ(entry.text("txtOrderNumber"), "A-2");
    expectBox(entry, "btnVoidOrder; btnSave", "Void Order Confirmations", "Are you sure you want to void this order?",
              "Yes");
    EXPECT_EQ(found(form), "Z-1") << "the saved order left the filter";
    EXPECT_EQ(form.control<FlexGrid>("vsfgOrders")->row(), -1);
    form.act("btnAddNew");
    entry = FormDriver("frmOrderEntry");
    entry.act("txtOrderNumber: kept");
    form.act("btnAddNew");
    EXPECT_EQ(entry.text("txtOrderNumber"), "kept") << "opened once";
}

} // namespace
