#include "tests/reports/reporttest.h"
#include "reportengine/rows/rowstore.h"
#include "reportengine/viewer/crviewer.h"
#include "reportengine/viewer/viewer.h"
#include "reports/dialogs/reportdialogs.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/forms/mainmod.h"
#include <QCoreApplication>

int insert(const char *table, const Cells &cells)
{
    return addRow(table, cells).toInt();
}

int addOrder(const QString &customer, const QString &warehouse, const QString &status)
{
    return insert("Orders", {{"OrderNumber", "N"},
                             {"Customer", customer},
                             {"Warehouse", warehouse},
                             {"Status", status},
                             {"OrderDate", "1/2/2010"}});
}

void addLine(int order, int line, const QString &part, double qty, double price)
{
    insert("OrderItem",
           {{"OrderID", order}, {"ItemNumber", line}, {"PartNo", part}, {"Qty", qty}, {"PriceEach", price}});
}

int addShipment(int order, const QString &date, bool invoiced, double freight, double adjustment)
{
    return insert(
        "Shipment",
        {{"OrderID", order}, {"Date", date}, {"Invoiced", invoiced}, {"Freight", freight}, {"Adjustment", adjustment}});
}

void ship(int shipment, int order, int line, int qty)
{
    insert("ShipmentItems", {{"ShipmentID", shipment}, {"OrderID", order}, {"OrderLineItem", line}, {"Qty", qty}});
}

int addInvoice(const QString &customer, const QString &date, const QString &shipments, double total)
{
    const int id = insert("Invoice", {{"Customer", customer},
                                      {"InvoiceDate", date},
                                      {"DueDate", date},
                                      {"Terms", "Net 30"},
                                      {"Shipment", shipments},
                                      {"Total", total}});
    gDatabase->Execute(QString("UPDATE Invoice SET Invoice = '%1' WHERE ID = %1").arg(id));
    return id;
}

int addPayment(int invoice, const QString &date, double amount, double adjustment)
{
    return insert("Payments", {{"Invoice", invoice}, {"Date", date}, {"Amount", amount}, {"Adjustment", adjustment}});
}

int addAdjustment(const QString &warehouse, const QString &date, const QString &part, double qty)
{
    const int id = insert("AdjustmentHeader", {{"Warehouse", warehouse}, {"Date", date}, {"DateAdded", date}});
    insert("AdjustmentDetail", {{"AdjustmentID", id}, {"PartNo", part}, {"Qty", qty}});
    return id;
}

static QString rowText(const std::vector<Value> &values)
{
    QStringList texts;
    for (const Value &value : values) {
        const bool isNumber = value.type() == Value::Type::Double || value.type() == Value::Type::Long ||
                              value.type() == Value::Type::Currency;
        texts += isNumber ? textOf(std::round(value.toDouble() * 1e6) / 1e6) : value.joined();
    }
    return texts.join('|');
}

ProgramFolder::ProgramFolder() : m_lock(filePath("reports-test.lock"))
{
    m_lock.setStaleLockTime(0);
    m_lock.lock();
}

QString ProgramFolder::filePath(const QString &file) const
{
    return QCoreApplication::applicationDirPath() + "/" + file;
}

ReportTest::ReportTest()
{
    for (const auto &[name, factory] : reportForms())
        Forms::add(name, factory);
    Forms::setHost([this](Form *form) { shown += form; });
}

ReportTest::~ReportTest()
{
    Forms::unloadAll();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    Forms::setHost({});
    setDefaultPointer();
}

const Report &ReportTest::report() const
{
    return *static_cast<Viewer *>(shown.last())->viewer()->reportSource();
}

QStringList ReportTest::rows() const
{
    const RowStore &store = report().rows();
    QStringList result;
    for (int row = 0; row < store.rowCount(); ++row) {
        std::vector<Value> values;
        for (int field = 0; field < int(store.dataset().size()); ++field)
            values.push_back(store.value(row, field));
        result += rowText(values);
    }
    return result;
}

QString ReportTest::textOf(const QString &object) const
{
    for (const TextParameter &parameter : report().layout().parameters) {
        if (parameter.name == object)
            return parameter.text;
    }
    ADD_FAILURE() << "no text object " << object.toStdString();
    return {};
}

bool ReportTest::isSuppressed(const QString &object) const
{
    for (const TextParameter &parameter : report().layout().parameters) {
        if (parameter.name == object)
            return parameter.suppress;
    }
    for (const Section &section : report().layout().sections) {
        if (section.name == object)
            return section.suppress;
    }
    ADD_FAILURE() << "no object or section " << object.toStdString();
    return false;
}
