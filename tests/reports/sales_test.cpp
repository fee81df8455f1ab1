#include "reports/invoicedates.h"
#include "reports/sales.h"
#include "tests/reports/reporttest.h"
#include <QDir>
#include <QFile>

namespace {

/// A line of an order of its own at 10 each, shipped and invoiced; without a date it is not invoiced.
struct Sale
{
    const char *customer, *part;
    int qty;
    const char *invoiced, *shipped = "1/5/2004", *warehouse = "Main";
};

class Sales : public ReportTest
{
protected:
    /// Returns the shipment's ID.
    int sell(const Sale &sale)
    {
        const int order = addOrder(sale.customer, sale.warehouse);
        addLine(order, 1, sale.part, sale.qty, 10);
        const int shipment = addShipment(order, sale.shipped, true);
        ship(shipment, order, 1, sale.qty);
        if (*sale.invoiced)
            addInvoice(sale.customer, sale.invoiced, QString::number(shipment), 0);
        return shipment;
    }
};

TEST_F(Sales, InvoiceDatesAreWrittenAfreshFromTheShipmentLists)
{
    for (int i = 0; i < 3; ++i)
        sell({"Acme Supply", "A-100", 1, ""});
    database.execute("UPDATE Shipment SET InvoiceDate = #1/1/1999# WHERE ID = 3");
    addInvoice("Acme Supply", "5/5/2004", "2", 0);
    addInvoice("Acme Supply", "6/6/2004", "1, 2", 0); // sorts before the one above
    addInvoice("Acme Supply", "7/7/2004", "0", 0);    // imported
    database.execute("UPDATE Invoice SET InvoiceDate = NULL WHERE Shipment = '0'");
    Reports::RefillShipmentInvoiceDates();
    EXPECT_EQ(database.rows("SELECT ID,InvoiceDate FROM Shipment ORDER BY ID"),
              QStringList({"1|6/6/2004", "2|5/5/2004", "3|"}));

    const int invoice = addInvoice("Acme Supply", "5/5/2004", "", 0);
    EXPECT_EQ(errorNumberOf(Reports::RefillShipmentInvoiceDates), 3075) << "an empty list ends it";
    database.execute(QString("UPDATE Invoice SET Shipment = '1', InvoiceDate = NULL WHERE ID = %1").arg(invoice));
    EXPECT_EQ(errorNumberOf(Reports::RefillShipmentInvoiceDates), 3075) << "so does a missing date";
}

TEST_F(Sales, AreListedAndComparedByInvoiceDate)
{
    using namespace Reports;
    const std::vector<Sale> spring{{"Baker Tools", "A-100", 1, "2/27/2003"},
                                   {"Baker Tools", "A-100", 2, "2/28/2003"},
                                   {"Baker Tools", "A-100", 4, "2/29/2004"},
                                   {"Baker Tools", "A-100", 8, "3/31/2003"},
                                   {"Baker Tools", "A-100", 16, "4/1/2003"}};
    const std::vector<Sale> winters{{"Baker Tools", "A-100", 1, "12/20/2009"},
                                    {"Baker Tools", "A-100", 2, "1/5/2010"},
                                    {"Baker Tools", "A-100", 4, "12/20/2010"},
                                    {"Baker Tools", "A-100", 8, "1/5/2011"}};
    const std::vector<Sale> may{{"Acme Supply", "A-200", 1, "5/1/2004", "1/1/2004"},
                                {"Bolt & Sons", "A-100", 2, "5/2/2004", "1/9/2004", "East"},
                                {"Acme Supply", "A-100", 3, "5/31/2004", "1/10/2004"},
                                {"Acme Supply", "a-100", 4, "5/3/2004", "1/9/2004", "East"}, // keys match in any case
                                {"Early", "A-100", 5, "4/30/2004"},
                                {"Late", "A-100", 6, "6/1/2004"},
                                {"Acme Supply", "no part", 7, "5/5/2004"},
                                {"Acme Supply", "A-100", 8, ""}};
    const QStringList details{"East|a-100|Acme Supply|4|1/9/2004|4|40|24", "East|A-100|Bolt & Sons|2|1/9/2004|2|20|12",
                              "Main|A-100|Acme Supply|3|1/10/2004|3|30|18",
                              "Main|A-200|Acme Supply|1|1/1/2004|1|10|12"};
    QStringList withoutWarehouse;
    for (const QString &row : details)
        withoutWarehouse += row.section('|', 1);
    const std::vector<Sale> kinds{{"Bolt & Sons", "B-100", 1, "5/5/2004"},
                                  {"Acme Supply", "B-100", 2, "5/5/2004"},
                                  {"Bolt & Sons", "A-100", 4, "5/5/2004"},
                                  {"Acme Supply", "A-200", 8, "5/5/2004"},
                                  {"Closed Works", "A-100", 16, "5/5/2004"}};
    const struct
    {
        const char *title;
        std::vector<Sale> sales;
        void (*routine)(const QString &, const QString &);
        const char *begin, *end;
        QStringList rows;
    } cases[] = {
        {"a leap day moves in the last year only", spring, ReportSalesByCustomer, "2/29/2004", "3/31/2004",
         QStringList("Baker Tools|40|24|100|60|40|24|110|66")},
        {"over the turn of a year the last year's period is empty", winters, ReportSalesByCustomer, "12/15/2010",
         "1/15/2011", QStringList("Baker Tools|120|72|||80|48|20|12")},
        {"a period that ends before it begins sells nothing", may, ReportSalesByPart, "5/31/2004", "5/1/2004", {}},
        {"but in the year to date",
         {may[0]},
         ReportSalesByCustomer,
         "6/1/2004",
         "5/5/2004",
         QStringList("Acme Supply|||||10|12||")},
        {"details by part, shipping date and customer", may, ReportSalesByWhsePart, "5/1/2004", "5/31/2004", details},
        {"and for spreadsheets", may, ReportSalesByWhsePartExport, "5/1/2004", "5/31/2004", details},
        {"and without the warehouse", may, ReportSalesByPart, "5/1/2004", "5/31/2004", withoutWarehouse},
        {"by category",
         kinds,
         ReportSalesByCategoryCustomer,
         "5/1/2004",
         "5/31/2004",
         {"Pumps|Acme Supply|80|96|||80|96||", "Pumps|Bolt & Sons|40|24|||40|24||",
          "Pumps|Closed Works|160|96|||160|96||", "Valves|Acme Supply|20|5|||20|5||",
          "Valves|Bolt & Sons|10|2.5|||10|2.5||"}},
        {"by territory, customers without one in front",
         kinds,
         ReportSalesByTerritoryCustomer,
         "5/1/2004",
         "5/31/2004",
         {"|Closed Works|160|96|||160|96||", "East|Bolt & Sons|50|26.5|||50|26.5||",
          "North|Acme Supply|100|101|||100|101||"}},
        {"by customer",
         kinds,
         ReportSalesByCustomer,
         "5/1/2004",
         "5/31/2004",
         {"Acme Supply|100|101|||100|101||", "Bolt & Sons|50|26.5|||50|26.5||", "Closed Works|160|96|||160|96||"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.title);
        TestDatabase company;
        for (const Sale &sale : c.sales)
            sell(sale);
        company.execute("UPDATE Orders SET Status = 'Void'"); // which does not matter
        c.routine(c.begin, c.end);
        EXPECT_EQ(rows(), c.rows);
        EXPECT_EQ(textOf("txtBeginDate") + " " + textOf("txtEndDate"), QString(c.begin) + " " + c.end);
    }
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
