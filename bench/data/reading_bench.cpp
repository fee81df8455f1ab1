#include "bench/bare/engine.h"
#include "bench/data/workingcopy.h"
#include "data/dao/database.h"
#include "data/engines/sqlite/dialect.h"
#include "data/jetsql/translator.h"
#include <benchmark/benchmark.h>

namespace {

std::unique_ptr<Database> open(const QString &path)
{
    return DBEngine::OpenDatabase(path, false, false, QStringLiteral(";pwd=QZV"));
}

QStringList customers(Database &database)
{
    QStringList names;
    for (Recordset rows = database.OpenRecordset("SELECT Customer FROM Customer"); !rows.Eof(); rows.MoveNext())
        names += rows.Fields(0).text();
    return names;
}

void walk(benchmark::State &state)
{
    const WorkingCopy copy;
    const auto database = open(copy.path());
    qint64 rowCount = 0;
    for (auto _ : state) {
        for (Recordset rows = database->OpenRecordset("SELECT * FROM OrderItem"); !rows.Eof(); rows.MoveNext()) {
            benchmark::DoNotOptimize(rows.Fields("Qty").value().toDouble());
            benchmark::DoNotOptimize(rows.Fields("PartNo").value());
            ++rowCount;
        }
    }
    state.SetItemsProcessed(rowCount);
}
BENCHMARK(walk)->Unit(benchmark::kMillisecond);

void walkBare(benchmark::State &state)
{
    const WorkingCopy copy;
    BareEngine bare(copy.path());
    BareEngine::Statement rows(bare, "SELECT * FROM OrderItem");
    qint64 rowCount = 0;
    for (auto _ : state) {
        for (; rows.step(); ++rowCount) {
            benchmark::DoNotOptimize(rows.number(2));
            benchmark::DoNotOptimize(QString::fromUtf8(rows.view(3)));
        }
        rows.reset();
    }
    state.SetItemsProcessed(rowCount);
}
BENCHMARK(walkBare)->Unit(benchmark::kMillisecond);

/// A key looked up at a keystroke: another text each time, so that nothing prepared before helps.
void lookup(benchmark::State &state)
{
    const WorkingCopy copy;
    const auto database = open(copy.path());
    const QStringList names = customers(*database);
    qsizetype next = 0;
    for (auto _ : state) {
        Recordset rows =
            database->OpenRecordset("SELECT * FROM Customer WHERE Customer = '" + names[next++ % names.size()] + "'");
        benchmark::DoNotOptimize(rows.Eof());
        benchmark::DoNotOptimize(rows.Fields("City").value());
    }
}
BENCHMARK(lookup)->Unit(benchmark::kMicrosecond);

void lookupBare(benchmark::State &state)
{
    const WorkingCopy copy;
    const QStringList names = customers(*open(copy.path()));
    BareEngine bare(copy.path());
    BareEngine::Statement rows(bare, "SELECT * FROM Customer WHERE Customer = ?");
    qsizetype next = 0;
    for (auto _ : state) {
        rows.bind(1, names[next++ % names.size()].toUtf8());
        rows.step();
        benchmark::DoNotOptimize(QString::fromUtf8(rows.view(3)));
        rows.reset();
    }
}
BENCHMARK(lookupBare)->Unit(benchmark::kMicrosecond);

void translate(benchmark::State &state, const char *sql)
{
    Catalog catalog;
    const WorkingCopy copy;
    const auto database = open(copy.path());
    for (const TableDef &table : database->TableDefs())
        catalog.add(table);
    const QString statement = sql;
    for (auto _ : state)
        benchmark::DoNotOptimize(jetsql::translate(statement, catalog, sqliteDialect()).sql);
}
BENCHMARK_CAPTURE(translate, lookup, "SELECT * FROM Customer WHERE Customer = 'Acme'")->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(translate, update, "UPDATE Shipment SET InvoiceDate = #3/30/2011# WHERE ID IN (17, 18)")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(translate, join,
                  "SELECT Orders.ID, OrderNumber, Via FROM (Orders LEFT JOIN OrderItem ON Orders.ID = "
                  "OrderItem.OrderID) LEFT JOIN Shipment ON Orders.ID = Shipment.OrderID WHERE Orders.ID = 5")
    ->Unit(benchmark::kMicrosecond);

void opening(benchmark::State &state)
{
    const WorkingCopy copy;
    for (auto _ : state)
        benchmark::DoNotOptimize(open(copy.path()));
}
BENCHMARK(opening)->Unit(benchmark::kMillisecond);

} // namespace
