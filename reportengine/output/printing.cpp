#include "reportengine/output/printing.h"

#include "data/values/clock.h"
#include "data/values/runtimeerror.h"
#include "reportengine/output/exports.h"
#include "reportengine/output/pagepainter.h"
#include "reportengine/pages/reportpages.h"
#include "reportengine/pages/textmetrics.h"
#include "reportengine/report.h"
#include <QCoreApplication>
#include <QDir>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

constexpr int Copies = 2;

PrintDestination &destination()
{
    static PrintDestination current;
    return current;
}

bool printToSystem(Report &report, int copies)
{
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) {
        const QString folder = QCoreApplication::applicationDirPath() + "/printed";
        return !printToFolder(report, copies, folder).isEmpty();
    }
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setCopyCount(copies);
    printer.setCollateCopies(true);
    return printPages(report, printer, 0, report.pages().pageCount() - 1);
}

/// Draws the sheets one after another, each copy whole before the next begins.
bool paintSheets(QPrinter &printer, ReportPages &pages, int from, int to, int copies)
{
    QPainter painter;
    if (!painter.begin(&printer))
        return false;
    const double scale = printer.resolution() / (72 * TextMetrics::UnitsPerPoint);
    painter.scale(scale, scale);
    for (int copy = 0; copy < copies; ++copy) {
        for (int page = from; page <= to; ++page) {
            if ((copy > 0 || page > from) && !printer.newPage())
                return false;
            paintPage(*pages.page(page), painter);
        }
    }
    return painter.end() && printer.printerState() != QPrinter::Error;
}

} // namespace

void setPrintDestination(PrintDestination wanted)
{
    destination() = std::move(wanted);
}

void printOut(Report &report)
{
    const bool done = destination() ? destination()(report, Copies) : printToSystem(report, Copies);
    if (!done)
        throw runtimeError(482);
}

bool printPages(Report &report, QPrinter &printer, int from, int to)
{
    printer.setDocName(report.layout().title);
    printer.setFullPage(true);
    printer.setPageSize(QPageSize(QPageSize::Letter));
    printer.setPageOrientation(report.layout().landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
    ReportPages &pages = report.pages();
    const int last = std::min(to, pages.pageCount() - 1);
    // A printer that can't repeat a job is given every copy.
    const int copies = printer.supportsMultipleCopies() ? 1 : printer.copyCount();
    return paintSheets(printer, pages, from, last, copies);
}

QString printToFolder(Report &report, int copies, const QString &folder)
{
    if (!QDir().mkpath(folder))
        return {};
    QString document = report.layout().title;
    document.remove(' ');
    const QString stem = folder + "/" + document + "-" + Clock::now().toString("yyyyMMdd-HHmmss") + "-";
    int number = 1;
    while (QFile::exists(stem + QString::number(number) + ".pdf"))
        ++number;
    const QString path = stem + QString::number(number) + ".pdf";
    return writePdf(report, path, copies) ? path : QString();
}
