// Every family of reports against figures worked out by loops over the bare rows, on an empty file and on a whole
// made-up company.

#include "app/toolkit/mainmod.h"
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
#include "tools/demo.h"
#include <QFile>

namespace {

const Date Begin(2010, 3, 15), End(2010, 9, 15);
const Date LastBegin(2009, 3, 15), LastEnd(2009, 9, 15);

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
        EXPECT_EQ(actual.isEmpty(), company->orders.empty());
        EXPECT_EQ(actual, expected);
        expectOrder(order);
        EXPECT_EQ(shown.last()->objectName(), "Viewer");
    }

    QTemporaryDir folder;
    std::unique_ptr<Company> company;
};

TEST_P(Families, SalesDetailsAreTheInvoicedLinesOfThePeriod)
{
    Reports::ReportSalesByPart("3/15/2010", "9/15/2010");
    expectRows(expectedSalesDetails(*company, Begin, End, false), {"PartNo", "Date", "Customer"});
    Reports::ReportSalesByWhsePart("3/15/2010", "9/15/2010");
    expectRows(expectedSalesDetails(*company, Begin, End, true), {"PartNo", "Date", "Customer"});
    Reports::ReportSalesByWhsePartExport("3/15/2010", "9/15/2010");
    expectRows(expectedSalesDetails(*company, Begin, End, true), {"PartNo", "Date", "Customer"});
}

TEST_P(Families, ComparisonsSumFourPeriods)
{
    const std::array<Period, 4> periods{
        {{Begin, End}, {LastBegin, LastEnd}, {Date(2010, 1, 1), End}, {Date(2009, 1, 1), LastEnd}}};
    Reports::ReportSalesByCustomer("3/15/2010", "9/15/2010");
    expectRows(expectedComparison(*company, SalesKey::Customer, periods), {"Customer"});
    Reports::ReportSalesByCategoryCustomer("3/15/2010", "9/15/2010");
    expectRows(expectedComparison(*company, SalesKey::Category, periods), {"Category", "Customer"});
    Reports::ReportSalesByTerritoryCustomer("3/15/2010", "9/15/2010");
    expectRows(expectedComparison(*company, SalesKey::Territory, periods), {"Territory", "Customer"});
}

TEST_P(Families, RegistersHaveABalanceAndTheMovementsOfThePeriod)
{
    const QStringList order{"Warehouse", "PartNo", "Date", "Memo", "Qty"};
    Reports::ReportAvailableInventory("3/15/2010", "9/15/2010", true, "***All Categories***");
    expectRows(expectedRegister(*company, Begin, End, {}), order);
    const QString category = company->parts.empty() ? "None" : company->parts.front()["Category"].toText();
    Reports::ReportAvailableInventoryByPart("3/15/2010", "9/15/2010", false, category);
    expectRows(expectedRegister(*company, Begin, End, category), order);
    Reports::ReportAvailableInventoryExport("3/15/2010", "3/1/2010", false, "***All Categories***");
    expectRows(expectedRegister(*company, Begin, Date(2010, 3, 1), {}), order);
}

TEST_P(Families, InventorySalesHaveARowPerCountedPart)
{
    Reports::ReportInventorySales("3/15/2010", "9/15/2010");
    expectRows(expectedInventorySales(*company, Begin, End), {});
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
}

TEST_P(Families, ProductionHasSoldOnHandAndCommitted)
{
    const TestClock clock("2010-11-20 10:00:00");
    Reports::ReportProductionByWhsePart(3, 2, false);
    const QStringList expected = expectedProduction(*company, 3, 2, Date(2010, 8, 1), Date(2010, 10, 31));
    expectRows(expected, {"Warehouse", "PartNo"});
    Reports::ReportProductionByPartWhse(3, 2, true);
    expectRows(expected, {"PartNo", "Warehouse"});
}

TEST_P(Families, ReceivablesCountPaymentsUpToTheDay)
{
    const Date asOf(2010, 6, 30);
    Reports::ShowOpenInvoicesReport("6/30/2010", false, "");
    expectRows(expectedOpenInvoices(*company, asOf), {"Customer"});
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
