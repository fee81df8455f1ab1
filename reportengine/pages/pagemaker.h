#pragma once

#include "reportengine/pages/compiledlayout.h"
#include "reportengine/pages/grouping.h"
#include "reportengine/pages/page.h"
#include "reportengine/pages/totals.h"
#include <optional>

/// Where a page begins: all that is needed to make it, without the pages before it.
struct PageStart
{
    int position = 0;  ///< of the first row in printing order; the number of rows when only the report's end is left
    int step = 0;      ///< how many of that row's sections stand on earlier pages already
    int countBase = 0; ///< index of the page that counts as page 1
    std::vector<double> running = {}; ///< running totals before the row
};

/// The groups that print anything, as the paging comes upon them.
struct PrintedGroups
{
    /// By level and node the index of the page on which the group begins; -1: none, or not known yet.
    std::vector<std::vector<int>> pageOf = {};
    /// By level the nodes that are known to be printed, in order.
    std::vector<std::vector<int>> nodes = {};

    void note(int level, int node, int page)
    {
        if (int &known = pageOf[level][node]; known < 0) {
            known = page;
            nodes[level].push_back(node);
        }
    }
};

/// Puts sections on pages. One page at a time, from its start to the next one's.
class PageMaker
{
public:
    /// `context` tells formulas the rows and whatever else does not change from page to page; the totals join it here.
    PageMaker(const CompiledLayout &layout, const Grouping &grouping, const Totals &totals,
              const FormulaContext &context);

    PageStart firstStart() const;

    /// Finds where the next page starts; nothing behind the last one. Fills `page` unless it is null, and notes in
    /// `printed` (unless it is null) the groups that begin on this page. `pageCount` is what
    /// "of m" prints, 0 while it is not known.
    std::optional<PageStart> make(const PageStart &start, int index, int pageCount, Page *page,
                                  PrintedGroups *printed = nullptr) const;

    /// Gives all sections as if on one endless page: report header, page header, rows, report footer. Items lie
    /// relative to the section's top; `row` is the position in printing order. False as soon as the visitor does.
    using Visitor = std::function<bool(const CompiledSection &section, const Page &items, int row)>;
    bool forEachSection(const Visitor &visit) const;

    /// The printed label of a group.
    QString groupLabel(int level, int node) const;

private:
    friend class PageRun;
    using Sections = std::vector<CompiledSection>;

    const CompiledLayout &m_layout;
    const Grouping &m_grouping;
    FormulaContext m_context;
    const Sections &m_details;
    int m_lastPrinted = -1; ///< position of the last row that prints anything
    std::vector<const Sections *> m_headers;
    std::vector<const Sections *> m_footers;
};
