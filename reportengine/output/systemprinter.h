#pragma once

#include "reportengine/output/outcome.h"
#include <vector>

class QPrinter;
class Report;

// The printers of the system. Where it has a print server the finished pages go to that as one PDF file, and nothing
// counts as printed before the server has given the job its number; elsewhere the toolkit draws on the printer.

/// How a print ended, and what a user is told of it.
struct SystemPrint
{
    Outcome outcome = {};
    QString told = {};           ///< "Invoice sent to Office (job 12)"
    bool noPrinterAtAll = false; ///< nothing was tried
};

/// Prints the whole report to the default printer, each copy whole before the next.
SystemPrint printToDefault(Report &report, int copies);

/// Prints pages (by index; none: all) with all that was set in the printer.
SystemPrint printTo(QPrinter &printer, Report &report, const std::vector<int> &pages, const Progress &progress);
