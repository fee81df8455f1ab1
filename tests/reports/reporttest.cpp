#include "tests/reports/reporttest.h"

#include "data/values/numbers.h"
#include "reportengine/rows/rowstore.h"
#include <QCoreApplication>

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
    database.execute("UPDATE Customer SET Territory = 'North', Phone = '555-3', Fax = '555-4', Address1 = '1 Road', "
                     "City = 'Akron' WHERE Customer = 'Acme Rail'");
    database.execute("UPDATE Customer SET Territory = 'East' WHERE Customer = 'Birch Mill'");
}

QString ReportTest::addInvoice(const char *customer, const char *date, const QString &shipments, double total)
{
    const QString id = addRow("Invoice", {{"Customer", customer},
                                          {"InvoiceDate", date},
                                          {"DueDate", date},
                                          {"Terms", "Net 30"},
                                          {"Shipment", shipments},
                                          {"Total", total}});
    database.execute(QString("UPDATE Invoice SET Invoice = '%1' WHERE ID = %1").arg(id));
    return id;
}

QString ReportTest::addPayment(const QString &invoice, const char *date, double amount, double adjustment)
{
    return addRow("Payments", {{"Invoice", invoice}, {"Date", date}, {"Amount", amount}, {"Adjustment", adjustment}});
}

QString ReportTest::addAdjustment(const char *warehouse, const char *date, const char *part, double qty)
{
    const QString id = addRow("AdjustmentHeader", {{"Warehouse", warehouse}, {"Date", date}, {"DateAdded", date}});
    addRow("AdjustmentDetail", {{"AdjustmentID", id}, {"PartNo", part}, {"Qty", qty}});
    return id;
}

QString ReportTest::addTransfer(const char *from, const char *to, const char *date, const char *part, double qty)
{
    const QString out = addAdjustment(from, date, part, -qty);
    return addRow("TransferHeader", {{"FromID", out}, {"ToID", addAdjustment(to, date, part, qty)}});
}

QStringList ReportTest::rowsOf(const Report &report, int from, int to)
{
    const RowStore &store = report.rows();
    QStringList result;
    for (int row = 0; row < store.rowCount(); ++row) {
        QStringList texts;
        for (int field = 0; field < int(store.dataset().size()); ++field) {
            const Value value = store.value(row, field);
            const bool hasDecimals = value.type() == Value::Type::Double;
            texts += hasDecimals ? textOf(std::round(value.toDouble() * 1e6) / 1e6) : value.joined();
        }
        result += texts.mid(from, to < 0 ? -1 : to - from + 1).join('|');
    }
    return result;
}

QString ReportTest::shown(const QString &names) const
{
    std::map<QString, QString> all;
    for (const TextParameter &text : report().layout().parameters)
        all[text.name] = text.suppress ? "hidden" : text.text;
    for (const Section &section : report().layout().sections)
        all[section.name] = section.suppress ? "hidden" : "shown";
    QStringList texts;
    for (const QString &name : names.split(' '))
        texts += all.at(name);
    return texts.join('|');
}
