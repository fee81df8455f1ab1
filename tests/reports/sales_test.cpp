#include "reports/invoicedates.h"
#include "reports/sales.h"
#include "tests/reports/reporttest.h"
#include <QDir>
#include <QFile>

namespace {

class Sales : public ReportTest
{
protected:
    /// A shipped line on an order of its own; returns the shipment.
    int sell(const QString &customer, const QString &part, int qty, double price, const QString &warehouse = "Main",
             const QString &date = "1/5/2004")
    {
        const int order = addOrder(customer, warehouse);
        addLine(order, 1, part, qty, price);
        const int shipment = addShipment(order, date, true);
        ship(shipment, order, 1, qty);
        return shipment;
    }

    QString invoiceDateOf(int shipment)
    {
        return database.value(QString("SELECT InvoiceDate FROM Shipment WHERE ID = %1").arg(shipment)).joined();
    }
};

TEST_F(Sales, InvoiceDatesAreWrittenAfreshFromTheShipmentLists)
{
    const int shipments[] = {sell("Acme Supply", "A-100", 1, 1), sell("Acme Supply", "A-100", 1, 1),
                             sell("Acme Supply", "A-100", 1, 1)};
    const QString first = QString::number(shipments[0]), second = QString::number(shipments[1]);
    database.execute(QString("UPDATE Shipment SET InvoiceDate = #1/1/1999# WHERE ID = %1").arg(shipments[2]));
    addInvoice("Acme Supply", "5/5/2004", second, 0);
    addInvoice("Acme Supply", "6/6/2004", first + ", " + second, 0); // sorts before the one above
    addInvoice("Acme Supply", "7/7/2004", "0", 0);                   // imported
    database.execute("UPDATE Invoice SET InvoiceDate = NULL WHERE Shipment = '0'");
    Reports::RefillShipmentInvoiceDates();
    EXPECT_EQ(invoiceDateOf(shipments[0]), "6/6/2004");
    EXPECT_EQ(invoiceDateOf(shipments[1]), "5/5/2004");
    EXPECT_EQ(invoiceDateOf(shipments[2]), "");
}

TEST_F(Sales, AnInvoiceWithAnEmptyListOrNoDateEndsTheRefill)
{
    const int invoice = addInvoice("Acme Supply", "5/5/2004", "", 0);
    EXPECT_EQ(errorNumberOf(Reports::RefillShipmentInvoiceDates), 3075);
    database.execute(QString("UPDATE Invoice SET Shipment = '1', InvoiceDate = NULL WHERE ID = %1").arg(invoice));
    EXPECT_EQ(errorNumberOf(Reports::RefillShipmentInvoiceDates), 3075);
}

TEST_F(Sales, ALeapDayMovesInTheLastYearOnly)
{
    const struct
    {
        const char *date;
        int qty;
    } sales[] = {{"2/27/2003", 1}, {"2/28/2003", 2}, {"2/29/2004", 4}, {"3/31/2003", 8}, {"4/1/2003", 16}};
    for (const auto &sale : sales)
        addInvoice("Baker Tools", sale.date, QString::number(sell("Baker Tools", "A-100", sale.qty, 10)), 0);
    Reports::ReportSalesByCustomer("2/29/2004", "3/31/2004");
    EXPECT_EQ(rows(), QStringList("Baker Tools|40|24|100|60|40|24|110|66"));
    EXPECT_EQ(textOf("txtBeginDate"), "2/29/2004");
    EXPECT_EQ(textOf("txtEndDate"), "3/31/2004");
}

TEST_F(Sales, OverTheTurnOfAYearTheLastYearPeriodIsEmpty)
{
    addInvoice("Baker Tools", "12/20/2009", QString::number(sell("Baker Tools", "A-100", 1, 10)), 0);
    addInvoice("Baker Tools", "1/5/2010", QString::number(sell("Baker Tools", "A-100", 2, 10)), 0);
    addInvoice("Baker Tools", "12/20/2010", QString::number(sell("Baker Tools", "A-100", 4, 10)), 0);
    addInvoice("Baker Tools", "1/5/2011", QString::number(sell("Baker Tools", "A-100", 8, 10)), 0);
    Reports::ReportSalesByCustomer("12/15/2010", "1/15/2011");
    EXPECT_EQ(rows(), QStringList("Baker Tools|120|72|||80|48|20|12"));
}

TEST_F(Sales, ABeginAfterTheEndSellsNothing)
{
    addInvoice("Baker Tools", "5/5/2004", QString::number(sell("Baker Tools", "A-100", 1, 10)), 0);
    Reports::ReportSalesByPart("6/1/2004", "5/1/2004");
    EXPECT_EQ(rows(), QStringList());
    Reports::ReportSalesByCustomer("6/1/2004", "5/5/2004");
    EXPECT_EQ(rows(), QStringList("Baker Tools|||||10|6||")) << "the year to date does not look at the begin";
}

TEST_F(Sales, DetailsAreSortedByPartShippingDateAndCustomer)
{
    const struct
    {
        const char *part, *customer, *warehouse, *shipped, *invoiced;
        int qty;
        const char *row;
    } sales[] = {
        {"A-200", "Acme Supply", "Main", "1/1/2004", "5/1/2004", 1, "Main|A-200|Acme Supply|1|1/1/2004|1|10|12"},
        {"A-100", "Bolt & Sons", "East", "1/9/2004", "5/2/2004", 2, "East|A-100|Bolt & Sons|2|1/9/2004|2|20|12"},
        {"A-100", "Acme Supply", "Main", "1/10/2004", "5/31/2004", 3, "Main|A-100|Acme Supply|3|1/10/2004|3|30|18"},
        {"A-100", "Acme Supply", "East", "1/9/2004", "5/3/2004", 4, "East|A-100|Acme Supply|4|1/9/2004|4|40|24"},
        {"A-100", "Early", "Main", "1/9/2004", "4/30/2004", 5, ""},
        {"A-100", "Late", "Main", "1/9/2004", "6/1/2004", 6, ""},
    };
    for (const auto &sale : sales) {
        const int shipment = sell(sale.customer, sale.part, sale.qty, 10, sale.warehouse, sale.shipped);
        addInvoice(sale.customer, sale.invoiced, QString::number(shipment), 0);
    }
    const QStringList expected{sales[3].row, sales[1].row, sales[2].row, sales[0].row};
    for (const auto routine : {Reports::ReportSalesByWhsePart, Reports::ReportSalesByWhsePartExport}) {
        routine("5/1/2004", "5/31/2004");
        EXPECT_EQ(rows(), expected);
    }
    Reports::ReportSalesByPart("5/1/2004", "5/31/2004");
    QStringList withoutWarehouse;
    for (const QString &row : expected)
        withoutWarehouse += row.section('|', 1);
    EXPECT_EQ(rows(), withoutWarehouse);
}

TEST_F(Sales, AComparisonHasARowPerKey)
{
    const struct
    {
        const char *customer, *part;
        int qty;
    } sales[] = {{"Bolt & Sons", "B-100", 1},
                 {"Acme Supply", "B-100", 2},
                 {"Bolt & Sons", "A-100", 4},
                 {"Acme Supply", "A-200", 8},
                 {"Acme Supply", "A-100", 16}};
    for (const auto &sale : sales)
        addInvoice(sale.customer, "5/5/2004", QString::number(sell(sale.customer, sale.part, sale.qty, 10)), 0);
    Reports::ReportSalesByCategoryCustomer("5/1/2004", "5/31/2004");
    EXPECT_EQ(rows(), QStringList({"Pumps|Acme Supply|240|192|||240|192||", "Pumps|Bolt & Sons|40|24|||40|24||",
                                   "Valves|Acme Supply|20|5|||20|5||", "Valves|Bolt & Sons|10|2.5|||10|2.5||"}));
    Reports::ReportSalesByTerritoryCustomer("5/1/2004", "5/31/2004");
    EXPECT_EQ(rows(), QStringList({"East|Bolt & Sons|50|26.5|||50|26.5||", "North|Acme Supply|260|197|||260|197||"}));
    Reports::ReportSalesByCustomer("5/1/2004", "5/31/2004");
    EXPECT_EQ(rows(), QStringList({"Acme Supply|260|197|||260|197||", "Bolt & Sons|50|26.5|||50|26.5||"}));
}

TEST_F(Sales, UninvoicedAndUnknownPartsAreNotInTheDetails)
{
    sell("Acme Supply", "A-100", 1, 10);
    addInvoice("Acme Supply", "5/5/2004", QString::number(sell("Acme Supply", "no part", 1, 10)), 0);
    const int sold = sell("Bolt & Sons", "b-100", 3, 4); // keys match in any case
    database.execute("UPDATE Orders SET Status = 'Void'");
    addInvoice("Bolt & Sons", "5/5/2004", QString::number(sold), 0);
    Reports::ReportSalesByPart("5/5/2004", "5/5/2004");
    EXPECT_EQ(rows(), QStringList(QString("b-100|Bolt & Sons|%1|1/5/2004|3|12|7.5").arg(sold)));
}

TEST_F(Sales, ACustomerWithoutATerritoryStandsInFront)
{
    for (const char *customer : {"Acme Supply", "Closed Works"})
        addInvoice(customer, "5/5/2004", QString::number(sell(customer, "A-100", 1, 10)), 0);
    Reports::ReportSalesByTerritoryCustomer("5/1/2004", "5/31/2004");
    EXPECT_EQ(rows(), QStringList({"|Closed Works|10|6|||10|6||", "North|Acme Supply|10|6|||10|6||"}));
}

TEST_F(Sales, TheTerritoryReportRewritesItsDefinitionFileWhereThereIsAFolder)
{
    const ProgramFolder program;
    QDir folder(program.filePath("ttx"));
    folder.removeRecursively();
    Reports::ReportSalesByTerritoryCustomer("5/1/2004", "5/31/2004");
    EXPECT_FALSE(folder.exists());

    QDir().mkpath(folder.path());
    QFile file(folder.filePath("SalesByCustomerAndTerritory.ttx "));
    for (int run = 0; run < 2; ++run) {
        Reports::ReportSalesByTerritoryCustomer("5/1/2004", "5/31/2004");
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QStringList lines = QString::fromLatin1(file.readAll()).split("\r\n");
        file.close();
        EXPECT_EQ(lines.mid(1, 3),
                  QStringList({"Territory\tString\t50\tsample", "Customer\tString\t50\tsample", "CPS\tNumber\t1.00"}));
        EXPECT_EQ(lines.size(), 12);
    }
    folder.removeRecursively();
}

} // namespace
