#include "reportengine/output/exports.h"
#include "reportengine/pages/reportpages.h"
#include "reportengine/report.h"
#include "reports/layouts/catalogue.h"
#include "tests/support/samplerows.h"

#include <QApplication>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace {

constexpr int Rows = 100000;

/// A report with its rows read and its texts filled.
std::unique_ptr<Report> ready(const QString &designer)
{
    auto report = std::unique_ptr<Report>(new Report(newReport(designer)));
    MadeRows rows = sampleRows(designer, Rows);
    report->SetDataSource(rows);
    report->ReadRecords();
    for (const TextParameter &parameter : report->layout().parameters)
        report->object(parameter.name).SetText(parameter.name.contains("Date") ? "4/30/2011" : "3");
    return report;
}

/// Lets the report forget its pages, as a changed text does.
void forget(Report &report)
{
    const QString name = report.layout().sections.back().name;
    report.object(name).setSuppress(false);
}

void firstPage(benchmark::State &state, const QString &designer)
{
    const auto report = ready(designer);
    for (auto _ : state) {
        forget(*report);
        benchmark::DoNotOptimize(report->pages().page(0));
    }
}

void allPageStarts(benchmark::State &state, const QString &designer)
{
    const auto report = ready(designer);
    for (auto _ : state) {
        forget(*report);
        benchmark::DoNotOptimize(report->pages().pageCount());
    }
    state.SetItemsProcessed(state.iterations() * Rows);
}

void pdf(benchmark::State &state, const QString &designer)
{
    const auto report = ready(designer);
    QTemporaryDir folder;
    const int pages = report->pages().pageCount();
    for (auto _ : state) {
        if (!exportReport(*report, folder.filePath("r.pdf")))
            state.SkipWithError("can't write");
    }
    state.SetItemsProcessed(state.iterations() * pages);
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    for (const char *designer :
         {"crptSalesByPart", "crptSalesByWhsePart", "crptSalesByTerritoryCustomer", "crptAvailableInventory",
          "crptOpenInvoicesReport", "crptStatementReport", "crptARTranReport", "crptProductionPartWhse",
          "crptOpenOrders", "crptNewAvailInv", "crptCustomerListing"}) {
        const auto add = [designer](const char *what, auto function) {
            benchmark::RegisterBenchmark((std::string(what) + "/" + designer).c_str(), [=](benchmark::State &state) {
                function(state, designer);
            })->Unit(benchmark::kMillisecond);
        };
        add("first_page", firstPage);
        add("all_page_starts", allPageStarts);
        if (std::string_view(designer) == "crptSalesByPart")
            add("pdf", pdf);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
