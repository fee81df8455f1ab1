#pragma once

#include <QByteArray>

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
} // namespace Bare
