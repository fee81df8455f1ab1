#pragma once

#include "reportengine/output/outcome.h"
#include <vector>

class QPrinter;
class Report;

/// Prints a report without a prompt, two copies, to the system's default printer; with no printer on the machine as a
/// PDF into `printed/` beside the program. Error 482 when printing fails.
void PrintOut(Report &report);

/// Prints pages (by index, in the order given; none: all) as the printer was told: its paper, orientation, copies and
/// whatever else its dialog has set; into a PDF file when it was told a file's name.
Outcome printPages(Report &report, QPrinter &printer, const std::vector<int> &pages, const Progress &progress = {});

/// Where PrintOut sends documents, and what a test puts in its place. Answers whether it was done.
using PrintDestination = std::function<bool(Report &report, int copies)>;
/// An empty function restores the system's default printer, or the folder `printed/` where there is none.
void setPrintDestination(PrintDestination destination);

/// Writes the document with every copy in it as a PDF into that folder, which is made if it is missing; answers the
/// file's path, or nothing when it failed. The name tells document, time and number: "Invoice-20110330-140509-1.pdf".
QString printToFolder(Report &report, int copies, const QString &folder);
