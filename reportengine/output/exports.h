#pragma once

#include <QString>

class Report;

/// Writes the report to a file of the kind its suffix names: .pdf the pages with real text and an outline of the
/// groups; .xlsx the report as laid out, a row per printed line; .csv the dataset. False when the suffix is none of
/// these or the file can't be written; what stood at the path before is then still there.
bool exportReport(Report &report, const QString &path);

bool writePdf(Report &report, const QString &path, int copies = 1);
bool writeXlsx(Report &report, const QString &path);
bool writeCsv(Report &report, const QString &path);
