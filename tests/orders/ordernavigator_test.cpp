#include "tests/orders/orderdesk.h"

namespace {

class OrderNavigator : public OrderDesk
{
protected:
    OrderNavigator()
    {
        order("B-10", 2, "Bolt Bros", "South", "Closed", Date(2011, 1, 31));
        order("A-2", 1, "Acme", "North", "Open", Date(2011, 1, 1));
        order("A-10", 0, "Acme", "South", "Void", Date(2011, 2, 1));
        order("Z-1", 1, "Old Co", "Closed Hall", "Open", Date(2010, 12, 31));
    }
    /// The numbers of the orders listed.
    static QString found(const FormDriver &form)
    {
        QStringList numbers;
        for (const QString &row : form.grid("vsfgOrders").mid(1))
            numbers += row.split('|').at(1);
        return numbers.join(' ');
    }
    static int gridSize(const FormDriver &form, const char *grid) { return int(form.grid(grid).size()); }
};

TEST_F(OrderNavigator, OpensAtTheTopLeftWithAllOrders)
{
    FormDriver form("frmOrderNavigator");
    EXPECT_TRUE(gOrderNavigatorOpen);
    EXPECT_EQ(found(form), "A-10 A-2 B-10 Z-1") << "by customer, then number as text";
    EXPECT_EQ(form.row("vsfgOrders", 0),
              "Warehouse|Order Number|Customer|Order Date|Due Date|Status|Total|Ship To|Ship To Phone|Ship To Fax|Date "
              "Added|OrderID");
    EXPECT_EQ(form.row("vsfgOrders", 2), "North|A-2|Acme|1/1/2011|1/9/2011|Open|10|Dock, , ,  |||1/1/2011|2");
    EXPECT_TRUE(form.shownRow("vsfgOrders", 2).contains("|Open|$10.|Dock"));
    EXPECT_EQ(gridSize(form, "vsfgItems"), 0);
    EXPECT_EQ(texts(form, {"dtStartDate", "dtEndDate", "Frame3"}), "3/30/2011,3/30/2011,Line Items");
    const QWidget *window = form.form()->parentWidget();
    EXPECT_EQ(window->pos(), QPoint(0, 0));
    EXPECT_EQ(window->size(), QSize(600, qRound(mdi->height() * 0.9)));
    form.click("btnExit");
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

TEST_F(OrderNavigator, LeavesOutAnEmptySecondAddressLine)
{
    FormDriver form("frmOrderNavigator");
    gDatabase->Execute(
        "UPDATE Orders SET ShipToAddress1 = '1 Quay', ShipToCity = 'Erie', ShipToState = 'PA', ShipToZip = "
        "'16501', ShipToPhone = '555' WHERE ID = 2");
    form.click("btnFind");
    const auto shipTo = [&] { return form.row("vsfgOrders", 2).split('|').mid(7, 2).join('|'); };
    EXPECT_EQ(shipTo(), "Dock, 1 Quay, Erie, PA 16501|555");
    gDatabase->Execute("UPDATE Orders SET ShipToAddress2 = 'Gate 3' WHERE ID = 2");
    form.click("btnFind");
    EXPECT_EQ(shipTo(), "Dock, 1 Quay, Gate 3, Erie, PA 16501|555");
}

TEST_F(OrderNavigator, EachCriterionNarrowsTheSearchAloneAndTogether)
{
    FormDriver form("frmOrderNavigator");
    form.choose("cmbWarehouse", "South");
    form.click("btnFind");
    EXPECT_EQ(found(form), "A-10 B-10");
    form.choose("cmbCustomer", "Acme");
    form.click("btnFind");
    EXPECT_EQ(found(form), "A-10");
    form.choose("cmbStatus", "Open");
    form.click("btnFind");
    EXPECT_EQ(found(form), "");
    EXPECT_EQ(gridSize(form, "vsfgOrders"), 1) << "the header alone";
    form.click("btnClear");
    EXPECT_EQ(found(form), "A-10 A-2 B-10 Z-1");

    form.choose("cmbCustomer", "Acme");
    form.click("btnFind");
    EXPECT_EQ(found(form), "A-10 A-2");
    form.click("btnClear");
    form.choose("cmbStatus", "Open");
    form.click("btnFind");
    EXPECT_EQ(found(form), "A-2 Z-1");
    form.click("btnClear");
    form.type("txtOrderNumber", "10");
    form.click("btnFind");
    EXPECT_EQ(found(form), "A-10 B-10") << "anywhere in the number";
    form.type("txtOrderNumber", "a");
    form.choose("cmbStatus", "Void");
    form.choose("cmbWarehouse", "South");
    form.choose("cmbCustomer", "Acme");
    form.control<DTPicker>("dtStartDate")->setValue(Date(2011, 2, 1));
    form.control<DTPicker>("dtEndDate")->setValue(Date(2011, 2, 1));
    form.click("chkOrderDate");
    form.click("btnFind");
    EXPECT_EQ(found(form), "A-10") << "all five together";
}

TEST_F(OrderNavigator, DatesCountOnlyWhileTickedAndBothEndsAreIn)
{
    FormDriver form("frmOrderNavigator");
    form.control<DTPicker>("dtStartDate")->setValue(Date(2011, 1, 1));
    form.control<DTPicker>("dtEndDate")->setValue(Date(2011, 1, 31));
    form.click("btnFind");
    EXPECT_EQ(found(form), "A-10 A-2 B-10 Z-1");
    form.click("chkOrderDate");
    form.click("btnFind");
    EXPECT_EQ(found(form), "A-2 B-10");
    form.click("btnClear");
    EXPECT_EQ(texts(form, {"chkOrderDate", "dtStartDate", "dtEndDate"}), "False,1/1/2011,1/31/2011");
}

TEST_F(OrderNavigator, AnApostropheOrAnOpenBracketInTheNumberBreaksTheStatement)
{
    FormDriver form("frmOrderNavigator");
    form.type("txtOrderNumber", "O'Brien");
    expectRuntimeError(
        3075, [&] { form.click("btnFind"); },
        "Syntax error (missing operator) in query expression 'Orders.OrderNumber Like '*O'Brien*' ORDER BY "
        "Orders.Customer, Orders.OrderNumber'.");
    form.type("txtOrderNumber", "[");
    expectRuntimeError(
        93, [&] { form.click("btnFind"); }, "Invalid pattern string");
}

TEST_F(OrderNavigator, SelectingARowShowsItsLines)
{
    FormDriver form("frmOrderNavigator");
    addRow("ShipmentItems", {{"ShipmentID", 1}, {"OrderID", 1}, {"OrderLineItem", 2}, {"Qty", 1}});
    addRow("ShipmentItems", {{"ShipmentID", 2}, {"OrderID", 1}, {"OrderLineItem", 2}, {"Qty", 1}});
    form.clickCell("vsfgOrders", 3);
    EXPECT_EQ(form.text("Frame3"), "Order B-10 Line Items");
    EXPECT_EQ(form.row("vsfgItems", 0),
              "Item Number|Qty Ordered|Qty Shipped|Part No.|Category|Price Each|Price Ext.|Cust. No.");
    EXPECT_EQ(form.grid("vsfgItems").mid(1), (QStringList{"1|1||P1|Bolts|10|99|C1", "2|2|2|P1|Bolts|10|99|C2"}));
    EXPECT_EQ(form.shownRow("vsfgItems", 2), "2|2|2|P1|Bolts|$10.|$99.|C2");
    form.key(Qt::Key_Up);
    EXPECT_EQ(form.text("Frame3"), "Order A-2 Line Items");
    form.clickCell("vsfgOrders", 1);
    EXPECT_EQ(form.grid("vsfgItems").mid(1), QStringList()) << "an order without lines";
    EXPECT_EQ(gridSize(form, "vsfgItems"), 1);
    form.click("btnFind");
    EXPECT_EQ(form.text("Frame3"), "Order A-10 Line Items") << "a search keeps the caption";
    EXPECT_EQ(gridSize(form, "vsfgItems"), 0) << "and empties the lines";
    form.click("btnClear");
    EXPECT_EQ(form.text("Frame3"), "Line Items");
}

TEST_F(OrderNavigator, DoubleClickOpensTheOrderAndItsClosingSearchesAgain)
{
    FormDriver form("frmOrderNavigator");
    form.choose("cmbStatus", "Open");
    form.click("btnFind");
    form.doubleClickCell("vsfgOrders", 1);
    ASSERT_TRUE(Forms::loaded("frmOrderEntry"));
    FormDriver entry("frmOrderEntry");
    EXPECT_EQ(entry.text("txtOrderNumber"), "A-2");
    boxes.expect("Void Order Confirmations", "Are you sure you want to void this order?", "Yes");
    entry.click("btnVoidOrder");
    entry.click("btnSave");
    EXPECT_EQ(found(form), "Z-1") << "the saved order left the filter";
    EXPECT_EQ(form.control<FlexGrid>("vsfgOrders")->row(), -1);
}

TEST_F(OrderNavigator, DoubleClickOnTheHeaderOpensANewOrder)
{
    FormDriver form("frmOrderNavigator");
    form.clickCell("vsfgOrders", 2);
    form.doubleClickCell("vsfgOrders", 0);
    ASSERT_TRUE(Forms::loaded("frmOrderEntry"));
    FormDriver entry("frmOrderEntry");
    EXPECT_EQ(entry.text("lblID"), "");
    EXPECT_TRUE(entry.enabled("cmbCustomer"));
}

TEST_F(OrderNavigator, AddNewOpensTheOrderFormOnce)
{
    FormDriver form("frmOrderNavigator");
    form.click("btnAddNew");
    ASSERT_TRUE(Forms::loaded("frmOrderEntry"));
    FormDriver entry("frmOrderEntry");
    entry.type("txtOrderNumber", "kept");
    form.click("btnAddNew");
    EXPECT_EQ(entry.text("txtOrderNumber"), "kept");
}

TEST_F(OrderNavigator, AnOrderNumberedBeyondSixteenBitsCannotBeOpened)
{
    FormDriver form("frmOrderNavigator");
    gDatabase->Execute("UPDATE OrderItem SET OrderID = 40000 WHERE OrderID = 2");
    addRow("Orders", {{"ID", 40000},
                      {"OrderNumber", "A-0"},
                      {"Customer", "Acme"},
                      {"Warehouse", "North"},
                      {"Status", "Open"},
                      {"OrderDate", Date(2011, 1, 1)},
                      {"DueDate", Date(2011, 1, 1)}});
    form.click("btnFind");
    expectRuntimeError(6, [&] { form.doubleClickCell("vsfgOrders", 1); });
    EXPECT_FALSE(Forms::loaded("frmOrderEntry"));
}

} // namespace
