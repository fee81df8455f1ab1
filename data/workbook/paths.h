#pragma once

#include <QString>

/// Where the workbooks of the earlier bookkeeping lie; empty where none is named.
struct WorkbookPaths
{
    QString InvoiceWorkbookPath;
    QString CustomerWorkbookPath;
    QString ProductionWorkbookPath;
    QString TransferWorkbookPath;
    QString SoldWorkbookPath;
};

/// Reads `workbooks.txt` in the program's folder: a label and a path on each of five lines. Without the file all are
/// empty; a file that ends early is error 62. A path that is not absolute counts from the program's folder.
WorkbookPaths workbookPaths();
