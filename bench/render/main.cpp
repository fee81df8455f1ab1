// render_report DESIGNER ROWS FILE [name=text ...]
// Writes a report over made-up rows to a PDF, XLSX or CSV file; each name=text fills one of its text objects, each
// -name hides an object or section. For those who work on a layout.

#include "reportengine/output/exports.h"
#include "reportengine/pages/reportpages.h"
#include "reportengine/report.h"
#include "reports/layouts/catalogue.h"
#include "tests/support/pagefaults.h"
#include "tests/support/samplerows.h"
#include <QApplication>
#include <cstdio>

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    if (arguments.size() < 4) {
        std::fputs("usage: render_report DESIGNER ROWS FILE [name=text ...]\n", stderr);
        return 2;
    }
    MadeRows rows = sampleRows(arguments[1], arguments[2].toInt());
    Report report = newReport(arguments[1]);
    report.SetDataSource(rows);
    report.ReadRecords();
    for (const QString &setting : arguments.mid(4)) {
        if (setting.startsWith('-'))
            report.object(setting.mid(1)).setSuppress(true);
        else
            report.object(setting.section('=', 0, 0)).SetText(setting.section('=', 1));
    }
    if (const Outcome outcome = exportReport(report, arguments[3]); !outcome) {
        std::fprintf(stderr, "%s: %s\n", qPrintable(arguments[3]), qPrintable(outcome.reason));
        return 1;
    }
    const int pages = report.pages().pageCount();
    std::printf("%d pages\n", pages);
    for (int page = 0; page < pages; ++page) {
        for (const QString &fault : pageFaults(*report.pages().page(page), report.layout().margins))
            std::printf("page %d: %s\n", page + 1, qPrintable(fault));
    }
    return 0;
}
