#include "reports/receivables.h"
#include "tests/reports/reporttest.h"
#include "toolkit/forms/mainmod.h"

namespace {

/// Acme owes an old invoice (1) and a later one (2), Birch a young one (3), Cobb has paid its old one (4) but for a
/// tenth of a cent.
class Receivables : public ReportTest
{
protected:
    Receivables()
    {
        database.execute("UPDATE Customer SET PrintStatements = TRUE WHERE Customer = 'Acme Rail'");
        addInvoice("Acme Rail", "1/10/2010", "0", 100);
        addInvoice("Acme Rail", "3/1/2010", "0", 50);
        addInvoice("Birch Mill", "3/20/2010", "0", 70);
        addInvoice("Cobb Yard", "1/5/2010", "0", 40.001);
        addPayment("1", "2/1/2010", 30, 5);
        addPayment("1", "4/1/2010", 65);
        addPayment("4", "3/31/2010", 30, 10);
        database.execute("UPDATE Invoice SET DueDate = #5/5/2010#");
    }
};

TEST_F(Receivables, TheListingHasEveryInvoiceAndOnlyThePaymentsUpToTheDay)
{
    Reports::ShowOpenInvoicesReport("3/31/2010", false, "");
    EXPECT_EQ(rows(8), QStringList({"100|5|30", "50|0|0", "70|0|0", "40.001|10|30"}));
    EXPECT_EQ(rows(0, 7).first(), "Acme Rail|555-3|555-4|1|1/10/2010|5/5/2010|Net 30|0");
    EXPECT_EQ(database.count("tmpOpenInvoices"), 4);
    EXPECT_EQ(shown("txtAsOfDate txtOver txtDays Details"), "3/31/2010|hidden|hidden|shown");

    Reports::ShowOpenInvoicesReport("1/4/2010", true, "");
    EXPECT_EQ(rows(), QStringList());
    EXPECT_EQ(shown("Details InvoiceHeads CustomerHeader"), "hidden|hidden|hidden");
}

TEST_F(Receivables, DaysGivenKeepCustomersWithAnOldOpenInvoiceWhole)
{
    const QString acme = "100|5|30 50|0|0";
    const struct
    {
        const char *what, *day, *days;
        double total; ///< of Cobb's invoice, of which 40 are paid
        QString accounts;
    } cases[] = {
        {"old and open", "3/31/2010", "30", 40.001, acme},
        {"an invoice of the limit's day is not over it", "3/31/2010", "11", 40.001, acme},
        {"one of the day before is", "3/31/2010", "10", 40.001, acme + " 70|0|0"},
        {"paid by now", "4/2/2010", "80", 40.001, ""},
        {"more than a tenth of a cent is open", "3/31/2010", "30", 40.0012, acme + " 40.0012|10|30"},
        {"less is not", "3/31/2010", "30", 40.0009, acme},
    };
    for (const auto &c : cases) {
        database.execute(QString("UPDATE Invoice SET Total = %1 WHERE ID = 4").arg(c.total, 0, 'f', 4));
        Reports::ShowOpenInvoicesReport(c.day, false, c.days);
        EXPECT_EQ(rows(8).join(' '), c.accounts) << c.what;
        EXPECT_EQ(shown("txtOver txtOverDays txtDays"),
                  QString("     Only customers with an open invoice over |%1| days").arg(c.days));
    }
    expectRuntimeError(3021, [] { Reports::ShowOpenInvoicesReport("1/1/2009", false, "30"); }); // no invoice
    addInvoice("O'Brien", "3/30/2010", "0", 10);
    expectRuntimeError(3075, [] { Reports::ShowOpenInvoicesReport("3/31/2010", false, "30"); });
}

TEST_F(Receivables, StatementsAreForThoseWhoGetThem)
{
    Reports::ShowStatementReport("3/31/2010");
    EXPECT_EQ(rows(), QStringList({"Acme Rail|1 Road||Akron|||1|1/10/2010|5/5/2010|Net 30|0|100|5|30",
                                   "Acme Rail|1 Road||Akron|||2|3/1/2010|5/5/2010|Net 30|0|50|0|0"}));
    EXPECT_EQ(shown("txtAsOfDate"), "3/31/2010");
}

TEST_F(Receivables, TheInvoiceRegisterSumsTheShipmentsOfEach)
{
    const QString order = addOrder("A-1", "Acme Rail");
    addShipment(order, {}, Date(2010, 3, 1), 10, -1);
    addShipment(order, {}, Date(2010, 3, 2), 2.5, 4);
    addInvoice("Acme Rail", "3/20/2010", "1, 2", 15.5);
    Reports::ShowInvoiceRegister("3/20/2010", "3/20/2010");
    EXPECT_EQ(rows(), QStringList({"Birch Mill|3|3/20/2010|5/5/2010|Net 30|0|70|0|0|0",
                                   "Acme Rail|5|3/20/2010|3/20/2010|Net 30|1, 2|15.5|12.5|3|0"}));
    EXPECT_EQ(shown("txtBeginDate txtEndDate"), "3/20/2010|3/20/2010");
    EXPECT_EQ(database.count("tmpARTran"), 2);
    Reports::ShowInvoiceRegister("3/20/2010", "3/2/2010");
    EXPECT_EQ(rows(), QStringList());
}

TEST_F(Receivables, CashReceiptsTellTheInvoiceOfEach)
{
    addPayment("999", "2/2/2010", 1);
    addPayment("3", "3/31/2010", 2);
    const QString stray = "4|||2/2/2010||0|1";
    Reports::ShowCashReceipts("2/1/2010", "3/31/2010");
    EXPECT_EQ(rows(), QStringList({"1|1|Acme Rail|2/1/2010|100|5|30", stray, "5|3|Birch Mill|3/31/2010|70|0|2",
                                   "3|4|Cobb Yard|3/31/2010|40.001|10|30"}));
    Reports::ShowCashReceipts("2/2/2010", "3/30/2010");
    EXPECT_EQ(rows(), QStringList(stray));
}

TEST_F(Receivables, TheCustomerRegisterTellsInvoicesPaymentsAndAdjustments)
{
    const QStringList expected{"1/10/2010|Invoice|1|1|100", "2/1/2010|Adjustment|1|1|5", "2/1/2010|Payment|1|1|30",
                               "3/1/2010|Invoice|2|2|50"};
    const struct
    {
        const char *customer, *begin, *end;
        QStringList rows;
    } cases[] = {
        {"Acme Rail", "1/1/2010", "3/31/2010", expected}, // makes its table
        {"Acme Rail", "1/1/2010", "3/31/2010", expected}, // and empties it
        {"Acme Rail", "1/11/2010", "2/28/2010", expected.mid(1, 2)},
        {"Acme Rail", "2/2/2010", "3/1/2010", expected.mid(3)},
        {"Acme Rail", "3/2/2010", "4/1/2010", {"4/1/2010|Payment|1|2|65"}}, // an adjustment of 0 is none
        {"", "1/1/2010", "3/31/2010", {}},
    };
    DropTableIfExists("tmpCustomerRegister");
    for (const auto &c : cases) {
        Reports::ShowCustomerRegister(c.customer, c.begin, c.end);
        EXPECT_EQ(rows(), c.rows) << c.begin;
        EXPECT_EQ(shown("txtCustomer"), c.customer);
    }
    expectRuntimeError(3075, [] { Reports::ShowCustomerRegister("O'Brien", "1/1/2010", "3/31/2010"); });
}

} // namespace
