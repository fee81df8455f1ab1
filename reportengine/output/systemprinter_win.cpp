#include "reportengine/output/systemprinter.h"

#ifdef Q_OS_WIN
#include "reportengine/output/pagepainter.h"
#include "reportengine/output/paperplace.h"
#include "reportengine/pages/reportpages.h"
#include "reportengine/pages/textmetrics.h"
#include "reportengine/report.h"
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

/// Draws the sheets one after another, each copy whole before the next begins.
Outcome paintSheets(QPrinter &printer, Report &report, const std::vector<int> &pages, int copies,
                    const Progress &progress)
{
    const Outcome refused = Outcome::failed("The printer refused the job.");
    QPainter painter;
    if (!painter.begin(&printer))
        return refused;
    const double unit = printer.resolution() / (72 * TextMetrics::UnitsPerPoint);
    const PaperPlace place(report.layout(), printer.pageLayout());
    painter.scale(unit, unit);
    place.apply(painter);
    const int perCopy = pages.empty() ? report.pages().pageCount() : int(pages.size());
    for (int i = 0; i < perCopy * copies; ++i) {
        if (i > 0 && !printer.newPage())
            return refused;
        const int inCopy = i % perCopy;
        paintPage(*report.pages().page(pages.empty() ? inCopy : pages[inCopy]), painter);
        if (progress && !progress(i + 1, perCopy * copies)) {
            printer.abort();
            return Outcome::cancelled();
        }
    }
    return painter.end() && printer.printerState() != QPrinter::Error ? Outcome() : refused;
}

} // namespace

SystemPrint printToDefault(Report &report, int copies)
{
    const QPrinterInfo info = QPrinterInfo::defaultPrinter();
    if (info.isNull()) {
        if (QPrinterInfo::availablePrinters().isEmpty())
            return {.noPrinterAtAll = true};
        return {.outcome = Outcome::failed("There is no default printer.")};
    }
    QPrinter printer(info, QPrinter::HighResolution);
    printer.setCopyCount(copies);
    printer.setCollateCopies(true);
    printer.setPageLayout(ownPaper(report.layout()));
    return printTo(printer, report, {}, {});
}

SystemPrint printTo(QPrinter &printer, Report &report, const std::vector<int> &pages, const Progress &progress)
{
    printer.setDocName(report.layout().title);
    printer.setFullPage(true);
    // A printer that can't repeat a job is given every copy.
    const int copies = printer.supportsMultipleCopies() ? 1 : printer.copyCount();
    return {.outcome = paintSheets(printer, report, pages, copies, progress),
            .told = report.layout().title + " sent to " + printer.printerName()};
}
#endif
