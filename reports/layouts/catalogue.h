#pragma once

#include "reportengine/pages/layout.h"
#include "reportengine/report.h"
#include "reportengine/rows/dataset.h"

/// A report of the catalogue: the name routines create it by, the definition file whose base name with `_ttx` is the
/// name of its one table in formulas, the fields of its dataset, and the layout.
struct ReportDesign
{
    QString designer;
    QString definitionFile;
    Dataset dataset;
    Layout (*layout)();
};

/// All reports of the system.
const std::vector<ReportDesign> &reportCatalogue();

/// The design of that name. An unknown name is a programming error.
const ReportDesign &reportDesign(const QString &designer);

/// A new report of that design, as routines make it: "crptPickTicket".
Report newReport(const QString &designer);
