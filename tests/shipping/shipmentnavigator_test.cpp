#include "tests/support/company.h"
#include "toolkit/forms/mainmod.h"

namespace {

class ShipmentNavigator : public CompanyTest
{
protected:
    ShipmentNavigator()
    {
        const QString late = addOrder("A-20", "Acme Rail", {{"AX-100", 10, 4.75}, {"BR-200", 6, 2}});
        const QString other = addOrder("A-12", "Birch Mill", {{"AX-100", 3, 4}});
        const QString early = addOrder("A-10", "Acme Rail", {{"AX-100", 1, 1}});
        addShipment(late, Date(2011, 3, 5), {4, 2});
        addShipment(other, Date(2011, 3, 6), {3});
        addShipment(early, Date(2011, 3, 30), {1});
        addShipment("999", Date(2011, 4, 1), {1});
        database.execute("UPDATE Shipment SET Invoiced = True WHERE ID = 2");
    }

    /// The shipments listed, by number.
    static QStringList found(const FormDriver &user) { return column(user, "vsfgShipments", 2); }
};

TEST_F(ShipmentNavigator, OpensWithAllShipmentsByCustomerAndOrderNumber)
{
    mdi->resize(1000, 700);
    FormDriver user("frmShipmentNavigator");
    EXPECT_NEAR(user.form()->parentWidget()->width(), 900, 1);
    EXPECT_NEAR(user.form()->parentWidget()->height(), 630, 1);
    EXPECT_FALSE(QGuiApplication::overrideCursor());
    EXPECT_EQ(lines(user, "vsfgShipments"),
              (QStringList{"||4|4/1/2011||, , , ,   |False",
                           "Acme Rail|A-10|3|3/30/2011|3|Dock 4, 1 Pier Rd, , Erie, PA  16501|False",
                           "Acme Rail|A-20|1|3/5/2011|1|Dock 4, 1 Pier Rd, , Erie, PA  16501|False",
                           "Birch Mill|A-12|2|3/6/2011|2|Dock 4, 1 Pier Rd, , Erie, PA  16501|True"}))
        << "a shipment whose order is gone is listed too";
    EXPECT_EQ(user.control<FlexGrid>("vsfgItems")->rows(), 0);
    EXPECT_TRUE(gShipmentNavigatorOpen);
    user.click("btnExit");
    EXPECT_FALSE(gShipmentNavigatorOpen);
}

TEST_F(ShipmentNavigator, FiltersNarrowTheListAndClearKeepsTheDates)
{
    FormDriver user("frmShipmentNavigator");
    user.type("txtOrderNumber", "2");
    user.click("btnFind");
    EXPECT_EQ(found(user), (QStringList{"1", "2"})) << "any part of the number";
    pick(user, "cmbCustomer", "Birch Mill");
    user.click("btnFind");
    EXPECT_EQ(found(user), QStringList{"2"});
    user.tick("chkShipDate");
    user.click("btnFind");
    EXPECT_EQ(found(user), QStringList());

    user.control<DTPicker>("dtStartDate")->setValue(Date(2011, 3, 6));
    user.click("btnFind");
    EXPECT_EQ(found(user), QStringList{"2"}) << "both ends count";
    user.click("btnClear");
    EXPECT_EQ(found(user).size(), 4);
    EXPECT_EQ(user.text("cmbCustomer"), "");
    EXPECT_EQ(user.text("txtOrderNumber"), "");
    EXPECT_EQ(user.text("chkShipDate"), "False");
    EXPECT_EQ(user.text("dtStartDate"), "3/6/2011");
    user.tick("chkShipDate");
    user.click("btnFind");
    EXPECT_EQ(found(user), (QStringList{"3", "2"}));
    user.control<DTPicker>("dtStartDate")->setValue(Date(2011, 4, 30));
    user.click("btnFind");
    EXPECT_EQ(found(user), QStringList()) << "start after end";
}

TEST_F(ShipmentNavigator, RowShowsItsLinesWithTheAmountOfTheWholeOrderLine)
{
    FormDriver user("frmShipmentNavigator");
    user.clickCell("vsfgShipments", 3, 0);
    EXPECT_EQ(lines(user, "vsfgItems"), (QStringList{"1|10|4|AX-100|4.75|47.5", "2|6|2|BR-200|2|12"}));
    EXPECT_EQ(user.shownRow("vsfgItems", 1), "1|10|4|AX-100|$4.75|$47.5");
    EXPECT_EQ(user.control<QGroupBox>("Frame3")->title(), "Line Items");
    user.click("btnFind");
    EXPECT_EQ(user.control<FlexGrid>("vsfgItems")->rows(), 0);
}

TEST_F(ShipmentNavigator, DoubleClickOpensTheShipmentAndOnTheHeaderAnEmptyForm)
{
    FormDriver user("frmShipmentNavigator");
    user.clickCell("vsfgShipments", 3, 0);
    user.doubleClickCell("vsfgShipments", 0);
    ASSERT_TRUE(Forms::loaded("frmShipmentEntry"));
    EXPECT_EQ(FormDriver("frmShipmentEntry").text("txtID"), "");
    FormDriver("frmShipmentEntry").click("btnExit");
    settle();

    user.doubleClickCell("vsfgShipments", 3);
    EXPECT_EQ(FormDriver("frmShipmentEntry").text("txtID"), "1");
}

TEST_F(ShipmentNavigator, ApostropheInTheFilterBreaksTheStatement)
{
    FormDriver user("frmShipmentNavigator");
    user.type("txtOrderNumber", "O'Brien");
    expectRuntimeError(3075, [&] { user.click("btnFind"); });
}

} // namespace
