#include "reportengine/output/exports.h"

#include "toolkit/forms/mainmod.h"
#include <QFileInfo>

namespace {

struct Kind
{
    const char *suffix;
    Outcome (*write)(Report &report, const QString &path, const Progress &progress);
};

constexpr Kind Kinds[] = {
    {"pdf", [](Report &report, const QString &path,
               const Progress &progress) { return writePdf(report, path, {}, progress); }},
    {"xlsx", writeXlsx},
    {"csv", writeCsv},
};

const Kind *kindOf(const QString &path)
{
    const QString suffix = QFileInfo(path).suffix().toLower();
    const auto found = std::ranges::find_if(Kinds, [&](const Kind &kind) { return suffix == kind.suffix; });
    return found == std::end(Kinds) ? nullptr : found;
}

} // namespace

bool isExportName(const QString &path)
{
    return kindOf(path) != nullptr;
}

Outcome exportReport(Report &report, const QString &path, const Progress &progress)
{
    // A file that leaves the program must not tell of rows that a power failure can take back.
    syncDatabase();
    const Kind *kind = kindOf(path);
    return kind ? kind->write(report, path, progress) : Outcome::failed("The name must end in .pdf, .xlsx or .csv.");
}
