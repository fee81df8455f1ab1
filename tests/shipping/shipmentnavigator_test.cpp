#include "tests/support/company.h"
#include "toolkit/forms/mainmod.h"

namespace {

class ShipmentNavigator : public CompanyTest
{
protected:
    ShipmentNavigator()
    {
        const QString late = addOrder("A-20", "Acme Rail", {{"BR-200", 10, 4.75}, {"AX-100", 6, 2}});
        const QString other = addOrder("A-12", "Birch Mill", {{"AX-100", 3, 4}});
        const QString early = addOrder("A-10", "Acme Rail", {{"AX-100", 1, 1}});
        const QString first = addShipment(late, {0, 2}, Date(2011, 3, 5)); // its lines written backwards
        addRow("ShipmentItems", {{"ShipmentID", first}, {"OrderID", late}, {"OrderLineItem", 1}, {"Qty", 4}});
        addShipment(other, {3}, Date(2011, 3, 6));
        addShipment(early, {1}, Date(2011, 3, 30));
        addShipment("999", {1}, Date(2011, 4, 1));
        database.execute("UPDATE Shipment SET Invoiced = True WHERE ID = 2");
    }
};

TEST_F(ShipmentNavigator, OpensWithAllShipmentsByCustomerAndOrderNumber)
{
    mdi->resize(1000, 700);
    FormDriver user("frmShipmentNavigator");
    EXPECT_NEAR(user.form()->parentWidget()->width(), 900, 1);
    EXPECT_NEAR(user.form()->parentWidget()->height(), 630, 1);
    EXPECT_EQ(lines(user, "vsfgShipments"),
              (QStringList{"||4|4/1/2011||, , , ,   |False",
                           "Acme Rail|A-10|3|3/30/2011|3|Dock 4, 1 Pier Rd, , Erie, PA  16501|False",
                           "Acme Rail|A-20|1|3/5/2011|1|Dock 4, 1 Pier Rd, , Erie, PA  16501|False",
                           "Birch Mill|A-12|2|3/6/2011|2|Dock 4, 1 Pier Rd, , Erie, PA  16501|True"}))
        << "a shipment whose order is gone is listed too";
    EXPECT_EQ(user.control<FlexGrid>("vsfgItems")->rows(), 0);
    EXPECT_EQ(entries(user, "cmbCustomer"), "Acme Rail|Birch Mill");
    EXPECT_TRUE(gShipmentNavigatorOpen);
    user.act("btnExit");
    EXPECT_FALSE(gShipmentNavigatorOpen);
}

TEST_F(ShipmentNavigator, FiltersNarrowTheListAndClearKeepsTheDates)
{
    FormDriver user("frmShipmentNavigator");
    for (const auto &[steps, shipments] : {std::pair{"txtOrderNumber: 2", "1 2"}, // any part of the number
                                           {"cmbCustomer: Birch Mill", "2"},
                                           {"chkShipDate", ""},
                                           {"dtStartDate: 3/6/2011", "2"}, // both ends count
                                           {"btnClear", "4 3 1 2"},
                                           {"chkShipDate", "3 2"},
                                           {"dtStartDate: 4/30/2011", ""}}) {
        user.act(steps);
        user.act("btnFind");
        EXPECT_EQ(column(user, "vsfgShipments", 2), shipments) << steps;
    }
    user.act("txtOrderNumber: 2; cmbCustomer: Acme Rail; btnClear");
    EXPECT_EQ(user.shows("cmbCustomer txtOrderNumber chkShipDate dtStartDate dtEndDate"),
              "||False|4/30/2011|3/30/2011");
    expectErrorUnderHourglass(3075, [&] { user.act("txtOrderNumber: O'Brien; btnFind"); });
}

TEST_F(ShipmentNavigator, RowShowsItsLinesAndDoubleClickOpensTheShipment)
{
    FormDriver user("frmShipmentNavigator");
    user.act("vsfgShipments[3]");
    EXPECT_EQ(lines(user, "vsfgItems"), (QStringList{"1|10|4|BR-200|4.75|47.5", "2|6|2|AX-100|2|12"}))
        << "the amount of the whole order line";
    EXPECT_EQ(user.shownRow("vsfgItems", 1), "1|10|4|BR-200|$4.75|$47.5");
    EXPECT_EQ(user.text("Frame3"), "Line Items");
    user.act("btnFind; vsfgShipments[3]");
    user.doubleClickCell("vsfgShipments", 0);
    ASSERT_TRUE(Forms::loaded("frmShipmentEntry"));
    EXPECT_EQ(FormDriver("frmShipmentEntry").text("txtID"), "") << "on the header";
    FormDriver("frmShipmentEntry").act("btnExit");
    user.doubleClickCell("vsfgShipments", 3);
    EXPECT_EQ(FormDriver("frmShipmentEntry").text("txtID"), "1");
    user.act("btnFind");
    EXPECT_EQ(user.control<FlexGrid>("vsfgItems")->rows(), 0);
}

} // namespace
