#include "bench/data/barefile.h"
#include "data/dao/database.h"
#include <QFileInfo>
#include <benchmark/benchmark.h>

namespace {

constexpr int Lines = 6;

std::unique_ptr<Database> open(const QString &path)
{
    return DBEngine::OpenDatabase(path, false, false, QStringLiteral(";pwd=QZV"));
}

/// An order of six lines, saved as the order form does it, with the sync at its end left out on both sides.
void saveOrder(benchmark::State &state)
{
    const WorkingCopy copy;
    const auto database = open(copy.path());
    for (auto _ : state) {
        Recordset orders = database->OpenRecordset("SELECT * FROM Orders");
        orders.AddNew();
        const QString id = orders.Fields("ID").text();
        for (const char *field : {"OrderNumber", "Customer", "Warehouse", "Status", "ShipTo", "ShipToCity"})
            orders.Fields(field) = "Some text";
        orders.Fields("OrderDate") = Date(2011, 3, 30);
        orders.Fields("DueDate") = Date(2011, 4, 30);
        orders.Fields("Total") = "$1,234.50";
        orders.Update();
        orders.Close();
        database->Execute("DELETE FROM OrderItem WHERE OrderID = " + id);
        Recordset lines = database->OpenRecordset("SELECT * FROM OrderItem WHERE OrderID = " + id);
        for (int line = 1; line <= Lines; ++line) {
            lines.AddNew();
            lines.Fields("OrderID") = id;
            lines.Fields("ItemNumber") = QString::number(line);
            lines.Fields("Qty") = "10";
            lines.Fields("PartNo") = "Part";
            lines.Fields("Category") = "Category";
            lines.Fields("PriceEach") = "2.5";
            lines.Fields("PriceExt") = "25";
            lines.Fields("CustomerNumber") = "";
            lines.Update();
        }
    }
}
BENCHMARK(saveOrder)->Unit(benchmark::kMicrosecond);

void saveOrderBare(benchmark::State &state)
{
    const WorkingCopy copy;
    BareConnection bare(copy.path());
    sqlite3_stmt *order =
        bare.prepare("INSERT INTO Orders (OrderNumber, Customer, Warehouse, Status, ShipTo, ShipToCity, OrderDate,"
                     " DueDate, Total) VALUES ('Some text', 'Some text', 'Some text', 'Some text', 'Some text',"
                     " 'Some text', '2011-03-30 00:00:00', '2011-04-30 00:00:00', 1234.5) RETURNING ID");
    sqlite3_stmt *drop = bare.prepare("DELETE FROM OrderItem WHERE OrderID = ?");
    sqlite3_stmt *line = bare.prepare("INSERT INTO OrderItem VALUES (?, ?, 10.0, 'Part', 'Category', 2.5, 25.0, '')");
    for (auto _ : state) {
        sqlite3_step(order);
        const qint64 id = sqlite3_column_int64(order, 0);
        sqlite3_step(order);
        sqlite3_reset(order);
        sqlite3_bind_int64(drop, 1, id);
        sqlite3_step(drop);
        sqlite3_reset(drop);
        for (int number = 1; number <= Lines; ++number) {
            sqlite3_bind_int64(line, 1, id);
            sqlite3_bind_int(line, 2, number);
            sqlite3_step(line);
            sqlite3_reset(line);
        }
    }
    for (sqlite3_stmt *statement : {order, drop, line})
        sqlite3_finalize(statement);
}
BENCHMARK(saveOrderBare)->Unit(benchmark::kMicrosecond);

/// The invoice dates of all shipments filled in anew: a statement for each invoice while the invoices are walked.
void refill(benchmark::State &state)
{
    const WorkingCopy copy;
    const auto database = open(copy.path());
    qint64 statements = 0, log = 0;
    for (auto _ : state) {
        Recordset invoices = database->OpenRecordset("SELECT * FROM Invoice WHERE Shipment <> '0' Order By Shipment");
        for (; !invoices.Eof(); invoices.MoveNext(), ++statements) {
            database->Execute("UPDATE Shipment SET InvoiceDate = #" + invoices.Fields("InvoiceDate").text() +
                              "# WHERE ID IN (" + invoices.Fields("Shipment").text() + ")");
        }
        log = std::max(log, QFileInfo(copy.path() + "-wal").size());
    }
    state.SetItemsProcessed(statements);
    state.counters["log MB"] = double(log) / (1 << 20);
}
BENCHMARK(refill)->Unit(benchmark::kMillisecond)->Iterations(1);

void refillBare(benchmark::State &state)
{
    const WorkingCopy copy;
    BareConnection bare(copy.path());
    qint64 statements = 0;
    for (auto _ : state) {
        sqlite3_stmt *invoices = bare.prepare("SELECT InvoiceDate, Shipment FROM Invoice WHERE Shipment <> '0'"
                                              " ORDER BY Shipment");
        std::vector<QByteArray> updates;
        while (sqlite3_step(invoices) == SQLITE_ROW) {
            updates.push_back("UPDATE Shipment SET InvoiceDate = '" +
                              QByteArray(reinterpret_cast<const char *>(sqlite3_column_text(invoices, 0))) +
                              "' WHERE ID IN (" +
                              QByteArray(reinterpret_cast<const char *>(sqlite3_column_text(invoices, 1))) + ")");
        }
        sqlite3_finalize(invoices);
        for (const QByteArray &update : updates)
            bare.run(update.constData());
        statements += qint64(updates.size());
    }
    state.SetItemsProcessed(statements);
}
BENCHMARK(refillBare)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
