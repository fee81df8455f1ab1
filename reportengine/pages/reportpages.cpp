#include "reportengine/pages/reportpages.h"

#include "data/values/clock.h"
#include "reportengine/rows/rowstore.h"
#include <QElapsedTimer>

constexpr int PagesKept = 24; ///< more than fit in a window side by side at the smallest zoom

ReportPages::ReportPages(const CompiledLayout &layout, const RowStore &rows) : m_made(PagesKept)
{
    FormulaContext context;
    context.rows = &rows;
    context.parameters = &layout.layout().parameters;
    context.nullsAsDefaults = layout.layout().nullsAsDefaults;
    // One moment for the whole report: the last page tells the same time as the first, whenever it is made.
    context.printed = Clock::now();
    // Groups and totals stand before the first page is made, so that any header can print the total of what follows.
    m_grouping.arrange(layout.groups(), context);
    m_totals.compute(layout.aggregates(), m_grouping, context);
    m_maker = std::make_unique<PageMaker>(layout, m_grouping, m_totals, context);
    m_printed.nodes.resize(m_grouping.levels());
    for (int level = 0; level < m_grouping.levels(); ++level)
        m_printed.pageOf.emplace_back(m_grouping.nodes(level).size(), -1);
    m_starts.push_back(m_maker->firstStart());
}

bool ReportPages::advance(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!m_complete && timer.elapsed() < milliseconds) {
        const int index = int(m_starts.size()) - 1;
        // Only where the pages begin is kept; each is made when somebody looks at it.
        const auto next = m_maker->make(m_starts.back(), index, 0, nullptr, &m_printed);
        if (next) {
            m_starts.push_back(*next);
        } else {
            m_complete = true;
            m_made.clear(); // those made so far lack the number of pages
        }
    }
    return m_complete;
}

int ReportPages::pageCount()
{
    while (!m_complete)
        advance(1000);
    return knownPages();
}

/// The number of pages counted together with that one.
int ReportPages::countFor(int index) const
{
    const int base = m_starts[index].countBase;
    const auto end = std::upper_bound(m_starts.begin(), m_starts.end(), base,
                                      [](int wanted, const PageStart &start) { return wanted < start.countBase; });
    return int(end - m_starts.begin()) - base;
}

std::shared_ptr<const Page> ReportPages::page(int index)
{
    if (const auto *made = m_made.object(index))
        return *made;
    auto page = std::make_shared<Page>();
    m_maker->make(m_starts[index], index, m_complete ? countFor(index) : 0, page.get());
    // Shared, since a page may still be drawn when the cache lets it go.
    m_made.insert(index, new std::shared_ptr<const Page>(page));
    return page;
}
