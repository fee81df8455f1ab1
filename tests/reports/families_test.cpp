// Every family of reports against figures worked out by loops over the bare rows, on an empty file and on a whole
// made-up company.

#include "data/dao/createdatabase.h"
#include "data/schema/schema.h"
#include "reports/inventoryregisters.h"
#include "reports/listings.h"
#include "reports/operational.h"
#include "reports/production.h"
#include "reports/receivables.h"
#include "reports/sales.h"
#include "reports/saleswindow.h"
#include "tests/reports/companyrows.h"
#include "tests/reports/reporttest.h"
#include "tests/support/testclock.h"
#include "toolkit/forms/mainmod.h"
#include "tools/demo.h"
#include <QFile>

namespace {

const Date Begin(2010, 3, 15), End(2010, 9, 15);

/// A period as picked, and what it is last year.
struct Dates
{
    const char *begin, *end;
    Date from, to, lastFrom, lastTo;
};

const Dates Periods[] = {
    {"3/15/2010", "9/15/2010", Begin, End, {2009, 3, 15}, {2009, 9, 15}},
    {"2/29/2008", "3/31/2008", {2008, 2, 29}, {2008, 3, 31}, {2007, 2, 28}, {2007, 3, 31}},
    {"2/1/2009", "2/28/2009", {2009, 2, 1}, {2009, 2, 28}, {2008, 2, 1}, {2008, 2, 28}},
    // Over the turn of a year the last year's begin stands behind its end.
    {"12/15/2009", "1/15/2010", {2009, 12, 15}, {2010, 1, 15}, {2009, 12, 15}, {2009, 1, 15}},
    {"9/15/2010", "3/15/2010", {2010, 9, 15}, {2010, 3, 15}, {2009, 9, 15}, {2009, 3, 15}},
};

class Families : public ReportTest, public testing::WithParamInterface<const char *>
{
protected:
    Families()
    {
        gDatabase.reset();
        gDatabasePath = folder.filePath("company.db");
        if (QString(GetParam()) == "demo")
            QFile::copy(demoFile(), gDatabasePath);
        else
            createDatabase(gDatabasePath, Schema::Password.toString());
        gDatabase = DBEngine::OpenDatabase(gDatabasePath, false, false, DatabaseConnect);
        company = std::make_unique<Company>();
        EXPECT_EQ(company->orders.empty(), QString(GetParam()) == "empty");
    }

    /// Made once for all tests.
    static QString demoFile()
    {
        static QTemporaryDir folder;
        const QString path = folder.filePath("demo.db");
        if (!QFile::exists(path))
            createDemo(path, {1, 7, QDate(2010, 12, 31)});
        return path;
    }

    void expectRows(QStringList expected, const QStringList &order) const
    {
        QStringList actual = rows();
        expected.sort();
        actual.sort();
        m_rowsSeen = m_rowsSeen.value_or(0) + actual.size();
        EXPECT_EQ(actual, expected);
        expectOrder(order);
        EXPECT_EQ(shown.last()->objectName(), "Viewer");
    }

    /// What was compared was more than emptiness.
    void TearDown() override
    {
        if (m_rowsSeen) {
            EXPECT_EQ(*m_rowsSeen == 0, company->orders.empty());
        }
    }

    /// Rows in a table as it stands.
    static qsizetype count(const char *table)
    {
        qsizetype result = 0;
        for (auto rows = gDatabase->OpenRecordset(QString("SELECT * FROM ") + table); !rows.Eof(); rows.MoveNext())
            ++result;
        return result;
    }

    QTemporaryDir folder;
    std::unique_ptr<Company> company;

private:
    mutable std::optional<qsizetype> m_rowsSeen;
};

TEST_P(Families, SalesDetailsAreTheInvoicedLinesOfThePeriod)
{
    for (const Dates &dates : Periods) {
        SCOPED_TRACE(dates.begin);
        Reports::ReportSalesByPart(dates.begin, dates.end);
        expectRows(expectedSalesDetails(*company, dates.from, dates.to, false), {"PartNo", "Date", "Customer"});
    }
    for (const auto routine : {Reports::ReportSalesByWhsePart, Reports::ReportSalesByWhsePartExport}) {
        routine("3/15/2010", "9/15/2010");
        expectRows(expectedSalesDetails(*company, Begin, End, true), {"PartNo", "Date", "Customer"});
    }
    const auto invoiced = invoiceDates(*company);
    for (const TableRow &shipment : Company().shipments) {
        const int id = shipment["ID"].toLong();
        EXPECT_EQ(shipment["InvoiceDate"], invoiced.contains(id) ? Value(invoiced[id]) : Value()) << id;
    }
}

TEST_P(Families, ComparisonsSumFourPeriods)
{
    for (const Dates &dates : Periods) {
        SCOPED_TRACE(dates.begin);
        const std::array<Period, 4> periods{{{dates.from, dates.to},
                                             {dates.lastFrom, dates.lastTo},
                                             {Date(dates.to.date().year(), 1, 1), dates.to},
                                             {Date(dates.lastTo.date().year(), 1, 1), dates.lastTo}}};
        Reports::ReportSalesByCustomer(dates.begin, dates.end);
        expectRows(expectedComparison(*company, SalesKey::Customer, periods), {"Customer"});
        Reports::ReportSalesByCategoryCustomer(dates.begin, dates.end);
        expectRows(expectedComparison(*company, SalesKey::Category, periods), {"Category", "Customer"});
        Reports::ReportSalesByTerritoryCustomer(dates.begin, dates.end);
        expectRows(expectedComparison(*company, SalesKey::Territory, periods), {"Territory", "Customer"});
    }
}

TEST_P(Families, RegistersHaveABalanceAndTheMovementsOfThePeriod)
{
    const QStringList order{"Warehouse", "PartNo", "Date", "Memo", "Qty"};
    for (const Dates &dates : Periods) {
        SCOPED_TRACE(dates.begin);
        Reports::ReportAvailableInventory(dates.begin, dates.end, true, "***All Categories***");
        const QStringList expected = expectedRegister(*company, dates.from, dates.to, {});
        expectRows(expected, order);
        EXPECT_EQ(count("tmpInventoryRegister2"), expected.size());
        EXPECT_EQ(count("tmpInventoryRegister"), expectedRegister(*company, Date(1990, 1, 1), dates.to, {}).size());
    }
    const QString category = company->parts.empty() ? "None" : company->parts.front()["Category"].toText();
    Reports::ReportAvailableInventoryByPart("3/15/2010", "9/15/2010", false, category);
    expectRows(expectedRegister(*company, Begin, End, category), order);
    Reports::ReportAvailableInventoryExport("3/15/2010", "3/1/2010", false, "***All Categories***");
    expectRows(expectedRegister(*company, Begin, Date(2010, 3, 1), {}), order);
}

TEST_P(Families, InventorySalesHaveARowPerCountedPart)
{
    for (const Dates &dates : Periods) {
        SCOPED_TRACE(dates.begin);
        Reports::ReportInventorySales(dates.begin, dates.end);
        expectRows(expectedInventorySales(*company, dates.from, dates.to), {});
    }
    EXPECT_EQ(count("tmpTransferHeaderIDs"), qsizetype(2 * company->transfers.size()));
    EXPECT_EQ(count("tmpJuniorSpeedTest"), qsizetype(company->counts.size()));
}

TEST_P(Families, QuickAvailabilityCrossesWarehousesAndParts)
{
    QStringList expected;
    for (const TableRow &warehouse : company->warehouses) {
        for (const TableRow &part : company->parts) {
            Value avail;
            for (const TableRow &row : company->availInv) {
                if (row["Whse"] == warehouse["Warehouse"] && row["Part"] == part["PartNo"])
                    avail = row["Avail"];
            }
            expected += rowText({warehouse["Warehouse"], part["PartNo"], avail});
        }
    }
    Reports::ReportQuickAvailInv("***All Warehouses***");
    expectRows(expected, {"Warehouse", "PartNo"});
    EXPECT_EQ(count("tmpWhsePart"), expected.size());
}

TEST_P(Families, ProductionHasSoldOnHandAndCommitted)
{
    const struct
    {
        const char *today;
        int months;
        Date start, end;
    } windows[] = {{"2010-11-20", 3, {2010, 8, 1}, {2010, 10, 31}},
                   {"2010-03-31", 1, {2010, 2, 1}, {2010, 2, 28}},
                   {"2008-03-31", 2, {2008, 1, 1}, {2008, 2, 28}},
                   {"2010-05-15", 0, {2010, 5, 1}, {2010, 4, 30}},
                   {"2010-01-31", 12, {2009, 1, 1}, {2009, 12, 31}}};
    for (const auto &window : windows) {
        SCOPED_TRACE(window.today);
        const TestClock clock(QString(window.today) + " 10:00:00");
        const QStringList expected = expectedProduction(*company, window.months, 2, window.start, window.end);
        Reports::ReportProductionByWhsePart(qint16(window.months), 2, false);
        expectRows(expected, {"Warehouse", "PartNo"});
        Reports::ReportProductionByPartWhse(qint16(window.months), 2, true);
        expectRows(expected, {"PartNo", "Warehouse"});
    }
}

TEST_P(Families, ReceivablesCountPaymentsUpToTheDay)
{
    const Date asOf(2010, 6, 30);
    Reports::ShowOpenInvoicesReport("6/30/2010", false, "");
    expectRows(expectedOpenInvoices(*company, asOf), {"Customer"});
    EXPECT_EQ(count("tmpOpenInvoices"), rows().size());
    Reports::ShowStatementReport("6/30/2010");
    expectRows(expectedStatements(*company, asOf), {"Customer"});
    for (const int days : {0, 45, 400}) {
        if (company->invoices.empty())
            break; // an error, which is told elsewhere
        Reports::ShowOpenInvoicesReport("6/30/2010", false, QString::number(days));
        expectRows(expectedOpenInvoices(*company, asOf, days), {"Customer"});
    }
    for (const TableRow &customer : company->customers) {
        const QString name = customer["Customer"].toText();
        Reports::ShowCustomerRegister(name, "3/15/2010", "9/15/2010");
        expectRows(expectedCustomerRegister(*company, name, Begin, End), {"TranDate", "TranType"});
    }
    Reports::ShowCashReceipts("3/15/2010", "9/15/2010");
    expectRows(expectedCashReceipts(*company, Begin, End), {"Date"});
    Reports::ShowInvoiceRegister("3/15/2010", "9/15/2010");
    expectRows(expectedInvoiceRegister(*company, Begin, End), {"InvoiceDate", "Invoice"});
}

TEST_P(Families, ListingsHaveEveryRecordInBlocksByStatus)
{
    Reports::ReportPartListing();
    EXPECT_EQ(rows().size(), int(company->parts.size()));
    expectOrder({"Status", "PartNo"});
    Reports::ReportCustomerListing();
    EXPECT_EQ(rows().size(), int(company->customers.size()));
    expectOrder({"Status", "Customer"});
    Reports::ReportWarehouseListing();
    EXPECT_EQ(rows().size(), int(company->warehouses.size()));
    expectOrder({"Status", "Warehouse"});
}

INSTANTIATE_TEST_SUITE_P(, Families, testing::Values("empty", "demo"),
                         [](const auto &info) { return std::string(info.param); });

} // namespace
