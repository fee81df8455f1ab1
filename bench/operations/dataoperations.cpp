#include "bench/bare/operations.h"
#include "bench/operations/meter.h"
#include "bench/operations/operation.h"

#include "inventory/ledger.h"
#include "reportengine/viewer/crviewer.h"
#include "reportengine/viewer/viewer.h"
#include "reports/inventoryregisters.h"
#include "reports/listings.h"
#include "reports/operational.h"
#include "reports/production.h"
#include "reports/receivables.h"
#include "reports/sales.h"
#include "toolkit/forms/form.h"
#include "toolkit/forms/forms.h"
#include "toolkit/forms/mainmod.h"
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace {

/// Runs a report routine; the clock stops when the rows are read and the viewer is about to open.
void untilRead(Meter &meter, const std::function<void()> &routine)
{
    Form *viewer = nullptr;
    Forms::setHost([&](Form *form) {
        meter.stop();
        viewer = form;
    });
    meter.start();
    routine();
    meter.note(*static_cast<Viewer *>(viewer)->viewer()->reportSource());
    delete viewer;
}

/// Answers Yes to the question that comes up next.
void sayYes()
{
    QTimer::singleShot(0, [] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget()))
            box->button(QMessageBox::Yes)->click();
        else
            sayYes();
    });
}

void rebuild(Meter &meter)
{
    sayYes();
    meter.start();
    RebuildAvailInv();
    meter.stop();
}

/// The dates that the reports are run for.
struct Dates
{
    QDate last, yearAgo, quarterAgo, first{2000, 1, 1};

    Dates()
    {
        Recordset newest = gDatabase->OpenRecordset("SELECT TOP 1 InvoiceDate FROM Invoice ORDER BY InvoiceDate DESC");
        last = newest.Fields("InvoiceDate").value().toDate().date();
        yearAgo = last.addYears(-1).addDays(1);
        quarterAgo = last.addDays(-90);
    }
};

QString jet(QDate date)
{
    return Date(date).toText();
}
QByteArray iso(QDate date)
{
    return Date(date).toIso().toUtf8();
}

void addSales(std::vector<Operation> &operations, const Dates &d)
{
    operations.push_back(
        {"Sales By Part, 1 year",
         [=](Meter &meter) { untilRead(meter, [=] { Reports::ReportSalesByPart(jet(d.yearAgo), jet(d.last)); }); },
         [=](BareEngine &engine) {
             Bare::refillInvoiceDates(engine);
             Bare::salesByPart(engine, iso(d.yearAgo), iso(d.last));
         }});
    const QDate begin(d.last.year(), d.last.month(), 1);
    operations.push_back(
        {"Sales By Customer, 1 month",
         [=](Meter &meter) { untilRead(meter, [=] { Reports::ReportSalesByCustomer(jet(begin), jet(d.last)); }); },
         [=](BareEngine &engine) {
             Bare::refillInvoiceDates(engine);
             Bare::salesByCustomer(engine, iso(begin), iso(d.last), iso(begin.addYears(-1)), iso(d.last.addYears(-1)),
                                   iso({d.last.year(), 1, 1}), iso({d.last.year() - 1, 1, 1}));
         }});
}

void addInventory(std::vector<Operation> &operations, const Dates &d)
{
    const auto registerOf = [=](QDate begin) {
        return [=](Meter &meter) {
            untilRead(meter, [=] {
                Reports::ReportAvailableInventory(jet(begin), jet(d.last), true, "***All Categories***");
            });
        };
    };
    operations.push_back({"Available inventory register, 90 days", registerOf(d.quarterAgo), [=](BareEngine &engine) {
                              Bare::inventoryRegister(engine, iso(d.quarterAgo), iso(d.last));
                          }});
    operations.push_back({"Available inventory register, all time", registerOf(d.first),
                          [=](BareEngine &engine) { Bare::inventoryRegister(engine, iso(d.first), iso(d.last)); }});
    operations.push_back(
        {"Inventory Sales Report",
         [=](Meter &meter) { untilRead(meter, [=] { Reports::ReportInventorySales(jet(d.yearAgo), jet(d.last)); }); },
         [=](BareEngine &engine) { Bare::inventorySales(engine, iso(d.yearAgo), iso(d.last)); }});
    operations.push_back(
        {"Quick Available Inv",
         [](Meter &meter) { untilRead(meter, [] { Reports::ReportQuickAvailInv("***All Warehouses***"); }); },
         Bare::quickAvailInv});
    const QDate today = Date::today().date();
    const QDate start = QDate(today.year(), today.month(), 1).addMonths(-3);
    operations.push_back(
        {"Production By Whse/Part",
         [](Meter &meter) { untilRead(meter, [] { Reports::ReportProductionByWhsePart(3, 2, false); }); },
         [=](BareEngine &engine) {
             Bare::refillInvoiceDates(engine);
             Bare::production(engine, iso(start), iso(start.addMonths(3).addDays(-1)));
         }});
}

void addReceivables(std::vector<Operation> &operations, const Dates &d)
{
    const auto listing = [=](const QString &days) {
        return
            [=](Meter &meter) { untilRead(meter, [=] { Reports::ShowOpenInvoicesReport(jet(d.last), false, days); }); };
    };
    operations.push_back({"Accounts Receivable Listing", listing({}),
                          [=](BareEngine &engine) { Bare::openInvoices(engine, iso(d.last), {}); }});
    operations.push_back({"Accounts Receivable Listing, over 60 days", listing("60"), [=](BareEngine &engine) {
                              Bare::openInvoices(engine, iso(d.last), iso(d.last.addDays(-60)));
                          }});
    operations.push_back({"Statements",
                          [=](Meter &meter) { untilRead(meter, [=] { Reports::ShowStatementReport(jet(d.last)); }); },
                          [=](BareEngine &engine) { Bare::statements(engine, iso(d.last)); }});
    operations.push_back(
        {"Invoice Register, 1 year",
         [=](Meter &meter) { untilRead(meter, [=] { Reports::ShowInvoiceRegister(jet(d.yearAgo), jet(d.last)); }); },
         [=](BareEngine &engine) { Bare::invoiceRegister(engine, iso(d.yearAgo), iso(d.last)); }});
    operations.push_back(
        {"Open Orders", [](Meter &meter) { untilRead(meter, [] { Reports::ReportOpenOrders(); }); }, Bare::openOrders});
}

/// The documents of the newest shipment, up to their rows.
void addDocuments(std::vector<Operation> &operations)
{
    const QString shipment =
        gDatabase->OpenRecordset("SELECT TOP 1 ID FROM Shipment ORDER BY ID DESC").Fields("ID").text();
    operations.push_back({"Packing slip, rows",
                          [=](Meter &meter) { untilRead(meter, [=] { Reports::PrintPackingSlip(shipment, true); }); }});
    operations.push_back(
        {"Invoice of one shipment, rows", [=](Meter &meter) {
             untilRead(meter, [=] { Reports::PrintInvoice(shipment, "1", "1/1/2026", "1/31/2026", "Net 30", true); });
         }});
}

} // namespace

std::vector<Operation> dataOperations()
{
    const Dates dates;
    std::vector<Operation> operations{{"Rebuild Inventory Values", rebuild, Bare::rebuildAvailInv}};
    addSales(operations, dates);
    addInventory(operations, dates);
    addReceivables(operations, dates);
    addDocuments(operations);
    return operations;
}
