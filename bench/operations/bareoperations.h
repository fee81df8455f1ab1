#pragma once

#include <QByteArray>
#include <vector>

class BareEngine;

/// What the report routines and the ledger do, written by hand in the SQL that gives the same rows fastest.
/// Dates are "2026-01-31 00:00:00". All leave the scratch tables as the routines do.
namespace Bare {
void rebuildAvailInv(BareEngine &engine);
void refillInvoiceDates(BareEngine &engine);
void salesByPart(BareEngine &engine, const QByteArray &begin, const QByteArray &end);
void salesByCustomer(BareEngine &engine, const QByteArray &begin, const QByteArray &end, const QByteArray &lastBegin,
                     const QByteArray &lastEnd, const QByteArray &yearStart, const QByteArray &lastYearStart);
void inventoryRegister(BareEngine &engine, const QByteArray &begin, const QByteArray &end);
void inventorySales(BareEngine &engine, const QByteArray &begin, const QByteArray &end);
void production(BareEngine &engine, const QByteArray &start, const QByteArray &end);
void openInvoices(BareEngine &engine, const QByteArray &asOf, const QByteArray &limit);
void statements(BareEngine &engine, const QByteArray &asOf);
void openOrders(BareEngine &engine);
void invoiceRegister(BareEngine &engine, const QByteArray &begin, const QByteArray &end);
void quickAvailInv(BareEngine &engine);
void orderNavigator(BareEngine &engine);
void shipmentNavigator(BareEngine &engine);

struct ShipmentLine
{
    qint64 item;
    QByteArray part;
};
struct Shipment
{
    qint64 order;
    std::vector<ShipmentLine> lines;
};
/// Ships one piece of each line: the rows, the ledger, the rows of the packing slip, the order's status.
void saveShipments(BareEngine &engine, const std::vector<Shipment> &shipments);
/// Bills every shipment that is not billed yet, an invoice a customer.
void invoiceRun(BareEngine &engine);
} // namespace Bare
