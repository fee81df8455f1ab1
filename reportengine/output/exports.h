#pragma once

#include "reportengine/output/outcome.h"
#include <QPageLayout>
#include <vector>

class Report;

/// Writes the report to a file of the kind its suffix names: .pdf the pages with real text and an outline of the
/// groups; .xlsx the report as laid out, a row per printed line; .csv the dataset. Anything but Done leaves what stood
/// at the path before.
Outcome exportReport(Report &report, const QString &path, const Progress &progress = {});
/// Whether the path ends like a file that can be written.
bool isExportName(const QString &path);

/// Which of a report's pages stand in a PDF file, how often, and on what paper.
struct PdfSheets
{
    std::vector<int> pages = {}; ///< indices, in the order wanted; none: the whole report
    int copies = 1;              ///< one whole after the other
    QPageLayout paper = {};      ///< pages are fitted to it where it is not their own size; not valid: the report's
};

Outcome writePdf(Report &report, const QString &path, const PdfSheets &sheets = {}, const Progress &progress = {});
Outcome writeXlsx(Report &report, const QString &path, const Progress &progress = {});
Outcome writeCsv(Report &report, const QString &path, const Progress &progress = {});
