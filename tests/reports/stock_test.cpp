#include "reports/inventoryregisters.h"
#include "reports/listings.h"
#include "reports/production.h"
#include "tests/reports/reporttest.h"

namespace {

class Stock : public ReportTest
{
protected:
    QString orderOf(const char *part, double qty, const char *status = "Open")
    {
        return addOrder("A-1", "Acme Rail", {{part, qty, 10}}, status);
    }
};

TEST_F(Stock, TheRegisterPutsTheBalanceBeforeTheMovementsOfTheBeginDate)
{
    const QString later = addAdjustment("Main", "2/5/2010", "BR-200", 1);
    const QString sibling = addAdjustment("Main", "2/1/2010", "CX-300", 3);
    addAdjustment("Main", "1/1/2010", "BR-200", 10);
    addAdjustment("Main", "1/5/2010", "BR-200", -10);
    const QString counted = addAdjustment("Main", "2/1/2010", "BR-200", 50);
    const QString moved = addTransfer("Main", "North", "2/1/2010", "BR-200", 20);
    const QString shipment = addShipment(orderOf("BR-200", 8), {8}, Date(2010, 2, 1));
    addAdjustment("Main", "3/1/2010", "BR-200", 99);
    const QString bare = addRow("AdjustmentHeader", {{"Warehouse", "Main"}, {"Date", "2/1/2010"}});
    const QStringList expected{"Main||2/1/2010|||Adjustment ID - " + bare,
                               "Main|BR-200|2/1/2010|0|1.25|*Beginning Balance",
                               "Main|BR-200|2/1/2010|50|1.25|Adjustment ID - " + counted,
                               "Main|BR-200|2/1/2010|-8|1.25|Shipment ID - " + shipment,
                               "Main|BR-200|2/1/2010|-20|1.25|Transfer ID - " + moved,
                               "Main|BR-200|2/5/2010|1|1.25|Adjustment ID - " + later,
                               "Main|CX-300|2/1/2010|3|0.05|Adjustment ID - " + sibling,
                               "North|BR-200|2/1/2010|20|1.25|Transfer ID - " + moved};
    Reports::ReportAvailableInventory("2/1/2010", "2/28/2010", true, "***All Categories***");
    EXPECT_EQ(rows(), expected);
    EXPECT_EQ(database.count("tmpInventoryRegister"), 9) << "every movement up to the end date";
    EXPECT_EQ(database.count("tmpInventoryRegister2"), 8);
    EXPECT_EQ(shown("secTotals secDetail"), "hidden|shown");
    const Report &first = report();
    Reports::ReportAvailableInventoryExport("2/1/2010", "2/28/2010", false, "***All Categories***");
    EXPECT_EQ(rows(), expected);

    // A period that ends before it begins leaves the balances.
    Reports::ReportAvailableInventoryByPart("2/2/2010", "2/1/2010", false, "Brackets");
    EXPECT_EQ(rows(), QStringList({"Main|BR-200|2/2/2010|22|1.25|*Beginning Balance",
                                   "Main|CX-300|2/2/2010|3|0.05|*Beginning Balance",
                                   "North|BR-200|2/2/2010|20|1.25|*Beginning Balance"}));
    EXPECT_EQ(shown("secTotals secDetail"), "shown|hidden");
    Reports::ReportAvailableInventory("2/1/2010", "2/28/2010", true, "Axles");
    EXPECT_EQ(rows(), QStringList());
    expectRuntimeError(3075, [] { Reports::ReportAvailableInventory("2/1/2010", "2/2/2010", true, "Men's"); });
    EXPECT_EQ(rowsOf(first), expected) << "a window keeps its data when the scratch tables are filled anew";
}

TEST_F(Stock, QuickAvailabilityHasEveryPartUnderTheWarehouse)
{
    database.execute("INSERT INTO AvailInv (Whse,Part,Avail) VALUES ('MAIN','br-200',-7)");
    Reports::ReportQuickAvailInv("Main");
    EXPECT_EQ(rows(), QStringList({"Main|AX-100|", "Main|BR-200|-7", "Main|CX-300|", "Main|ZZ-900|"}));
    Reports::ReportQuickAvailInv("***All Warehouses***");
    EXPECT_EQ(rows().size(), 12);
    Reports::ReportQuickAvailInv("");
    EXPECT_EQ(rows(), QStringList());
}

TEST_F(Stock, InventorySalesStartFromTheCount)
{
    database.execute("INSERT INTO FebInventory (Part,Qty) VALUES ('AX-100',40)");
    database.execute("INSERT INTO FebInventory (Part,Qty) VALUES ('unknown',1)");
    int qty = 1;
    for (const Date date : {Date(2003, 2, 27), Date(2003, 2, 28), Date(2004, 1, 31), Date(2004, 2, 1),
                            Date(2004, 2, 29), Date(2004, 3, 1)}) {
        addShipment(orderOf("AX-100", 100), {qty}, date);
        qty *= 2;
    }
    addAdjustment("Main", "2/29/2004", "AX-100", 50);
    addAdjustment("Main", "3/1/2004", "AX-100", 99);
    addTransfer("Main", "North", "2/1/2004", "AX-100", 20);
    Reports::ReportInventorySales("2/1/2004", "2/29/2004");
    EXPECT_EQ(rows(), QStringList({"AX-100|2.5|40|24|6|19", "unknown||1|||"}));
    EXPECT_EQ(database.count("tmpTransferHeaderIDs"), 2) << "both halves of the transfer";
    EXPECT_EQ(shown("txtBeginDate txtEndDate"), "2/1/2004|2/29/2004");
}

TEST_F(Stock, ProductionSumsTheSoldTheOnHandAndTheCommitted)
{
    addAdjustment("Main", "1/1/2010", "AX-100", 50);
    addAdjustment("North", "1/1/2010", "BR-200", 4);
    addTransfer("Main", "North", "1/2/2010", "AX-100", 20);
    const QString sold = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 10}, {"BR-200", 10, 1}});
    const struct
    {
        const char *invoiced;
        std::vector<int> quantities;
    } shipments[] = {
        {"11/30/2010", {1}}, {"12/1/2010", {2}}, {"2/28/2011", {0, 5}}, {"2/28/2011", {3}}, {"3/1/2011", {4}}};
    for (const auto &shipped : shipments)
        addInvoice("Acme Rail", shipped.invoiced, addShipment(sold, shipped.quantities), 10);
    database.execute("UPDATE Shipment SET Invoiced = TRUE");
    addShipment(orderOf("AX-100", 7), {6});
    orderOf("BR-200", 9, "Void"); // void or not
    const QString twice = orderOf("CX-300", 10);
    addShipment(twice, {3});
    addShipment(twice, {4}); // each of two that are not invoiced repeats what both shipped

    const QString mainAxle = "Main|AX-100|3|2|5|20|6", mainBracket = "Main|BR-200|3|2|5|-5|9",
                  twiceShipped = "Main|CX-300|3|2|||14", northAxle = "North|AX-100|3|2||20|",
                  northBracket = "North|BR-200|3|2||4|";
    Reports::ReportProductionByWhsePart(3, 2, false);
    EXPECT_EQ(rows(), QStringList({mainAxle, mainBracket, twiceShipped, northAxle, northBracket}));
    Reports::ReportProductionByPartWhse(3, 2, false);
    EXPECT_EQ(rows(), QStringList({mainAxle, northAxle, mainBracket, northBracket, twiceShipped}));
    EXPECT_EQ(shown("txtMonths txtReq"), "3|2");
}

TEST_F(Stock, ProductionCountsWhatWasSoldInFullMonthsAndNoLeapDay)
{
    const QString sold = orderOf("AX-100", 40);
    int qty = 1;
    for (const char *date : {"1/31/2012", "2/1/2012", "2/28/2012", "2/29/2012", "3/1/2012"}) {
        addInvoice("Acme Rail", date, addShipment(sold, {qty}), 10);
        qty *= 2;
    }
    database.execute("UPDATE Shipment SET Invoiced = TRUE");
    for (const auto &[today, months, quantity] : {std::tuple{"2012-02-29", 0, ""},
                                                  {"2012-02-29", 1, "1"},
                                                  {"2012-03-31", 0, ""},
                                                  {"2012-03-31", 1, "6"},
                                                  {"2012-04-30", 3, "31"}}) {
        const TestClock clock(QString(today) + " 08:00:00");
        Reports::ReportProductionByWhsePart(months, 2, false);
        EXPECT_EQ(rows(), QStringList(QString("Main|AX-100|%1|2|%2|-31|").arg(months).arg(quantity))) << today;
    }
}

TEST_F(Stock, SuppressionReplacesTheConditionsOfRowAndPart)
{
    using namespace Reports;
    const QString row = "if ({@Req} = 0) then true";
    const QString part = "if (Sum ({@Req}, {ProductionByWhsePartReport_ttx.PartNo}) = 0) then true";
    const struct
    {
        void (*routine)(qint16, qint16, bool);
        bool suppress, row, part;
    } cases[] = {{ReportProductionByPartWhse, false, false, false},
                 {ReportProductionByPartWhse, true, true, true},
                 {ReportProductionByWhsePart, true, true, false}};
    for (const auto &c : cases) {
        c.routine(3, 2, c.suppress);
        EXPECT_EQ(report().layout().formulas[3].text == row, c.row);
        EXPECT_EQ(report().layout().formulas[5].text == part, c.part);
    }
}

TEST_F(Stock, OpenOrdersShowOrderedBesideShipped)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 1}, {"BR-200", 5, 1}});
    addShipment(order, {3});
    addShipment(order, {4});
    addOrder("B-1", "Birch Mill", {}, "Open", "North");
    addOrder("A-2", "Acme Rail", {}, "Closed");
    Reports::ReportOpenOrders();
    EXPECT_EQ(window()->windowTitle(), "Open Orders");
    EXPECT_EQ(rows(0, 0), QStringList({"1", "1", "2"}));
    EXPECT_EQ(rows(15), QStringList({"1|AX-100|Axles|C1|10|7", "2|BR-200|Brackets|C2|5|", "|||||"}));
    EXPECT_EQ(database.rows("SELECT * FROM tmpShipped"), QStringList("1|1|7"));
}

TEST_F(Stock, ListingsStandInBlocksByStatus)
{
    database.execute("UPDATE Part SET Status = 'InActive' WHERE PartNo = 'AX-100'");
    database.execute("UPDATE Customer SET Status = 'InActive' WHERE Customer = 'Acme Rail'");
    const std::tuple<const char *, void (*)(), QStringList> listings[] = {
        {"Part Listing", Reports::ReportPartListing, {"BR-200", "CX-300", "AX-100", "ZZ-900"}},
        {"Customer Listing", Reports::ReportCustomerListing, {"Birch Mill", "Acme Rail", "Cobb Yard"}},
        {"Warehouse Listing", Reports::ReportWarehouseListing, {"Main", "North", "Old"}},
    };
    for (const auto &[title, routine, names] : listings) {
        routine();
        EXPECT_EQ(window()->windowTitle(), title);
        EXPECT_EQ(rows(0, 0), names);
    }
}

TEST_F(Stock, ControlReportsProveOneDocument)
{
    const QString adjustment = addAdjustment("Main", "2/1/2010", "AX-100", 5);
    Reports::ReportAdjustmentControl(adjustment);
    EXPECT_EQ(rows(), QStringList(adjustment + "|2/1/2010|2/1/2010|Main|AX-100|5|Axles"));
    const QString bare = addRow("AdjustmentHeader", {{"Warehouse", "North"}, {"Date", "2/1/2010"}});
    Reports::ReportAdjustmentControl(bare);
    EXPECT_EQ(rows(), QStringList(bare + "|2/1/2010||North|||"));

    database.execute("UPDATE Warehouse SET City = 'Albany' WHERE Warehouse = 'North'");
    addTransfer("Main", "North", "2/3/2010", "AX-100", 5); // of adjustments 3 and 4
    Reports::ReportTransferControl("1");
    EXPECT_EQ(rows(), QStringList("1|3|2/3/2010|2/3/2010|North|AX-100|5|Axles|||Albany||"));
    EXPECT_EQ(shown("txtFromWarehouse"), "Main");
    expectRuntimeError(3075, [] { Reports::ReportAdjustmentControl(""); });
    expectRuntimeError(3075, [] { Reports::ReportTransferControl(""); });
    expectRuntimeError(3021, [] { Reports::ReportTransferControl("99"); });
}

} // namespace
