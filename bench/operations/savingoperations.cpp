#include "bench/operations/bareengine.h"
#include "bench/operations/bareoperations.h"
#include "bench/operations/operation.h"

#include "app/mdi.h"
#include "reportengine/output/printing.h"
#include "toolkit/forms/form.h"
#include "toolkit/forms/mainmod.h"
#include <QApplication>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QSet>
#include <QTemporaryDir>
#include <QTimer>

namespace {

constexpr int Shipments = 50;

/// Counts the seconds that a save spends in the data: not those in which boxes and windows come and go.
class Watch : public QObject
{
public:
    void start() { m_timer.start(); }
    void stop()
    {
        m_seconds += m_timer.isValid() ? double(m_timer.nsecsElapsed()) / 1e9 : 0;
        m_timer.invalidate();
    }
    /// Stops when the window begins to close.
    void stopWith(QWidget *window) { window->installEventFilter(this); }
    double seconds() const { return m_seconds; }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Close)
            stop();
        return false;
    }

private:
    QElapsedTimer m_timer;
    double m_seconds = 0;
};

/// Answers Yes to the question that comes up next; the watch goes on when it has gone.
void sayYes(Watch &watch)
{
    QTimer::singleShot(0, [&watch] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            QObject::connect(box, &QObject::destroyed, &watch, &Watch::start);
            box->button(QMessageBox::Yes)->click();
        } else {
            sayYes(watch);
        }
    });
}

void press(Form *form, const char *button)
{
    form->findChild<QPushButton *>(button)->click();
}

/// Ships one piece of each line of an order through the form. The watch runs from the press of the button until the
/// slip's rows are read, and again from the answer until the form begins to close.
void ship(const Bare::Shipment &shipment, const QString &customer, Watch &watch)
{
    Form *form = Load("frmShipmentEntry");
    form->findChild<ComboBox *>("cmbCustomer")->setText(customer);
    auto *orders = form->findChild<ComboBox *>("cmbOrder"), *ids = form->findChild<ComboBox *>("cmbOrderID");
    for (int i = 0; i < ids->listCount(); ++i)
        if (ids->list(i) == QString::number(shipment.order))
            orders->setListIndex(i);
    auto *items = form->findChild<FlexGrid *>("vsfgItems");
    for (int row = 1; row < items->rows(); ++row)
        items->setTextMatrix(row, 3, "1");
    sayYes(watch);
    watch.stopWith(form->parentWidget());
    watch.start();
    press(form, "btnSave");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// The newest open orders, with their customers.
std::vector<std::pair<Bare::Shipment, QString>> openOrders()
{
    std::vector<std::pair<Bare::Shipment, QString>> orders;
    Recordset rs = gDatabase->OpenRecordset(
        QString("SELECT TOP %1 Orders.ID,Orders.Customer FROM Orders LEFT JOIN Customer ON Orders.Customer = "
                "Customer.Customer WHERE Orders.Status = 'Open' AND Customer.Status = 'Active' ORDER BY Orders.ID DESC")
            .arg(Shipments));
    for (; !rs.Eof(); rs.MoveNext()) {
        Bare::Shipment shipment{rs.Fields("ID").value().toLong(), {}};
        Recordset lines = gDatabase->OpenRecordset("SELECT ItemNumber,PartNo FROM OrderItem WHERE OrderID = " +
                                                   rs.Fields("ID").text() + " ORDER BY ItemNumber");
        for (; !lines.Eof(); lines.MoveNext())
            shipment.lines.push_back(
                {lines.Fields("ItemNumber").value().toLong(), lines.Fields("PartNo").text().toUtf8()});
        orders.emplace_back(shipment, rs.Fields("Customer").text());
    }
    return orders;
}

Operation shipmentSaves()
{
    const auto orders = openOrders();
    std::vector<Bare::Shipment> shipments;
    QStringList ids;
    for (const auto &[shipment, customer] : orders) {
        shipments.push_back(shipment);
        ids += QString::number(shipment.order);
    }
    const auto program = [orders] {
        MDI window;
        Watch watch;
        setPrintDestination([&](Report &, int) {
            watch.stop();
            return true;
        });
        for (const auto &[shipment, customer] : orders)
            ship(shipment, customer, watch);
        setPrintDestination({});
        return watch.seconds();
    };
    return {QString("Shipment saved, %1 times").arg(ids.size()), program,
            [shipments](BareEngine &engine) { Bare::saveShipments(engine, shipments); },
            "UPDATE Orders SET Status = 'Open' WHERE ID IN (" + ids.join(',') + ")"};
}

/// Bills all customers through the form.
double invoiceRun(const PrintDestination &destination)
{
    MDI window;
    Form *form = Load("frmCreateInvoices");
    form->findChild<DTPicker *>("dtCutoff")->setDate({2099, 12, 31});
    setPrintDestination(destination);
    QElapsedTimer timer;
    timer.start();
    press(form, "btnPrint");
    const double seconds = double(timer.nsecsElapsed()) / 1e9;
    setPrintDestination({});
    return seconds;
}

/// Draws the pages as where there is no printer, two copies of each invoice into a file.
double printedInvoiceRun()
{
    const QTemporaryDir folder;
    return invoiceRun(
        [&](Report &report, int copies) { return !printToFolder(report, copies, folder.path()).isEmpty(); });
}

void addInvoiceRuns(std::vector<Operation> &operations)
{
    QStringList ids;
    QSet<QString> customers;
    Recordset open = gDatabase->OpenRecordset("SELECT Shipment.ID,Customer FROM Shipment LEFT JOIN Orders ON "
                                              "Shipment.OrderID = Orders.ID WHERE Invoiced = False");
    for (; !open.Eof(); open.MoveNext()) {
        ids += open.Fields("ID").text();
        customers += open.Fields("Customer").text();
    }
    const QString name = QString("Invoice run over %1 customers").arg(customers.size());
    const QString again = "UPDATE Shipment SET Invoiced = 0 WHERE ID IN (" + ids.join(',') + ")";
    operations.push_back({name + ", without its pages", [] { return invoiceRun([](Report &, int) { return true; }); },
                          Bare::invoiceRun, again});
    operations.push_back({name + ", pages drawn", printedInvoiceRun, {}, again});
}

} // namespace

std::vector<Operation> savingOperations()
{
    std::vector<Operation> operations{shipmentSaves()};
    addInvoiceRuns(operations);
    return operations;
}
