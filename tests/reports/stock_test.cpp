#include "reports/inventoryregisters.h"
#include "reports/listings.h"
#include "reports/production.h"
#include "tests/reports/reporttest.h"
#include "tests/support/testclock.h"

namespace {

class Stock : public ReportTest
{
protected:
    /// A transfer of one line; returns its ID.
    int transfer(const QString &from, const QString &to, const QString &date, const QString &part, double qty)
    {
        const int out = addAdjustment(from, date, part, -qty);
        const int in = addAdjustment(to, date, part, qty);
        return insert("TransferHeader", {{"FromID", out}, {"ToID", in}});
    }

    int orderOf(const QString &part, double qty)
    {
        const int order = addOrder("Acme Supply", "Main");
        addLine(order, 1, part, qty, 10);
        return order;
    }
};

TEST_F(Stock, TheRegisterPutsTheBalanceBeforeTheMovementsOfTheBeginDate)
{
    const int later = addAdjustment("Main", "2/5/2010", "A-100", 1);
    const int sibling = addAdjustment("Main", "2/1/2010", "A-200", 3);
    addAdjustment("Main", "1/1/2010", "A-100", 10);
    addAdjustment("Main", "1/5/2010", "A-100", -10);
    const int counted = addAdjustment("Main", "2/1/2010", "A-100", 50);
    const int moved = transfer("Main", "East", "2/1/2010", "A-100", 20);
    const int order = orderOf("A-100", 8);
    const int shipment = addShipment(order, "2/1/2010", false);
    ship(shipment, order, 1, 8);
    addAdjustment("Main", "3/1/2010", "A-100", 99);
    Reports::ReportAvailableInventory("2/1/2010", "2/28/2010", true, "***All Categories***");
    const QStringList expected{QString("East|A-100|2/1/2010|20|6|Transfer ID - %1").arg(moved),
                               "Main|A-100|2/1/2010|0|6|*Beginning Balance",
                               QString("Main|A-100|2/1/2010|50|6|Adjustment ID - %1").arg(counted),
                               QString("Main|A-100|2/1/2010|-8|6|Shipment ID - %1").arg(shipment),
                               QString("Main|A-100|2/1/2010|-20|6|Transfer ID - %1").arg(moved),
                               QString("Main|A-100|2/5/2010|1|6|Adjustment ID - %1").arg(later),
                               QString("Main|A-200|2/1/2010|3|12|Adjustment ID - %1").arg(sibling)};
    EXPECT_EQ(rows(), expected);
    EXPECT_EQ(database.count("tmpInventoryRegister"), 8) << "every movement up to the end date";
    EXPECT_EQ(database.count("tmpInventoryRegister2"), 7);
    EXPECT_TRUE(isSuppressed("secTotals"));
    EXPECT_FALSE(isSuppressed("secDetail"));
    Reports::ReportAvailableInventoryExport("2/1/2010", "2/28/2010", false, "***All Categories***");
    EXPECT_EQ(rows(), expected);

    Reports::ReportAvailableInventoryByPart("2/2/2010", "2/1/2010", false, "Pumps");
    EXPECT_EQ(rows(),
              QStringList({"East|A-100|2/2/2010|20|6|*Beginning Balance", "Main|A-100|2/2/2010|22|6|*Beginning Balance",
                           "Main|A-200|2/2/2010|3|12|*Beginning Balance"}))
        << "a period that ends before it begins leaves the balances";
    EXPECT_TRUE(isSuppressed("secDetail"));
    EXPECT_FALSE(isSuppressed("secTotals"));
    Reports::ReportAvailableInventory("2/1/2010", "2/28/2010", true, "Valves");
    EXPECT_EQ(rows(), QStringList());
    EXPECT_EQ(errorNumberOf([] { Reports::ReportAvailableInventory("2/1/2010", "2/2/2010", true, "Men's"); }), 3075);
}

TEST_F(Stock, AnAdjustmentWithoutLinesIsARegisterRowWithoutAPart)
{
    const int id = insert("AdjustmentHeader", {{"Warehouse", "Main"}, {"Date", "2/1/2010"}});
    Reports::ReportAvailableInventory("2/1/2010", "2/28/2010", true, "***All Categories***");
    EXPECT_EQ(rows(), QStringList(QString("Main||2/1/2010|||Adjustment ID - %1").arg(id)));
}

TEST_F(Stock, QuickAvailabilityHasEveryPartUnderTheWarehouse)
{
    database.execute("INSERT INTO AvailInv (Whse,Part,Avail) VALUES ('MAIN','a-200',-7)");
    Reports::ReportQuickAvailInv("Main");
    EXPECT_EQ(rows(), QStringList({"Main|A-100|", "Main|A-200|-7", "Main|B-100|", "Main|Z-900|"}));
    Reports::ReportQuickAvailInv("***All Warehouses***");
    EXPECT_EQ(rows().size(), 12);
    Reports::ReportQuickAvailInv("");
    EXPECT_EQ(rows(), QStringList());
}

TEST_F(Stock, InventorySalesStartFromTheCount)
{
    database.execute("INSERT INTO FebInventory (Part,Qty) VALUES ('A-100',40)");
    database.execute("INSERT INTO FebInventory (Part,Qty) VALUES ('unknown',1)");
    const char *dates[] = {"2/27/2003", "2/28/2003", "1/31/2004", "2/1/2004", "2/29/2004", "3/1/2004"};
    for (int i = 0; i < 6; ++i) {
        const int order = orderOf("A-100", 100);
        ship(addShipment(order, dates[i], false), order, 1, 1 << i);
    }
    addAdjustment("Main", "2/29/2004", "A-100", 50);
    addAdjustment("Main", "3/1/2004", "A-100", 99);
    transfer("Main", "East", "2/1/2004", "A-100", 20);
    Reports::ReportInventorySales("2/1/2004", "2/29/2004");
    EXPECT_EQ(rows(), QStringList({"A-100|6|40|24|6|19", "unknown||1|||"}));
    EXPECT_EQ(database.count("tmpTransferHeaderIDs"), 2) << "both halves of the transfer";
    EXPECT_EQ(textOf("txtBeginDate") + " " + textOf("txtEndDate"), "2/1/2004 2/29/2004");
}

TEST_F(Stock, ProductionSumsTheSoldTheOnHandAndTheCommitted)
{
    const TestClock clock("2010-05-15 08:00:00");
    addAdjustment("Main", "1/1/2010", "A-100", 50);
    addAdjustment("East", "1/1/2010", "A-200", 4);
    transfer("Main", "East", "1/2/2010", "A-100", 20);
    const int sold = orderOf("A-100", 10);
    addLine(sold, 2, "A-200", 10, 1);
    const struct
    {
        const char *date;
        bool invoiced;
        int line, qty;
    } shipments[] = {{"1/31/2010", true, 1, 1},
                     {"2/1/2010", true, 1, 2},
                     {"4/30/2010", true, 2, 5},
                     {"4/30/2010", true, 1, 3},
                     {"5/1/2010", true, 1, 4}};
    for (const auto &shipped : shipments) {
        const int shipment = addShipment(sold, shipped.date, shipped.invoiced);
        ship(shipment, sold, shipped.line, shipped.qty);
        addInvoice("Acme Supply", shipped.date, QString::number(shipment), 10);
    }
    const int packed = orderOf("A-100", 7);
    ship(addShipment(packed, "4/1/2010", false), packed, 1, 6);
    orderOf("A-200", 9);
    const QString eastPump = "East|A-100|3|2||20|", eastSmall = "East|A-200|3|2||4|";
    const QString mainPump = "Main|A-100|3|2|5|20|6", mainSmall = "Main|A-200|3|2|5|-5|9";
    Reports::ReportProductionByWhsePart(3, 2, false);
    EXPECT_EQ(rows(), QStringList({eastPump, eastSmall, mainPump, mainSmall}));
    Reports::ReportProductionByPartWhse(3, 2, false);
    EXPECT_EQ(rows(), QStringList({eastPump, mainPump, eastSmall, mainSmall}));
}

TEST_F(Stock, ProductionCountsWhatWasSoldInFullMonthsAndNoLeapDay)
{
    const int sold = orderOf("A-100", 40);
    const char *dates[] = {"1/31/2012", "2/1/2012", "2/28/2012", "2/29/2012", "3/1/2012"};
    for (int i = 0; i < 5; ++i) {
        const int shipment = addShipment(sold, dates[i], true);
        ship(shipment, sold, 1, 1 << i);
        addInvoice("Acme Supply", dates[i], QString::number(shipment), 10);
    }
    for (const auto &[today, months, quantity] : {std::tuple{"2012-02-29", 0, ""},
                                                  {"2012-02-29", 1, "1"},
                                                  {"2012-03-31", 0, ""},
                                                  {"2012-03-31", 1, "6"},
                                                  {"2012-04-30", 3, "31"}}) {
        const TestClock clock(QString(today) + " 08:00:00");
        Reports::ReportProductionByWhsePart(months, 2, false);
        EXPECT_EQ(rows(), QStringList(QString("Main|A-100|%1|2|%2|-31|").arg(months).arg(quantity))) << today;
    }
}

TEST_F(Stock, CommittedRepeatsWhatTwoUninvoicedShipmentsShipped)
{
    const TestClock clock("2010-05-15 08:00:00");
    const int twice = orderOf("A-100", 10);
    ship(addShipment(twice, "4/1/2010", false), twice, 1, 3);
    ship(addShipment(twice, "4/2/2010", false), twice, 1, 4);
    addOrder("Acme Supply", "Main", "Void");
    addLine(2, 1, "A-200", 9, 1);
    Reports::ReportProductionByPartWhse(3, 2, false);
    EXPECT_EQ(rows(), QStringList({"Main|A-100|3|2|||14", "Main|A-200|3|2|||9"}));
    EXPECT_EQ(textOf("txtMonths") + textOf("txtReq"), "32");
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
    const int order = orderOf("A-100", 10);
    addLine(order, 2, "B-100", 5, 1);
    ship(addShipment(order, "4/1/2010", false), order, 1, 3);
    ship(addShipment(order, "4/2/2010", false), order, 1, 4);
    const int empty = addOrder("Baker Tools", "East");
    addOrder("Acme Supply", "Main", "Closed");
    Reports::ReportOpenOrders();
    QStringList lines;
    for (const QString &row : rows())
        lines += row.section('|', 0, 0) + ":" + row.section('|', 15);
    EXPECT_EQ(lines, QStringList({QString("%1:1|A-100|Pumps||10|7").arg(order),
                                  QString("%1:2|B-100|Valves||5|").arg(order), QString("%1:|||||").arg(empty)}));
    EXPECT_EQ(database.rows("SELECT * FROM tmpShipped"), QStringList(QString("%1|1|7").arg(order)));
}

TEST_F(Stock, ListingsStandInBlocksByStatus)
{
    database.execute("UPDATE Part SET Status = 'InActive' WHERE PartNo = 'A-100'");
    database.execute("UPDATE Customer SET Status = 'InActive' WHERE Customer = 'Acme Supply'");
    const struct
    {
        void (*routine)();
        QStringList names;
    } listings[] = {
        {Reports::ReportPartListing, {"A-200", "B-100", "A-100", "Z-900"}},
        {Reports::ReportCustomerListing, {"Baker Tools", "Bolt & Sons", "Acme Supply", "Closed Works"}},
        {Reports::ReportWarehouseListing, {"East", "Main", "Old Hall"}},
    };
    for (const auto &listing : listings) {
        listing.routine();
        QStringList names;
        for (const QString &row : rows())
            names += row.section('|', 0, 0);
        EXPECT_EQ(names, listing.names);
    }
}

TEST_F(Stock, ControlReportsProveOneDocument)
{
    const int adjustment = addAdjustment("Main", "2/1/2010", "A-100", 5);
    Reports::ReportAdjustmentControl(QString::number(adjustment));
    EXPECT_EQ(rows(), QStringList(QString("%1|2/1/2010|2/1/2010|Main|A-100|5|Pumps").arg(adjustment)));
    const int bare = insert("AdjustmentHeader", {{"Warehouse", "East"}, {"Date", "2/1/2010"}});
    Reports::ReportAdjustmentControl(QString::number(bare));
    EXPECT_EQ(rows(), QStringList(QString("%1|2/1/2010||East|||").arg(bare)));

    const int moved = transfer("Main", "East", "2/3/2010", "A-100", 5);
    Reports::ReportTransferControl(QString::number(moved));
    EXPECT_EQ(rows(),
              QStringList(QString("%1|%2|2/3/2010|2/3/2010|East|A-100|5|Pumps|||Albany||").arg(moved).arg(bare + 1)));
    EXPECT_EQ(textOf("txtFromWarehouse"), "Main");
    EXPECT_EQ(errorNumberOf([] { Reports::ReportAdjustmentControl(""); }), 3075);
    EXPECT_EQ(errorNumberOf([] { Reports::ReportTransferControl(""); }), 3075);
    EXPECT_EQ(errorNumberOf([] { Reports::ReportTransferControl("99"); }), 3021);
}

} // namespace
