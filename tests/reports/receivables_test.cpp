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
    const QString acme = "Acme Supply 1/10/2010 5|30;Acme Supply 3/1/2010 0|0";
    const struct
    {
        const char *what, *day, *days;
        double total; ///< of Bolt's invoice, of which 40 are paid
        QString accounts;
    } cases[] = {
        {"old and open", "3/31/2010", "30", 40.001, acme},
        {"an invoice of the limit's day is not over it", "3/31/2010", "11", 40.001, acme},
        {"one of the day before is", "3/31/2010", "10", 40.001, acme + ";Baker Tools 3/20/2010 0|0"},
        {"paid by now", "4/2/2010", "80", 40.001, ""},
        {"more than a tenth of a cent is open", "3/31/2010", "30", 40.0012, acme + ";Bolt & Sons 1/5/2010 10|30"},
        {"less is not", "3/31/2010", "30", 40.0009, acme},
    };
    for (const auto &c : cases) {
        database.execute(QString("UPDATE Invoice SET Total = %1 WHERE ID = %2").arg(c.total, 0, 'f', 4).arg(paid));
        Reports::ShowOpenInvoicesReport(c.day, false, c.days);
        EXPECT_EQ(accounts().join(';'), c.accounts) << c.what;
        EXPECT_EQ(textOf("txtOverDays"), c.days);
        EXPECT_FALSE(isSuppressed("txtOver") || isSuppressed("txtDays"));
    }
    EXPECT_EQ(errorNumberOf([] { Reports::ShowOpenInvoicesReport("1/1/2009", false, "30"); }), 3021) << "no invoice";
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
    const struct
    {
        const char *customer, *begin, *end;
        QStringList rows;
    } cases[] = {
        {"Acme Supply", "1/11/2010", "2/28/2010", expected.mid(1, 2)},
        {"Acme Supply", "2/2/2010", "3/1/2010", expected.mid(3)},
        {"Acme Supply", "3/2/2010", "4/1/2010", {"4/1/2010|Payment|1|2|65"}}, // an adjustment of 0 is none
        {"", "1/1/2010", "3/31/2010", {}},
    };
    for (const auto &c : cases) {
        Reports::ShowCustomerRegister(c.customer, c.begin, c.end);
        EXPECT_EQ(rows(), c.rows) << c.begin;
    }
    EXPECT_EQ(errorNumberOf([] { Reports::ShowCustomerRegister("O'Brien", "1/1/2010", "3/31/2010"); }), 3075);
}

} // namespace
