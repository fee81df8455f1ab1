#include "reportengine/output/systemprinter.h"

#ifndef Q_OS_WIN
#include "reportengine/output/exports.h"
#include "reportengine/output/printserver.h"
#include "reportengine/report.h"
#include <QPrintEngine>
#include <QPrinter>
#include <QTemporaryDir>

namespace {

SystemPrint failed(const QString &reason)
{
    return {.outcome = Outcome::failed(reason)};
}

SystemPrint ended(const PrintServer::Job &job, const QString &title)
{
    if (job.id == 0)
        return failed(job.reason);
    const QString number = "job " + QString::number(job.id);
    return {.told = job.waits ? job.queue + " is stopped: " + number + " (" + title + ") waits there"
                              : title + " sent to " + job.queue + " (" + number + ")"};
}

/// A folder for the file on its way to the server, readable by nobody else.
QString pathIn(const QTemporaryDir &folder)
{
    return folder.filePath("job.pdf");
}

void addSides(PrintServer::Options &options, QPrinter::DuplexMode duplex)
{
    if (duplex == QPrinter::DuplexNone)
        options.push_back({"sides", "one-sided"});
    if (duplex == QPrinter::DuplexLongSide)
        options.push_back({"sides", "two-sided-long-edge"});
    if (duplex == QPrinter::DuplexShortSide)
        options.push_back({"sides", "two-sided-short-edge"});
}

void addCollated(PrintServer::Options &options)
{
    // The first is for today's queues, the second for those driven by a description file.
    options.push_back({"multiple-document-handling", "separate-documents-collated-copies"});
    options.push_back({"Collate", "True"});
}

/// What was set in the printer's dialog, its pages of driver options included.
PrintServer::Options optionsOf(const QPrinter &printer)
{
    PrintServer::Options options{{"media", printer.pageLayout().pageSize().key().toUtf8()}};
    if (printer.collateCopies())
        // Whole copies one after the other, whichever way the queue reads it.
        addCollated(options);
    addSides(options, printer.duplex());
    if (printer.colorMode() == QPrinter::GrayScale)
        options.push_back({"print-color-mode", "monochrome"});
    // The toolkit's dialog leaves names and values in turn under this key, and has no public name for it.
    constexpr auto DialogOptions = QPrintEngine::PrintEnginePropertyKey(0xfe00);
    const QStringList chosen = printer.printEngine()->property(DialogOptions).toStringList();
    for (qsizetype i = 0; i + 1 < chosen.size(); i += 2) {
        // The file holds the wanted pages alone; the server must not choose among them again.
        if (chosen[i] != "page-ranges")
            options.push_back({chosen[i].toUtf8(), chosen[i + 1].toUtf8()});
    }
    return options;
}

} // namespace

SystemPrint printToDefault(Report &report, int copies)
{
    const PrintServer server;
    const QTemporaryDir folder;
    if (Outcome written = writePdf(report, pathIn(folder)); !written)
        return {.outcome = written};
    PrintServer::Options options{{"media", "Letter"}};
    addCollated(options);
    const PrintServer::Job job = server.submit({}, pathIn(folder), report.layout().title, copies, options);
    // Asked only now, since counting the printers of a network takes its time.
    if (job.id == 0 && job.queue.isEmpty() && server.hasNoPrinterAtAll())
        return {.noPrinterAtAll = true};
    return ended(job, report.layout().title);
}

SystemPrint printTo(QPrinter &printer, Report &report, const std::vector<int> &pages, const Progress &progress)
{
    const QTemporaryDir folder;
    const PdfSheets sheets{.pages = pages, .paper = printer.pageLayout()};
    if (Outcome written = writePdf(report, pathIn(folder), sheets, progress); !written)
        return {.outcome = written};
    const PrintServer server;
    return ended(server.submit(printer.printerName(), pathIn(folder), report.layout().title, printer.copyCount(),
                               optionsOf(printer)),
                 report.layout().title);
}
#endif
