#include "reports/sales.h"
#include "reportengine/report.h"
#include "reports/fielddeffile.h"
#include "reports/handover.h"
#include "reports/invoicedates.h"
#include "reports/salesperiods.h"
#include "toolkit/forms/mainmod.h"
#include <QCoreApplication>

namespace {

/// Dates are shown as the dialog gave them.
void deliver(HandOver &handOver, Report &report, const QString &name, const QString &BeginDate, const QString &EndDate)
{
    report.object("txtBeginDate").SetText(BeginDate);
    report.object("txtEndDate").SetText(EndDate);
    handOver.deliver(name + ", " + BeginDate + " to " + EndDate);
}

/// A detail report; `columns` opens the SELECT list.
void reportDetails(const char *designer, const QString &name, const char *columns, const QString &BeginDate,
                   const QString &EndDate)
{
    HandOver handOver(HandOver::Pointer::NotOwned);
    Reports::RefillShipmentInvoiceDates();
    Report &report = handOver.read(
        designer,
        gDatabase->OpenRecordset(
            // No warehouse in the order, also where it is a column: the layout groups by it.
            "SELECT " + QLatin1String(columns) +
            "OrderItem.PartNo,Orders.Customer,Shipment.ID,Shipment.Date,ShipmentItems.Qty,(ShipmentItems.Qty*"
            "OrderItem.PriceEach) AS PriceExt,(ShipmentItems.Qty * Part.Cost) AS CostExt FROM "
            "Orders,OrderItem,Part,Shipment,ShipmentItems WHERE Orders.ID = OrderItem.OrderID AND OrderItem.PartNo = "
            "Part.PartNo AND Orders.ID = Shipment.OrderID AND OrderItem.ItemNumber = ShipmentItems.OrderLineItem AND "
            "Shipment.ID = ShipmentItems.ShipmentID AND Shipment.InvoiceDate >= #" +
            BeginDate + "# AND Shipment.InvoiceDate <= #" + EndDate +
            "# ORDER BY OrderItem.PartNo,Shipment.Date,Orders.Customer"));
    deliver(handOver, report, name, BeginDate, EndDate);
}

/// What tells the three comparison reports apart.
struct Comparison
{
    const char *keys;       ///< column list of the scratch table and of the final SELECT
    const char *selectKeys; ///< the same behind the SELECT of an INSERT
    const char *from;
    const char *groupBy;
};

/// Lines are joined on their number alone. What ties a shipped line to its own order is the shipment's ID in
/// `addPeriod`.
constexpr const char *SalesJoins =
    "FROM ((((Orders LEFT JOIN OrderItem ON Orders.ID = OrderItem.OrderID) LEFT JOIN Part ON OrderItem.PartNo = "
    "Part.PartNo) LEFT JOIN Shipment ON Orders.ID = Shipment.OrderID) LEFT JOIN ShipmentItems ON OrderItem.ItemNumber "
    "= ShipmentItems.OrderLineItem) ";

constexpr const char *SalesJoinsWithCustomer =
    "FROM (((((Orders LEFT JOIN OrderItem ON Orders.ID = OrderItem.OrderID) LEFT JOIN Part ON OrderItem.PartNo = "
    "Part.PartNo) LEFT JOIN Shipment ON Orders.ID = Shipment.OrderID) LEFT JOIN ShipmentItems ON OrderItem.ItemNumber "
    "= ShipmentItems.OrderLineItem) LEFT JOIN Customer ON Orders.Customer = Customer.Customer) ";

constexpr Comparison ByCustomer{"Customer", "Orders.Customer", SalesJoins, "Customer"};
constexpr Comparison ByCategory{"Category,Customer", "Part.Category,Orders.Customer", SalesJoins,
                                "Part.Category,Customer"};
constexpr Comparison ByTerritory{"Territory,Customer", "Territory,Orders.Customer", SalesJoinsWithCustomer,
                                 "Territory,Orders.Customer"};

/// Adds the sums of one period in its own pair of columns; the other pairs stay Null in these rows.
void addPeriod(const Comparison &report, const char *amounts, const QString &from, const QString &to)
{
    gDatabase->Execute(QLatin1String("INSERT INTO tmpSalesByCustomer (") + report.keys + "," + amounts + ") SELECT " +
                       report.selectKeys +
                       ",SUM(ShipmentItems.Qty*OrderItem.PriceEach) AS PriceExt,SUM(ShipmentItems.Qty*Part.Cost ) AS "
                       "CostExt " +
                       report.from + "WHERE Shipment.ID = ShipmentItems.ShipmentID AND Shipment.InvoiceDate >= #" +
                       from + "# AND Shipment.InvoiceDate <= #" + to + "# GROUP BY " + report.groupBy);
}

/// Fills the scratch table with the four periods and opens its rows, one per key.
Recordset compare(const Comparison &report, const QString &BeginDate, const QString &EndDate)
{
    const SalesPeriods periods = salesPeriods(BeginDate, EndDate);
    Reports::RefillShipmentInvoiceDates();
    gDatabase->Execute("DELETE * FROM tmpSalesByCustomer");
    addPeriod(report, "CurrentPeriodSales,CurrentPeriodCosts", BeginDate, EndDate);
    addPeriod(report, "LastYearPeriodSales,LastYearPeriodCosts", periods.LastYearBegin, periods.LastYearEnd);
    // From the first day of the end date's year, even when the period began in the year before.
    addPeriod(report, "TYTDSales,TYTDCosts", "1/1/" + periods.EndYear, EndDate);
    addPeriod(report, "LYTDSales,LYTDCosts", "1/1/" + periods.LastYear, periods.LastYearEnd);
    const QLatin1String keys(report.keys);
    return gDatabase->OpenRecordset(
        "SELECT " + keys +
        ",SUM(CurrentPeriodSales) AS CPS,SUM(CurrentPeriodCosts) AS CPC, SUM(LastYearPeriodSales) AS "
        "LPS,SUM(LastYearPeriodCosts) AS LPC,SUM(TYTDSales) AS TYTDS, SUM(TYTDCosts) AS TYTDC,SUM(LYTDSales) AS "
        "LYTDS,SUM(LYTDCosts) AS LYTDC FROM tmpSalesByCustomer GROUP BY " +
        keys + " ORDER BY " + keys);
}

} // namespace

void Reports::ReportSalesByPart(const QString &BeginDate, const QString &EndDate)
{
    reportDetails("crptSalesByPart", "Sales By Part", "", BeginDate, EndDate);
}

void Reports::ReportSalesByWhsePart(const QString &BeginDate, const QString &EndDate)
{
    reportDetails("crptSalesByWhsePart", "Sales By Whse/Part", "Orders.Warehouse,", BeginDate, EndDate);
}

void Reports::ReportSalesByWhsePartExport(const QString &BeginDate, const QString &EndDate)
{
    reportDetails("crptSalesByWhsePartExport", "Sales By Whse/Part", "Orders.Warehouse,", BeginDate, EndDate);
}

void Reports::ReportSalesByCustomer(const QString &BeginDate, const QString &EndDate)
{
    HandOver handOver(HandOver::Pointer::NotOwned);
    Report &report = handOver.read("crptSalesByCustomer", compare(ByCustomer, BeginDate, EndDate));
    deliver(handOver, report, "Sales By Customer", BeginDate, EndDate);
}

void Reports::ReportSalesByCategoryCustomer(const QString &BeginDate, const QString &EndDate)
{
    HandOver handOver(HandOver::Pointer::NotOwned);
    Report &report = handOver.read("crptSalesByCategoryCustomer", compare(ByCategory, BeginDate, EndDate));
    deliver(handOver, report, "Sales By Category", BeginDate, EndDate);
}

void Reports::ReportSalesByTerritoryCustomer(const QString &BeginDate, const QString &EndDate)
{
    HandOver handOver(HandOver::Pointer::NotOwned);
    Recordset territories = compare(ByTerritory, BeginDate, EndDate);
    // The blank at the end belongs to the name. The layout has its own definition and does not read the file.
    // Whether it could be written is nobody's question.
    CreateFieldDefFile(territories, QCoreApplication::applicationDirPath() + "/ttx/SalesByCustomerAndTerritory.ttx ",
                       true);
    Report &report = handOver.read("crptSalesByTerritoryCustomer", std::move(territories));
    deliver(handOver, report, "Sales By Territory", BeginDate, EndDate);
}
