#include "tools/check/findings.h"

#include "data/engines/sqlite/connection.h"
#include "data/engines/sqlite/tables.h"
#include "data/values/inputfile.h"
#include "data/values/runtimeerror.h"

// What the file takes and the program ends on, with a run-time error, when it comes upon it.

namespace check {

namespace {

/// Columns that the program reads as a text, date or number where they may not be Null.
struct Required
{
    const char *table, *columns, *row, *when;
};

constexpr Required RequiredColumns[] = {
    {"Customer", "Terms", "Customer", "in the invoice run"},
    {"Orders", "OrderNumber, OrderDate, DueDate", "'ID ' || ID", "where the order is opened"},
    {"Orders", "ShipTo, ShipToAddress1, ShipToAddress2, ShipToCity, ShipToState, ShipToZip", "'ID ' || ID",
     "where the order is shipped"},
    {"Shipment", "Date, Freight, Adjustment", "'ID ' || ID", "where the shipment is opened"},
    {"ShipmentItems", "Qty", "'ShipmentID ' || ShipmentID", "where the shipment is opened"},
    {"Invoice", "Invoice, DueDate, Terms", "'ID ' || ID", "where invoices are printed again"},
    {"Invoice", "Total", "'ID ' || ID", "where a payment is entered"},
    {"AdjustmentHeader", "Date", "'ID ' || ID", "where the adjustment is opened"},
    {"AvailInv", "Avail", "Whse || ' ' || Part", "at the next posting"},
};

void checkRequired(Connection &connection, Findings &findings)
{
    for (const Required &required : RequiredColumns) {
        const QByteArray table = required.table;
        for (QByteArray column : QByteArray(required.columns).split(',')) {
            column = column.trimmed();
            reportRows(connection, findings, QString::fromLatin1(table),
                       QString("no %1 (Null), which ends the program %2")
                           .arg(QLatin1String(column), QLatin1String(required.when)),
                       "SELECT " + QByteArray(required.row) + " FROM " + table + " WHERE " + Tables::quoted(column) +
                           " IS NULL");
        }
    }
}

/// Texts that stand in statements between single quotes.
constexpr std::pair<const char *, const char *> QuotedTexts[] = {{"Customer", "Customer"},
                                                                 {"Part", "PartNo"},
                                                                 {"Part", "Category"},
                                                                 {"Warehouse", "Warehouse"},
                                                                 {"PriceSheet", "PriceSheet"}};

} // namespace

void checkEndings(Connection &connection, Findings &findings)
{
    checkRequired(connection, findings);
    for (const auto &[table, column] : QuotedTexts) {
        const QByteArray name = column;
        reportRows(connection, findings, QString::fromLatin1(table),
                   QString("an apostrophe in %1, which ends the program where it is used").arg(QLatin1String(column)),
                   "SELECT DISTINCT " + name + " FROM " + table + " WHERE instr(" + name + ", '''') > 0");
    }
    reportRows(connection, findings, "Customer",
               "Days that lead beyond the last date there is, which ends the invoice run",
               "SELECT Customer FROM Customer WHERE Days IS NOT NULL AND date('now', Days || ' days') IS NULL");
    // The navigator and the transfer form take an ID as a 16-bit number.
    reportRows(connection, findings, "Orders", "IDs above 32767, whose orders no longer open (error 6)",
               "SELECT 'ID ' || ID FROM Orders WHERE ID > 32767 ORDER BY ID");
    reportRows(connection, findings, "TransferHeader", "a FromID above 32767, whose transfers no longer open (error 6)",
               "SELECT 'ID ' || ID FROM TransferHeader WHERE FromID > 32767 ORDER BY ID");
}

void checkConfig(const QString &config, Connection &connection, Findings &findings)
{
    const QString file = "config.txt";
    InputFile input(config);
    QStringList values;
    try {
        input.readField(); // a heading, then five pairs of a label and a value
        for (int pair = 0; pair < 5; ++pair) {
            input.readField();
            values += input.readField();
        }
    } catch (const RuntimeError &error) {
        findings.add(file, "ends too early, which ends the program at its start", error.description());
        return;
    }
    // An empty one is allowed: order entry then opens without a warehouse.
    const QString warehouse = values[1];
    if (warehouse.isEmpty())
        return;
    QString status;
    PreparedStatement rows = connection.prepare("SELECT Warehouse, coalesce(Status, '') FROM Warehouse", {});
    while (rows.next()) {
        if (rows.text(0).compare(warehouse, Qt::CaseInsensitive) == 0)
            status = rows.text(1).isEmpty() ? "without a status" : rows.text(1);
    }
    if (status.compare(u"Active", Qt::CaseInsensitive) == 0)
        return;
    findings.add(file, "the default warehouse is not an active one, which ends order entry (error 383)",
                 warehouse + (status.isEmpty() ? " does not exist" : " is " + status));
}

} // namespace check
