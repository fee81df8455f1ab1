#include "data/workbook/paths.h"
#include "data/values/inputfile.h"
#include <QCoreApplication>
#include <QDir>

WorkbookPaths workbookPaths()
{
    WorkbookPaths paths;
    const QDir folder(QCoreApplication::applicationDirPath());
    const QString file = folder.filePath("workbooks.txt");
    if (!QFile::exists(file))
        return paths;
    InputFile input(file);
    for (QString *path : {&paths.InvoiceWorkbookPath, &paths.CustomerWorkbookPath, &paths.ProductionWorkbookPath,
                          &paths.TransferWorkbookPath, &paths.SoldWorkbookPath}) {
        input.readField(); // the label
        const QString entry = input.readField();
        // A relative path is meant from the program's folder, wherever it was started.
        *path = entry.isEmpty() ? QString() : folder.filePath(entry);
    }
    return paths;
}
