#pragma once

#include "reportengine/pages/pagemaker.h"
#include <QCache>

/// The pages of a report. Paging remembers where each page starts and nothing else; a page itself is made when it is
/// asked for, and the last few are kept.
class ReportPages
{
public:
    /// The arguments must outlive the pages and stay as they are.
    ReportPages(const CompiledLayout &layout, const RowStore &rows);

    /// Goes on with the paging for about that long; true once the last page is known.
    bool advance(int milliseconds);
    bool isComplete() const { return m_complete; }
    /// How many pages are known so far; at least 1.
    int knownPages() const { return int(m_starts.size()); }
    /// All pages; pages the report to its end.
    int pageCount();

    /// A page by index from 0, which must be known. "of m" is printed once the paging is complete.
    std::shared_ptr<const Page> page(int index);

    const Grouping &groups() const { return m_grouping; }
    QString groupLabel(int level, int node) const { return m_maker->groupLabel(level, node); }
    /// The groups that print anything, as far as the paging has come.
    const PrintedGroups &printedGroups() const { return m_printed; }

    /// All sections on one endless page, for spreadsheets. False when the visitor stopped it.
    bool forEachSection(const PageMaker::Visitor &visit) const { return m_maker->forEachSection(visit); }

private:
    int countFor(int index) const;

    Grouping m_grouping;
    Totals m_totals;
    std::unique_ptr<PageMaker> m_maker;
    std::vector<PageStart> m_starts;
    PrintedGroups m_printed;
    QCache<int, std::shared_ptr<const Page>> m_made;
    bool m_complete = false;
};
