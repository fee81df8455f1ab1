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
    int sell(const QString &customer, const QString &part, int qty, double price)
    {
        const int order = addOrder(customer, "Main");
        addLine(order, 1, part, qty, price);
        const int shipment = addShipment(order, "1/5/2004", true);
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
    addInvoice("Acme Supply", "7/7/2004", "0", 0);
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
