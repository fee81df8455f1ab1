#include "reportengine/output/exports.h"

#include "reportengine/output/newfile.h"
#include "reportengine/output/pagepainter.h"
#include "reportengine/output/paperplace.h"
#include "reportengine/output/pdfoutline.h"
#include "reportengine/pages/reportpages.h"
#include "reportengine/pages/textmetrics.h"
#include "reportengine/report.h"
#include <QPainter>
#include <QPdfWriter>

namespace {

constexpr size_t MostOutlineEntries = 20000; ///< more than anyone opens; deeper levels stay out first

/// The printed groups in the order of their pages, as deep as the limit allows.
std::vector<PdfOutlineEntry> outlineOf(const ReportPages &pages)
{
    const PrintedGroups &printed = pages.printedGroups();
    int levels = 0;
    size_t entries = 0;
    while (levels < int(printed.nodes.size()) && (entries += printed.nodes[levels].size()) <= MostOutlineEntries)
        ++levels;

    std::vector<PdfOutlineEntry> outline;
    std::vector<size_t> next(levels, 0); // by level, in the order of printing
    const std::function<void(int, int)> add = [&](int level, int end) {
        while (next[level] < printed.nodes[level].size()) {
            const int node = printed.nodes[level][next[level]];
            const Grouping::Node &group = pages.groups().nodes(level)[node];
            if (group.first >= end)
                return;
            ++next[level];
            outline.push_back({pages.groupLabel(level, node), printed.pageOf[level][node], level});
            if (level + 1 < levels)
                add(level + 1, group.end);
        }
    };
    // Parents stand before their children and begin on the page of the first of them.
    if (levels > 0)
        add(0, pages.groups().rowCount());
    return outline;
}

/// Counts the pages, which of a long report takes a while. False when it was stopped.
bool countPages(ReportPages &pages, const Progress &progress)
{
    while (!pages.advance(100)) {
        if (progress && !progress(0, 0))
            return false;
    }
    return true;
}

Outcome paintAll(QPdfWriter &writer, Report &report, const PdfSheets &sheets, const PaperPlace &place,
                 const Progress &progress)
{
    ReportPages &pages = report.pages();
    QPainter painter(&writer);
    if (!painter.isActive())
        return Outcome::failed("The pages could not be drawn.");
    place.apply(painter);
    const int perCopy = sheets.pages.empty() ? pages.pageCount() : int(sheets.pages.size());
    for (int i = 0; i < perCopy * sheets.copies; ++i) {
        if (i > 0 && !writer.newPage())
            return Outcome::failed("The pages could not be drawn.");
        const int inCopy = i % perCopy;
        paintPage(*pages.page(sheets.pages.empty() ? inCopy : sheets.pages[inCopy]), painter);
        if (progress && !progress(i + 1, perCopy * sheets.copies))
            return Outcome::cancelled();
    }
    return {};
}

} // namespace

Outcome writePdf(Report &report, const QString &path, const PdfSheets &sheets, const Progress &progress)
{
    NewFile file(path);
    if (!file.open())
        return file.failure();
    // Each page tells how many there are.
    if (!countPages(report.pages(), progress))
        return Outcome::cancelled();
    {
        // The file is whole when the writer goes, and only a whole one can be added to.
        QPdfWriter writer(file.device());
        writer.setTitle(report.layout().title);
        writer.setCreator("Tamrick");
        writer.setResolution(int(72 * TextMetrics::UnitsPerPoint));
        const QPageLayout paper = sheets.paper.isValid() ? sheets.paper : ownPaper(report.layout());
        // Without the margins, which the place on the paper has taken in already.
        writer.setPageLayout({paper.pageSize(), paper.orientation(), QMarginsF()});
        if (Outcome painted = paintAll(writer, report, sheets, PaperPlace(report.layout(), paper), progress); !painted)
            return painted;
    }
    // Entries point at pages by their number in the whole report.
    const std::vector<PdfOutlineEntry> outline =
        sheets.pages.empty() ? outlineOf(report.pages()) : std::vector<PdfOutlineEntry>();
    if (!outline.empty() && !addPdfOutline(*file.device(), outline))
        return file.failure();
    return file.commit();
}
