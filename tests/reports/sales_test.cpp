#include "reports/invoicedates.h"
#include "reports/sales.h"
#include "tests/reports/reporttest.h"
#include <QDir>

namespace {

class Sales : public ReportTest
{
protected:
    /// Sells a line of an order of its own at 10 each, shipped and, with a date, invoiced.
    void sell(const char *customer, const char *part, double qty, const char *invoiced, Date shipped = Date(2004, 1, 5),
              const char *warehouse = "Main")
    {
        // Whatever becomes of the order, it was sold.
        const QString order = addOrder("N", customer, {{part, qty, 10}}, "Void", warehouse);
        const QString shipment = addShipment(order, {int(qty)}, shipped);
        if (*invoiced)
            addInvoice(customer, invoiced, shipment, 0);
    }
};

TEST_F(Sales, InvoiceDatesAreWrittenAfreshFromTheShipmentLists)
{
    for (int i = 0; i < 3; ++i)
        sell("Acme Rail", "AX-100", 1, "");
    database.execute("UPDATE Shipment SET InvoiceDate = #1/1/1999# WHERE ID = 3");
    addInvoice("Acme Rail", "5/5/2004", "2", 0);
    addInvoice("Acme Rail", "6/6/2004", "1, 2", 0); // sorts before the one above
    addInvoice("Acme Rail", "7/7/2004", "0", 0);    // imported
    database.execute("UPDATE Invoice SET InvoiceDate = NULL WHERE Shipment = '0'");
    Reports::RefillShipmentInvoiceDates();
    EXPECT_EQ(database.rows("SELECT ID,InvoiceDate FROM Shipment ORDER BY ID"),
              QStringList({"1|6/6/2004", "2|5/5/2004", "3|"}));

    const QString invoice = addInvoice("Acme Rail", "5/5/2004", "", 0);
    EXPECT_EQ(errorNumberOf(Reports::RefillShipmentInvoiceDates), 3075) << "an empty list ends it";
    database.execute("UPDATE Invoice SET Shipment = '1', InvoiceDate = NULL WHERE ID = " + invoice);
    EXPECT_EQ(errorNumberOf(Reports::RefillShipmentInvoiceDates), 3075) << "so does a missing date";
}

TEST_F(Sales, AreListedAndComparedByInvoiceDate)
{
    using namespace Reports;
    sell("Birch Mill", "AX-100", 1, "2/27/2003");
    sell("Birch Mill", "AX-100", 2, "2/28/2003");
    sell("Birch Mill", "AX-100", 4, "2/29/2004");
    sell("Birch Mill", "AX-100", 8, "3/31/2003");
    sell("Birch Mill", "AX-100", 16, "4/1/2003");

    sell("Acme Rail", "BR-200", 1, "5/1/2006", Date(2006, 1, 1));
    sell("Birch Mill", "AX-100", 2, "5/2/2006", Date(2006, 1, 9), "North");
    sell("Acme Rail", "AX-100", 3, "5/31/2006", Date(2006, 1, 10));
    sell("Acme Rail", "ax-100", 4, "5/3/2006", Date(2006, 1, 9), "North"); // keys match in any case
    sell("Early", "AX-100", 5, "4/30/2006");
    sell("Late", "AX-100", 6, "6/1/2006");
    sell("Acme Rail", "no part", 7, "5/5/2006");
    sell("Acme Rail", "AX-100", 8, "");

    sell("Cobb Yard", "BR-200", 1, "5/5/2008");
    sell("Acme Rail", "BR-200", 2, "5/5/2008");
    sell("Cobb Yard", "AX-100", 4, "5/5/2008");
    sell("Acme Rail", "CX-300", 8, "5/5/2008");
    sell("Birch Mill", "AX-100", 16, "5/5/2008");

    sell("Birch Mill", "AX-100", 1, "12/20/2009");
    sell("Birch Mill", "AX-100", 2, "1/5/2010");
    sell("Birch Mill", "AX-100", 4, "12/20/2010");
    sell("Birch Mill", "AX-100", 8, "1/5/2011");

    const QStringList details{"North|ax-100|Acme Rail|9|1/9/2006|4|40|10", "North|AX-100|Birch Mill|7|1/9/2006|2|20|5",
                              "Main|AX-100|Acme Rail|8|1/10/2006|3|30|7.5",
                              "Main|BR-200|Acme Rail|6|1/1/2006|1|10|1.25"};
    QStringList withoutWarehouse;
    for (const QString &row : details)
        withoutWarehouse += row.section('|', 1);
    const struct
    {
        const char *title;
        void (*routine)(const QString &, const QString &);
        const char *begin, *end;
        QStringList rows;
    } cases[] = {
        {"a leap day moves in the last year only",
         ReportSalesByCustomer,
         "2/29/2004",
         "3/31/2004",
         {"Birch Mill|40|10|100|25|40|10|110|27.5"}},
        {"over the turn of a year the last year's period is empty",
         ReportSalesByCustomer,
         "12/15/2010",
         "1/15/2011",
         {"Birch Mill|120|30|||80|20|20|5"}},
        {"a period that ends before it begins sells nothing", ReportSalesByPart, "5/31/2006", "5/1/2006", {}},
        {"but in the year to date",
         ReportSalesByCustomer,
         "6/1/2006",
         "5/5/2006",
         {"Acme Rail|||||120|11.25||", "Birch Mill|||||20|5||", "Early|||||50|12.5||"}},
        {"details by part, shipping date and customer", ReportSalesByWhsePart, "5/1/2006", "5/31/2006", details},
        {"and for spreadsheets", ReportSalesByWhsePartExport, "5/1/2006", "5/31/2006", details},
        {"and without the warehouse", ReportSalesByPart, "5/1/2006", "5/31/2006", withoutWarehouse},
        {"by category",
         ReportSalesByCategoryCustomer,
         "5/1/2008",
         "5/31/2008",
         {"Axles|Birch Mill|160|40|||160|40||", "Axles|Cobb Yard|40|10|||40|10||",
          "Brackets|Acme Rail|100|2.9|||100|2.9||", "Brackets|Cobb Yard|10|1.25|||10|1.25||"}},
        {"by territory, customers without one in front",
         ReportSalesByTerritoryCustomer,
         "5/1/2008",
         "5/31/2008",
         {"|Cobb Yard|50|11.25|||50|11.25||", "East|Birch Mill|160|40|||160|40||",
          "North|Acme Rail|100|2.9|||100|2.9||"}},
        {"by customer",
         ReportSalesByCustomer,
         "5/1/2008",
         "5/31/2008",
         {"Acme Rail|100|2.9|||100|2.9||", "Birch Mill|160|40|||160|40||", "Cobb Yard|50|11.25|||50|11.25||"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.title);
        c.routine(c.begin, c.end);
        EXPECT_EQ(rows(), c.rows);
        EXPECT_EQ(shown("txtBeginDate txtEndDate"), QString(c.begin) + "|" + c.end);
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
