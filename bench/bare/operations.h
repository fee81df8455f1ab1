#pragma once

#include <QByteArrayList>
#include <vector>

class BareEngine;

/// What the program's routines do, written by hand in the SQL that gives the same rows fastest. Each is the twin of the
/// routine named beside it: it leaves the tables as that does, and reads the same rows last. `bench_operations --check`
/// compares the two.
/// Dates are "2026-01-31 00:00:00".
namespace Bare {
/// RebuildAvailInv
void rebuildAvailInv(BareEngine &engine);
/// Reports::RefillShipmentInvoiceDates
void refillInvoiceDates(BareEngine &engine);
/// Reports::ReportSalesByPart, behind the refill
void salesByPart(BareEngine &engine, const QByteArray &begin, const QByteArray &end);
/// Reports::ReportSalesByCustomer, behind the refill
void salesByCustomer(BareEngine &engine, const QByteArray &begin, const QByteArray &end, const QByteArray &lastBegin,
                     const QByteArray &lastEnd, const QByteArray &yearStart, const QByteArray &lastYearStart);
/// Reports::ReportAvailableInventory of all categories
void inventoryRegister(BareEngine &engine, const QByteArray &begin, const QByteArray &end);
/// Reports::ReportInventorySales
void inventorySales(BareEngine &engine, const QByteArray &begin, const QByteArray &end);
/// Reports::ReportProductionByWhsePart of 3 months and 2, behind the refill
void production(BareEngine &engine, const QByteArray &start, const QByteArray &end);
/// Reports::ShowOpenInvoicesReport; with a limit that of days given
void openInvoices(BareEngine &engine, const QByteArray &asOf, const QByteArray &limit);
/// Reports::ShowStatementReport
void statements(BareEngine &engine, const QByteArray &asOf);
/// Reports::ReportOpenOrders
void openOrders(BareEngine &engine);
/// Reports::ShowInvoiceRegister
void invoiceRegister(BareEngine &engine, const QByteArray &begin, const QByteArray &end);
/// Reports::ReportQuickAvailInv of all warehouses
void quickAvailInv(BareEngine &engine);
/// frmOrderNavigator::UpdateGrids without a filter
void orderNavigator(BareEngine &engine);
/// frmShipmentNavigator::UpdateGrids without a filter
void shipmentNavigator(BareEngine &engine);

struct Line
{
    qint64 item;
    QByteArray part, category;
};
/// An order as it stands in its form; each line is of 10 pieces at 2.50.
struct Order
{
    QByteArray number, customer, warehouse;
    QByteArrayList shipTo; ///< name, two lines of address, city, state, zip, phone, fax
    std::vector<Line> lines;
};
/// frmOrderEntry::btnSave_Click: the rows, and those of the pick ticket.
void saveOrders(BareEngine &engine, const std::vector<Order> &orders, const QByteArray &today);

struct Shipment
{
    qint64 order;
    std::vector<Line> lines;
};
/// frmShipmentEntry::btnSave_Click of one piece of each line: the rows, the ledger, the rows of the packing slip, the
/// order's status.
void saveShipments(BareEngine &engine, const std::vector<Shipment> &shipments, const QByteArray &today);
/// frmCreateInvoices::btnPrint_Click of all customers
void invoiceRun(BareEngine &engine, const QByteArray &today);
} // namespace Bare
