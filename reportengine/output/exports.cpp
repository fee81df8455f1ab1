#include "reportengine/output/exports.h"

#include <QFileInfo>

bool exportReport(Report &report, const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    if (suffix == "pdf")
        return writePdf(report, path);
    if (suffix == "xlsx")
        return writeXlsx(report, path);
    if (suffix == "csv")
        return writeCsv(report, path);
    return false;
}
