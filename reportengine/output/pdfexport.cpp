#include "reportengine/output/exports.h"

#include "reportengine/output/newfile.h"
#include "reportengine/output/pagepainter.h"
#include "reportengine/output/pdfoutline.h"
#include "reportengine/pages/reportpages.h"
#include "reportengine/pages/textmetrics.h"
#include "reportengine/report.h"
#include <QPainter>
#include <QPdfWriter>

namespace {

constexpr size_t MostOutlineEntries = 20000; ///< more than anyone opens; deeper levels stay out first

/// The groups in the order of their pages, as deep as the limit allows.
std::vector<PdfOutlineEntry> outlineOf(const ReportPages &pages)
{
    const Grouping &groups = pages.groups();
    int levels = 0;
    size_t entries = 0;
    while (levels < groups.levels() && (entries += groups.nodes(levels).size()) <= MostOutlineEntries)
        ++levels;

    std::vector<PdfOutlineEntry> outline;
    const std::function<void(int, int)> add = [&](int level, int node) {
        outline.push_back({pages.groupLabel(level, node), pages.pageOfGroup(level, node), level});
        if (level + 1 == levels)
            return;
        const auto &below = groups.nodes(level + 1);
        const int end = groups.nodes(level)[node].end;
        for (int child = groups.nodeAt(level + 1, groups.nodes(level)[node].first);
             child < int(below.size()) && below[child].first < end; ++child)
            add(level + 1, child);
    };
    for (int node = 0; levels > 0 && node < int(groups.nodes(0).size()); ++node)
        add(0, node);
    return outline;
}

bool paintAll(QPdfWriter &writer, ReportPages &pages, int copies)
{
    QPainter painter(&writer);
    if (!painter.isActive())
        return false;
    const int count = pages.pageCount();
    for (int sheet = 0; sheet < count * copies; ++sheet) {
        if (sheet > 0 && !writer.newPage())
            return false;
        paintPage(*pages.page(sheet % count), painter);
    }
    return painter.end();
}

} // namespace

bool writePdf(Report &report, const QString &path, int copies)
{
    NewFile file(path);
    if (!file.open())
        return false;
    {
        QPdfWriter writer(file.device());
        writer.setTitle(report.layout().title);
        writer.setCreator("Tamrick");
        writer.setResolution(int(72 * TextMetrics::UnitsPerPoint));
        writer.setPageSize(QPageSize(QPageSize::Letter));
        writer.setPageOrientation(report.layout().landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
        writer.setPageMargins(QMarginsF());
        if (!paintAll(writer, report.pages(), copies))
            return false;
    }
    const std::vector<PdfOutlineEntry> outline = outlineOf(report.pages());
    if (!outline.empty() && !addPdfOutline(*file.device(), outline))
        return false;
    return file.commit();
}
