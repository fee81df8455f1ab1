#include "reports/receivables.h"
#include "tests/reports/reporttest.h"
#include "toolkit/forms/mainmod.h"

namespace {

/// Acme owes an old invoice, Baker a young one, Bolt has paid its old one but for a tenth of a cent.
class Receivables : public ReportTest
{
protected:
    Receivables()
    {
        database.execute("UPDATE Customer SET PrintStatements = TRUE WHERE Customer = 'Acme Supply'");
        old = addInvoice("Acme Supply", "1/10/2010", "0", 100);
        addInvoice("Acme Supply", "3/1/2010", "0", 50);
        young = addInvoice("Baker Tools", "3/20/2010", "0", 70);
        paid = addInvoice("Bolt & Sons", "1/5/2010", "0", 40.001);
        addPayment(old, "2/1/2010", 30, 5);
        addPayment(old, "4/1/2010", 65);
        addPayment(paid, "3/31/2010", 30, 10);
        database.execute("UPDATE Invoice SET DueDate = #5/5/2010#");
    }

    /// Customer, invoice date, adjusted and received of each row.
    QStringList accounts() const
    {
        QStringList result;
        for (const QString &row : rows())
            result += row.section('|', 0, 0) + " " + row.section('|', 4, 4) + " " + row.section('|', 9, 10);
        return result;
    }

    int old, young, paid;
};

TEST_F(Receivables, TheListingHasEveryInvoiceAndOnlyThePaymentsUpToTheDay)
{
    database.execute("UPDATE Customer SET Phone = '330-1', Fax = '330-2' WHERE Customer = 'Acme Supply'");
    Reports::ShowOpenInvoicesReport("3/31/2010", false, "");
    EXPECT_EQ(accounts(), QStringList({"Acme Supply 1/10/2010 5|30", "Acme Supply 3/1/2010 0|0",
                                       "Baker Tools 3/20/2010 0|0", "Bolt & Sons 1/5/2010 10|30"}));
    EXPECT_EQ(rows()[0], "Acme Supply|330-1|330-2|1|1/10/2010|5/5/2010|Net 30|0|100|5|30");
    EXPECT_EQ(database.count("tmpOpenInvoices"), 4);
    EXPECT_EQ(textOf("txtAsOfDate"), "3/31/2010");
    EXPECT_TRUE(isSuppressed("txtOver") && isSuppressed("txtDays"));
    EXPECT_FALSE(isSuppressed("Details"));

    Reports::ShowOpenInvoicesReport("1/4/2010", true, "");
    EXPECT_EQ(rows(), QStringList());
    EXPECT_TRUE(isSuppressed("Details") && isSuppressed("InvoiceHeads") && isSuppressed("CustomerHeader"));
}

TEST_F(Receivables, DaysGivenKeepCustomersWithAnOldOpenInvoiceWhole)
{
    Reports::ShowOpenInvoicesReport("3/31/2010", false, "30");
    EXPECT_EQ(accounts(), QStringList({"Acme Supply 1/10/2010 5|30", "Acme Supply 3/1/2010 0|0"}));
    EXPECT_EQ(textOf("txtOverDays"), "30");
    EXPECT_FALSE(isSuppressed("txtOver") || isSuppressed("txtDays"));

    // The limit is the day itself, not before it: an invoice of that day is not over it.
    Reports::ShowOpenInvoicesReport("3/31/2010", false, "11");
    EXPECT_EQ(accounts().filter("Baker"), QStringList());
    Reports::ShowOpenInvoicesReport("3/31/2010", false, "10");
    EXPECT_EQ(accounts().filter("Baker").size(), 1);
    Reports::ShowOpenInvoicesReport("4/2/2010", false, "80");
    EXPECT_EQ(accounts(), QStringList()) << "paid by now";
}

TEST_F(Receivables, ABalanceOfATenthOfACentIsNone)
{
    database.execute(QString("UPDATE Invoice SET Total = 40.0012 WHERE ID = %1").arg(paid));
    Reports::ShowOpenInvoicesReport("3/31/2010", false, "30");
    EXPECT_EQ(accounts().filter("Bolt").size(), 1);
    database.execute(QString("UPDATE Invoice SET Total = 40.0009 WHERE ID = %1").arg(paid));
    Reports::ShowOpenInvoicesReport("3/31/2010", false, "30");
    EXPECT_EQ(accounts().filter("Bolt").size(), 0);
}

TEST_F(Receivables, DaysGivenFailWithoutInvoicesAndOnApostrophes)
{
    EXPECT_EQ(errorNumberOf([] { Reports::ShowOpenInvoicesReport("1/1/2009", false, "30"); }), 3021);
    addInvoice("O'Brien", "3/30/2010", "0", 10);
    EXPECT_EQ(errorNumberOf([] { Reports::ShowOpenInvoicesReport("3/31/2010", false, "30"); }), 3075);
}

TEST_F(Receivables, StatementsAreForThoseWhoGetThem)
{
    Reports::ShowStatementReport("3/31/2010");
    const QString address = "Acme Supply|1 First St||Akron|OH|44301|";
    EXPECT_EQ(rows(), QStringList({address + "1|1/10/2010|5/5/2010|Net 30|0|100|5|30",
                                   address + "2|3/1/2010|5/5/2010|Net 30|0|50|0|0"}));
    EXPECT_EQ(textOf("txtAsOfDate"), "3/31/2010");
}

TEST_F(Receivables, TheInvoiceRegisterSumsTheShipmentsOfEach)
{
    const int order = addOrder("Acme Supply", "Main");
    const QString first = QString::number(addShipment(order, "3/1/2010", true, 10, -1));
    const QString second = QString::number(addShipment(order, "3/2/2010", true, 2.5, 4));
    addInvoice("Acme Supply", "3/20/2010", first + ", " + second, 15.5);
    Reports::ShowInvoiceRegister("3/20/2010", "3/20/2010");
    EXPECT_EQ(rows(),
              QStringList({"Baker Tools|3|3/20/2010|5/5/2010|Net 30|0|70|0|0|0",
                           "Acme Supply|5|3/20/2010|3/20/2010|Net 30|" + first + ", " + second + "|15.5|12.5|3|0"}));
    EXPECT_EQ(textOf("txtBeginDate") + textOf("txtEndDate"), "3/20/20103/20/2010");
    EXPECT_EQ(database.count("tmpARTran"), 2);
    Reports::ShowInvoiceRegister("3/20/2010", "3/2/2010");
    EXPECT_EQ(rows(), QStringList());
}

TEST_F(Receivables, CashReceiptsTellTheInvoiceOfEach)
{
    const QString stray = QString("%1|||2/2/2010||0|1").arg(addPayment(999, "2/2/2010", 1));
    addPayment(young, "3/31/2010", 2);
    Reports::ShowCashReceipts("2/1/2010", "3/31/2010");
    EXPECT_EQ(rows(), QStringList({"1|1|Acme Supply|2/1/2010|100|5|30", stray, "5|3|Baker Tools|3/31/2010|70|0|2",
                                   "3|4|Bolt & Sons|3/31/2010|40.001|10|30"}));
    Reports::ShowCashReceipts("2/2/2010", "3/30/2010");
    EXPECT_EQ(rows(), QStringList(stray));
}

TEST_F(Receivables, TheCustomerRegisterTellsInvoicesPaymentsAndAdjustments)
{
    const QStringList expected{"1/10/2010|Invoice|1|1|100", "2/1/2010|Adjustment|1|1|5", "2/1/2010|Payment|1|1|30",
                               "3/1/2010|Invoice|2|2|50"};
    DropTableIfExists("tmpCustomerRegister");
    for (int run = 0; run < 2; ++run) { // makes its table, then empties it
        Reports::ShowCustomerRegister("Acme Supply", "1/1/2010", "3/31/2010");
        EXPECT_EQ(rows(), expected);
    }
    EXPECT_EQ(textOf("txtCustomer"), "Acme Supply");
    Reports::ShowCustomerRegister("Acme Supply", "1/11/2010", "2/28/2010");
    EXPECT_EQ(rows(), expected.mid(1, 2)) << "without the invoices before and after";
    Reports::ShowCustomerRegister("Acme Supply", "2/2/2010", "3/1/2010");
    EXPECT_EQ(rows(), expected.mid(3));
    Reports::ShowCustomerRegister("Acme Supply", "3/2/2010", "4/1/2010");
    EXPECT_EQ(rows(), QStringList("4/1/2010|Payment|1|2|65")) << "an adjustment of 0 is none";
    Reports::ShowCustomerRegister("", "1/1/2010", "3/31/2010");
    EXPECT_EQ(rows(), QStringList());
    EXPECT_EQ(errorNumberOf([] { Reports::ShowCustomerRegister("O'Brien", "1/1/2010", "3/31/2010"); }), 3075);
}

} // namespace
