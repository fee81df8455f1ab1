#include "reportengine/output/printing.h"

#include "data/values/clock.h"
#include "data/values/runtimeerror.h"
#include "reportengine/output/exports.h"
#include "reportengine/output/systemprinter.h"
#include "reportengine/report.h"
#include "toolkit/controls/statusline.h"
#include "toolkit/forms/mainmod.h"
#include <QCoreApplication>
#include <QDir>
#include <QPrinter>

namespace {

constexpr int Copies = 2;

PrintDestination &destination()
{
    static PrintDestination current;
    return current;
}

/// "packing slip"
QString nameInText(Report &report)
{
    return report.layout().title.toLower();
}

/// A machine without any printer keeps the document, so that the goods can still leave.
Outcome keep(Report &report, int copies)
{
    const QString path = printToFolder(report, copies, QCoreApplication::applicationDirPath() + "/printed");
    if (path.isEmpty())
        return Outcome::failed("There is no printer, and the folder \"printed\" takes no file.");
    showStatus("No printer: the " + nameInText(report) + " was kept in printed/" + QFileInfo(path).fileName());
    return {};
}

Outcome printToSystem(Report &report, int copies)
{
    const SystemPrint print = printToDefault(report, copies);
    if (print.noPrinterAtAll)
        return keep(report, copies);
    if (print.outcome)
        showStatus(print.told);
    return print.outcome;
}

} // namespace

void setPrintDestination(PrintDestination wanted)
{
    destination() = std::move(wanted);
}

void PrintOut(Report &report)
{
    // The rows are on the disk before paper tells of them.
    syncDatabase();
    const Outcome outcome = !destination()                  ? printToSystem(report, Copies)
                            : destination()(report, Copies) ? Outcome()
                                                            : Outcome::failed("refused");
    if (!outcome)
        throw runtimeError(482, {}, outcome.reason);
}

Outcome printPages(Report &report, QPrinter &printer, const std::vector<int> &pages, const Progress &progress)
{
    syncDatabase();
    // The dialog was told a file: neither printer nor server has a part in it.
    if (!printer.outputFileName().isEmpty()) {
        const PdfSheets sheets{.pages = pages, .copies = printer.copyCount(), .paper = printer.pageLayout()};
        const Outcome outcome = writePdf(report, printer.outputFileName(), sheets, progress);
        if (outcome)
            showStatus("Printed to " + printer.outputFileName());
        return outcome;
    }
    const SystemPrint print = printTo(printer, report, pages, progress);
    if (print.outcome)
        showStatus(print.told);
    return print.outcome;
}

QString printToFolder(Report &report, int copies, const QString &folder)
{
    if (!QDir().mkpath(folder))
        return {};
    QString document = report.layout().title;
    document.remove(' ');
    const QString stem = folder + "/" + document + "-" + Clock::now().toString("yyyyMMdd-HHmmss") + "-";
    int number = 1;
    // Several documents of one second get numbers.
    while (QFile::exists(stem + QString::number(number) + ".pdf"))
        ++number;
    const QString path = stem + QString::number(number) + ".pdf";
    return writePdf(report, path, {.copies = copies}) ? path : QString();
}
