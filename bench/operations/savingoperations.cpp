#include "bench/bare/engine.h"
#include "bench/bare/operations.h"
#include "bench/operations/meter.h"
#include "bench/operations/operation.h"

#include "app/mdi.h"
#include "reportengine/output/printing.h"
#include "toolkit/forms/form.h"
#include "toolkit/forms/forms.h"
#include "toolkit/forms/mainmod.h"
#include <QApplication>
#include <QMessageBox>
#include <QSet>
#include <QTemporaryDir>
#include <QTimer>

namespace {

constexpr int Documents = 30;
constexpr int LinesOfOrder = 6, LinesOfShipment = 4;

QByteArray today()
{
    return Date::today().toIso().toUtf8();
}

/// Answers Yes to the question that comes up next; the clock goes on when it has gone.
void sayYes(Meter &meter)
{
    QTimer::singleShot(0, [&meter] {
        if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
            QObject::connect(box, &QObject::destroyed, [&meter] { meter.start(); });
            box->button(QMessageBox::Yes)->click();
        } else {
            sayYes(meter);
        }
    });
}

/// Stops the clock when its window begins to close: what windows take to come and go is no part of a save.
class StopAtClose : public QObject
{
public:
    StopAtClose(Meter &meter, QWidget *window) : QObject(window), m_meter(meter) { window->installEventFilter(this); }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Close)
            m_meter.stop();
        return false;
    }

private:
    Meter &m_meter;
};

void press(Form *form, const char *button)
{
    form->findChild<QPushButton *>(button)->click();
}

void letFormsGo()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

/// Enters an order through the form. The clock runs from the press of the button until the pick ticket's rows are read.
void enter(const Bare::Order &order, Meter &meter)
{
    Forms::setHost({});
    Form *form = Load("frmOrderEntry");
    form->findChild<ComboBox *>("cmbWarehouse")->setText(order.warehouse);
    form->findChild<ComboBox *>("cmbCustomer")->setText(order.customer);
    form->findChild<TextBox *>("txtOrderNumber")->setText(order.number);
    for (const Bare::Line &line : order.lines)
        form->findChild<FlexGrid *>("vsfgItems")
            ->addItem(QString::number(line.item) + "\t10\t" + line.part + '\t' + line.category + "\t2.5\t25\t");
    Forms::setHost([&](Form *ticket) {
        meter.stop();
        ticket->deleteLater();
    });
    meter.start();
    press(form, "btnSave");
    meter.finish();
    letFormsGo();
}

/// Ships one piece of each line of an order through the form. The clock runs from the press of the button until the
/// slip's rows are read, and again from the answer until the form begins to close.
void ship(const Bare::Shipment &shipment, const QString &customer, Meter &meter)
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
    sayYes(meter);
    new StopAtClose(meter, form->parentWidget());
    meter.start();
    press(form, "btnSave");
    meter.finish();
    letFormsGo();
}

std::vector<Bare::Line> linesOf(const QString &select)
{
    std::vector<Bare::Line> lines;
    for (Recordset rs = gDatabase->OpenRecordset(select); !rs.Eof(); rs.MoveNext())
        lines.push_back({rs.Fields(0).value().toLong(), rs.Fields(1).text().toUtf8(), rs.Fields(2).joined().toUtf8()});
    return lines;
}

/// The newest open orders of so many lines, with their customers.
std::vector<std::pair<Bare::Shipment, QString>> openOrders()
{
    std::vector<std::pair<Bare::Shipment, QString>> orders;
    Recordset rs =
        gDatabase->OpenRecordset("SELECT Orders.ID,Orders.Customer FROM Orders LEFT JOIN Customer ON Orders.Customer = "
                                 "Customer.Customer WHERE Orders.Status = 'Open' AND Customer.Status = 'Active' ORDER "
                                 "BY Orders.ID DESC");
    for (; !rs.Eof() && orders.size() < Documents; rs.MoveNext()) {
        const auto lines =
            linesOf("SELECT ItemNumber,PartNo,Category FROM OrderItem WHERE OrderID = " + rs.Fields("ID").text() +
                    " ORDER BY ItemNumber");
        if (lines.size() == LinesOfShipment)
            orders.push_back({{rs.Fields("ID").value().toLong(), lines}, rs.Fields("Customer").text()});
    }
    return orders;
}

Operation orderSaves()
{
    auto lines = linesOf(
        QString("SELECT TOP %1 0,PartNo,Category FROM Part WHERE Status = 'Active' ORDER BY PartNo").arg(LinesOfOrder));
    for (size_t i = 0; i < lines.size(); ++i)
        lines[i].item = qint64(i + 1);
    Recordset customer = gDatabase->OpenRecordset("SELECT * FROM Customer WHERE Status = 'Active'");
    const auto text = [&](const char *column) { return customer.Fields(column).joined().toUtf8(); };
    Bare::Order order{{}, text("Customer"), gDefaultWarehouse.toUtf8(), {}, lines};
    for (const char *column : {"ShipTo", "ShipToAddress1", "ShipToAddress2", "ShipToCity", "ShipToState", "ShipToZip",
                               "ShipToPhone", "ShipToFax"})
        order.shipTo += text(column);
    std::vector<Bare::Order> orders(Documents, order);
    for (int i = 0; i < Documents; ++i)
        orders[size_t(i)].number = "N-" + QByteArray::number(i + 1);
    const auto program = [orders](Meter &meter) {
        for (const Bare::Order &order : orders)
            enter(order, meter);
    };
    return {QString("Order of %1 lines saved, %2 times").arg(LinesOfOrder).arg(Documents),
            program,
            [orders](BareEngine &engine) { Bare::saveOrders(engine, orders, today()); },
            {},
            Documents};
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
    const auto program = [orders](Meter &meter) {
        MDI window;
        setPrintDestination([&](Report &, int) {
            meter.stop();
            return true;
        });
        for (const auto &[shipment, customer] : orders)
            ship(shipment, customer, meter);
        setPrintDestination({});
    };
    return {QString("Shipment of %1 lines saved, %2 times").arg(LinesOfShipment).arg(ids.size()), program,
            [shipments](BareEngine &engine) { Bare::saveShipments(engine, shipments, today()); },
            "UPDATE Orders SET Status = 'Open' WHERE ID IN (" + ids.join(',') + ")", int(ids.size())};
}

/// Bills all customers through the form.
void invoiceRun(Meter &meter, const PrintDestination &destination)
{
    MDI window;
    Form *form = Load("frmCreateInvoices");
    form->findChild<DTPicker *>("dtCutoff")->setDate({2099, 12, 31});
    setPrintDestination(destination);
    meter.start();
    press(form, "btnPrint");
    meter.stop();
    setPrintDestination({});
}

/// Draws the pages as where there is no printer, two copies of each invoice into a file.
void printedInvoiceRun(Meter &meter)
{
    const QTemporaryDir folder;
    invoiceRun(meter,
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
    const int count = int(customers.size());
    operations.push_back({name + ", without its pages",
                          [](Meter &meter) { invoiceRun(meter, [](Report &, int) { return true; }); },
                          [](BareEngine &engine) { Bare::invoiceRun(engine, today()); }, again, count});
    operations.push_back({name + ", pages drawn", printedInvoiceRun, {}, again, count});
}

} // namespace

std::vector<Operation> savingOperations()
{
    std::vector<Operation> operations{orderSaves(), shipmentSaves()};
    addInvoiceRuns(operations);
    return operations;
}
