#include "bench/campaign/forms/clerk.h"

#include "app/application.h"
#include "app/formlist.h"
#include "data/dao/createdatabase.h"
#include "data/schema/schema.h"
#include "data/values/runtimeerror.h"
#include "reportengine/output/printing.h"
#include "reportengine/report.h"
#include "reportengine/rows/rowstore.h"
#include "tests/support/company.h"
#include "toolkit/forms/forms.h"
#include "toolkit/forms/mainmod.h"
#include <QMessageBox>
#include <iostream>
#include <unistd.h>

namespace {

constexpr auto Part = "AX-100";

std::unique_ptr<Database> open(const QString &file, const QString &connect)
{
    return DBEngine::OpenDatabase(file, false, false, connect);
}

[[noreturn]] void fail(const QString &fault)
{
    std::cerr << "fault: " << fault.simplified().toStdString() << std::endl;
    std::_Exit(1);
}

/// Written in one piece, so that a killed process leaves whole lines, and by the system call that a recorder sees.
void promise(const QString &document)
{
    const QByteArray line = document.toUtf8() + '\n';
    if (::write(STDOUT_FILENO, line.constData(), size_t(line.size())) != line.size())
        std::_Exit(1);
}

/// What is on paper is promised too: a shipment by its slip, an invoice's number by the invoice.
bool handOut(Report &report, int)
{
    for (const TextParameter &parameter : report.layout().parameters) {
        if (parameter.name == u"txtInvoiceNumber")
            promise("paper " + parameter.text);
    }
    const RowStore &rows = report.rows();
    for (size_t field = 0; report.layout().title == u"Packing Slip" && field < rows.dataset().size(); ++field) {
        if (rows.dataset()[field].name == u"SHIPMENT.ID")
            promise("slip " + rows.value(0, int(field)).toText());
    }
    return true;
}

/// Says Yes to the print question. Any other box is one that a person would have been stopped by, unless boxes are to
/// be told of.
class Answers : public QObject
{
public:
    explicit Answers(bool tells) : m_tells(tells) {}

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        auto *box = event->type() == QEvent::Show ? qobject_cast<QMessageBox *>(watched) : nullptr;
        if (!box)
            return false;
        if (m_tells)
            promise("box " + (box->windowTitle() + ": " + box->text()).simplified());
        else if (box->windowTitle() != u"Print Confirmation")
            fail(box->windowTitle() + ": " + box->text());
        QMetaObject::invokeMethod(box->buttons().first(), "click", Qt::QueuedConnection);
        return false;
    }

private:
    bool m_tells;
};

/// What a field of a form shows that has just gone.
template <class Control> QString last(const FormDriver &form, const char *name)
{
    return form.form()->findChild<Control *>(QLatin1String(name))->text();
}

void letFormsGo()
{
    // Report windows are no single instances: each stands until it is closed.
    for (QWidget *widget : QApplication::allWidgets()) {
        if (auto *viewer = qobject_cast<Form *>(widget); viewer && viewer->objectName() == u"Viewer")
            viewer->unload();
    }
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void choose(FormDriver &form, const QString &combo, const QString &entry)
{
    form.choose(combo, entry);
    form.key(Qt::Key_Tab);
}

void saveOrder(int number, bool dropShip)
{
    FormDriver form("frmOrderEntry");
    choose(form, "cmbCustomer", QString("Order %1").arg(number % Clerk::Customers + 1));
    form.type("txtOrderNumber", QString("N-%1").arg(number));
    for (int line = 1; line <= Clerk::LinesPerOrder; ++line) {
        choose(form, "cmbPart", Part);
        form.type("txtQty", "1");
        form.click("btnSaveItem");
    }
    if (dropShip)
        form.click("chkDropShip");
    // A drop shipment is there before its lines are; dated tomorrow it stays out of the other clerk's invoice runs,
    // which would rightly bill what they see of it.
    if (dropShip)
        form.control<DTPicker>("dtOrderDate")->setValue(Date::today().addDays(1));
    form.click("btnSave");
    promise("order " + last<QLabel>(form, "lblID"));
}

void saveStock(const char *formName, const QStringList &warehouses)
{
    FormDriver form(formName);
    const QStringList combos = warehouses.size() == 1 ? QStringList{"cmbWarehouse"} : QStringList{"cmbFrom", "cmbTo"};
    for (int i = 0; i < combos.size(); ++i)
        choose(form, combos[i], warehouses[i]);
    choose(form, "cmbPart", Part);
    form.type("txtAdjustment", "1");
    form.click("btnUpdate");
    form.click("btnSave");
    promise(QString(combos.size() == 1 ? "adjustment " : "transfer ") + last<QLineEdit>(form, "txtID"));
}

/// Whether "Ship All" found anything.
bool hasItems(const FormDriver &form)
{
    for (const QString &row : form.grid("vsfgItems").mid(1))
        if (row.section('|', 3, 3) != u"0")
            return true;
    return false;
}

/// Ships the first order of a customer whole that has anything left: one whose shipment was cut off before the order
/// was closed is still in the list.
void saveShipment(int number)
{
    FormDriver form("frmShipmentEntry");
    choose(form, "cmbCustomer", QString("Ship %1").arg(number % Clerk::Customers + 1));
    auto *orders = form.control<ComboBox>("cmbOrder");
    for (int i = 0; i < orders->listCount(); ++i) {
        choose(form, "cmbOrder", orders->list(i));
        form.click("btnShipAll");
        if (!hasItems(form))
            continue;
        form.click("btnSave");
        promise("shipment " + last<QLineEdit>(form, "txtID"));
        return;
    }
    form.click("btnExit");
}

void runInvoices()
{
    if (gDatabase->OpenRecordset("SELECT ID FROM Shipment WHERE Invoiced = False").Eof())
        return; // the run would say so in a box
    FormDriver form("frmCreateInvoices");
    form.click("btnPrint");
    promise("run 0");
}

void savePayment()
{
    Recordset invoices = gDatabase->OpenRecordset("SELECT Invoice FROM Invoice ORDER BY ID DESC");
    if (invoices.Eof())
        return;
    FormDriver form("frmReceivePayment");
    form.type("txtInvoice", invoices.Fields("Invoice").text());
    form.key(Qt::Key_Tab);
    form.type("txtPayment", "0");
    form.click("btnSave");
    form.click("btnExit");
    promise("payment 0");
}

/// Of this day, in turn; the first six fill scratch tables, the sales also a date in each shipment.
void showReport(int number)
{
    const std::pair<const char *, const char *> dialogs[] = {
        {"frmSalesByCustomer", "btnOK"}, {"frmSalesByPart", "btnOK"},          {"frmSalesByTerritoryCustomer", "btnOK"},
        {"frmSalesByWhsePart", "btnOK"}, {"frmInventorySalesReport", "btnOK"}, {"frmAvailableInventory", "btnOk"},
        {"frmARTranReport", "btnOK"},    {"frmStatementReport", "btnOk"},      {"frmCashReceiptsReport", "btnOK"},
    };
    const auto &[dialog, button] = dialogs[size_t(number) % std::size(dialogs)];
    FormDriver(dialog).click(button);
    promise("report 0");
}

/// By the menu, as an event of its own.
void rebuild(const MDI &mdi)
{
    QMetaObject::invokeMethod(mdi.findChild<QAction *>("RebuildInv"), "trigger", Qt::QueuedConnection);
    QCoreApplication::processEvents();
    promise("rebuild 0");
}

void saveDocument(const QString &role, int number, const MDI &mdi)
{
    if (role == u"orders") {
        saveOrder(number, number % 4 == 0);
        if (number % 5 == 0)
            saveStock("frmInventoryAdjust", {"Main"});
    } else if (role == u"shipments") {
        saveShipment(number);
        if (number % 5 == 0)
            runInvoices();
    } else if (role == u"stock") {
        number % 2 ? saveStock("frmInventoryAdjust", {"Main"}) : saveStock("frmTransfer", {"Main", "North"});
        savePayment();
    } else if (role == u"reports") {
        showReport(number);
    } else if (role == u"order") {
        saveOrder(number, false);
    } else if (role == u"shipment") {
        saveShipment(number);
    } else if (role == u"invoices") {
        runInvoices();
    } else if (role == u"rebuild") {
        rebuild(mdi);
    } else {
        saveStock("frmInventoryAdjust", {"Main"});
        saveStock("frmTransfer", {"Main", "North"});
        saveOrder(number, number % 2 == 0);
        saveShipment(number);
        if (number % 2 == 0)
            runInvoices(); // two customers' shipments in one run
        savePayment();
    }
    letFormsGo();
}

} // namespace

void Clerk::prepare(const QString &file, const QString &connect, int openOrders)
{
    createDatabase(file, Schema::Password.toString());
    gDatabase = open(file, connect);
    // A ledger row that is not there yet would be added by two clerks at once, and then stand twice: nothing locks what
    // is missing.
    for (const char *warehouse : {"Main", "North"}) {
        addRow("Warehouse", {{"Warehouse", warehouse}, {"Status", "Active"}});
        addRow("AvailInv", {{"Whse", warehouse}, {"Part", Part}, {"Avail", 0.0}});
    }
    addRow("Part", {{"PartNo", Part}, {"Category", "Axles"}, {"Cost", 2.5}, {"SalePrice", 4.75}, {"Status", "Active"}});
    for (const char *kind : {"Order", "Ship"})
        for (int i = 1; i <= Customers; ++i)
            addRow("Customer", {{"Customer", QString("%1 %2").arg(kind).arg(i)},
                                {"Status", "Active"},
                                {"Terms", "Net 30"},
                                {"Days", 30}});
    for (int order = 1; order <= openOrders; ++order) {
        const QString id = addRow("Orders", {{"OrderNumber", QString("S-%1").arg(order)},
                                             {"Customer", QString("Ship %1").arg(order % Customers + 1)},
                                             {"Warehouse", "Main"},
                                             {"Status", "Open"},
                                             {"OrderDate", Date::today()},
                                             {"DueDate", Date::today()},
                                             {"Total", LinesPerOrder * 4.75},
                                             {"ShipTo", ""},
                                             {"ShipToAddress1", ""},
                                             {"ShipToAddress2", ""},
                                             {"ShipToCity", ""},
                                             {"ShipToState", ""},
                                             {"ShipToZip", ""}});
        for (int line = 1; line <= LinesPerOrder; ++line)
            addRow("OrderItem", {{"OrderID", id},
                                 {"ItemNumber", line},
                                 {"Qty", 1.0},
                                 {"PartNo", Part},
                                 {"PriceEach", 4.75},
                                 {"PriceExt", 4.75}});
    }
    gDatabase.reset();
}

int Clerk::run(int &argc, char **argv, const QString &file, const QString &connect, const QString &role, int count,
               bool prints, bool endures)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "qt.qpa.*=false"); // what the platform lacks is no fault of the program
    Application application(argc, argv);
    if (!endures)
        Application::setErrorHandler([](const RuntimeError &error) {
            fail(QString("%1 %2\n%3").arg(error.number()).arg(error.description(), error.detail()));
        });
    std::optional<TestClock> clock;
    if (endures) // rows tell of the time
        clock.emplace(QDate::currentDate().toString(Qt::ISODate) + " 12:00:00");
    Answers answers(endures);
    application.installEventFilter(&answers);
    if (!prints)
        setPrintDestination(handOut);
    gDatabase = open(file, connect);
    gDefaultWarehouse = "Main";
    gAutoPriceFlag = "YES";
    registerForms();
    MDI mdi;
    mdi.show();
    QApplication::setActiveWindow(&mdi);
    QCoreApplication::processEvents();

    promise("ready 0");
    std::cin.get(); // all clerks start together
    for (int number = 1; count < 0 || number <= count; ++number)
        saveDocument(role, number, mdi);
    Forms::unloadAll();
    letFormsGo();
    gDatabase.reset();
    return 0;
}
