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
    addAdjustment("Main", "1/1/2010", "A-100", 10);
    addAdjustment("Main", "1/5/2010", "A-100", -10);
    const int counted = addAdjustment("Main", "2/1/2010", "A-100", 50);
    const int moved = transfer("Main", "East", "2/1/2010", "A-100", 20);
    const int order = orderOf("A-100", 8);
    const int shipment = addShipment(order, "2/1/2010", false);
    ship(shipment, order, 1, 8);
    addAdjustment("Main", "3/1/2010", "A-100", 99);
    Reports::ReportAvailableInventory("2/1/2010", "2/28/2010", true, "***All Categories***");
    EXPECT_EQ(rows(), QStringList({QString("East|A-100|2/1/2010|20|6|Transfer ID - %1").arg(moved),
                                   "Main|A-100|2/1/2010|0|6|*Beginning Balance",
                                   QString("Main|A-100|2/1/2010|50|6|Adjustment ID - %1").arg(counted),
                                   QString("Main|A-100|2/1/2010|-8|6|Shipment ID - %1").arg(shipment),
                                   QString("Main|A-100|2/1/2010|-20|6|Transfer ID - %1").arg(moved)}));
    EXPECT_TRUE(isSuppressed("secTotals"));
    EXPECT_FALSE(isSuppressed("secDetail"));

    Reports::ReportAvailableInventoryByPart("2/2/2010", "2/1/2010", false, "Pumps");
    EXPECT_EQ(rows(), QStringList({"East|A-100|2/2/2010|20|6|*Beginning Balance",
                                   "Main|A-100|2/2/2010|22|6|*Beginning Balance"}))
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
    Reports::ReportInventorySales("2/1/2004", "2/29/2004");
    EXPECT_EQ(rows(), QStringList({"A-100|6|40|24|6|-31", "unknown||1|||"}));
    EXPECT_EQ(textOf("txtBeginDate") + " " + textOf("txtEndDate"), "2/1/2004 2/29/2004");
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

TEST_F(Stock, TheWindowLeavesOutTheLeapDayAtItsEnd)
{
    const TestClock clock("2012-03-31 08:00:00");
    for (const char *date : {"2/1/2012", "2/28/2012", "2/29/2012"}) {
        const int order = orderOf("A-100", 1);
        const int shipment = addShipment(order, date, true);
        ship(shipment, order, 1, 1);
        addInvoice("Acme Supply", date, QString::number(shipment), 10);
    }
    Reports::ReportProductionByWhsePart(1, 1, true);
    EXPECT_EQ(rows(), QStringList("Main|A-100|1|1|2|-3|"));
    Reports::ReportProductionByWhsePart(0, 1, false);
    EXPECT_EQ(rows(), QStringList("Main|A-100|0|1||-3|"));
}

TEST_F(Stock, SuppressionReplacesTheConditionsOfRowAndPart)
{
    const auto formulas = [this] {
        QStringList texts;
        for (int index : {4, 6})
            texts += report().layout().formulas[size_t(index - 1)].text;
        return texts;
    };
    Reports::ReportProductionByPartWhse(3, 2, false);
    const QStringList plain = formulas();
    Reports::ReportProductionByPartWhse(3, 2, true);
    EXPECT_EQ(formulas(), QStringList({"if ({@Req} = 0) then true",
                                       "if (Sum ({@Req}, {ProductionByWhsePartReport_ttx.PartNo}) = 0) then true"}));
    Reports::ReportProductionByWhsePart(3, 2, true);
    EXPECT_EQ(formulas(), QStringList({"if ({@Req} = 0) then true", plain[1]}));
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
