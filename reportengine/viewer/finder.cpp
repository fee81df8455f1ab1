#include "reportengine/viewer/finder.h"

#include "reportengine/pages/reportpages.h"
#include "reportengine/viewer/pagetext.h"
#include <QElapsedTimer>
#include <numeric>

/// Pages are searched when somebody asks for them, outward from the one at hand; what a page holds is counted once.
void Finder::start(ReportPages &pages, const QString &text)
{
    stop();
    m_pages = &pages;
    m_text = text;
    m_counts.assign(pages.knownPages(), -1);
}

int Finder::countOn(int page)
{
    int &count = m_counts[page];
    if (count < 0) {
        count = int(findOn(*m_pages->page(page), m_text).size());
        m_found += count;
        ++m_searched;
    }
    return count;
}

/// The first page from that one on, forwards or backwards and round by the end, that holds the text; -1 for none.
int Finder::firstPageWithAny(int from, int direction, const Progress &progress)
{
    const int pages = int(m_counts.size());
    for (int step = 0; step < pages; ++step) {
        const int page = (from + direction * step + 2 * pages) % pages;
        if (countOn(page) > 0)
            return page;
        if (progress && !progress(step + 1, pages))
            break;
    }
    return -1;
}

std::optional<Finder::Place> Finder::next(int page, const Progress &progress)
{
    if (m_current && m_current->index + 1 < countOn(m_current->page)) {
        ++m_current->index;
        return m_current;
    }
    const int at = firstPageWithAny(m_current ? m_current->page + 1 : page, 1, progress);
    m_current = at < 0 ? std::nullopt : std::optional(Place{at, 0});
    return m_current;
}

std::optional<Finder::Place> Finder::previous(int page, const Progress &progress)
{
    if (m_current && m_current->index > 0) {
        --m_current->index;
        return m_current;
    }
    const int at = firstPageWithAny(m_current ? m_current->page - 1 : page, -1, progress);
    m_current = at < 0 ? std::nullopt : std::optional(Place{at, countOn(at) - 1});
    return m_current;
}

bool Finder::advance(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    for (; m_nextToSearch < int(m_counts.size()) && timer.elapsed() < milliseconds; ++m_nextToSearch)
        countOn(m_nextToSearch);
    return isComplete();
}

int Finder::ordinal() const
{
    if (!m_current || m_nextToSearch < m_current->page)
        return 0;
    return std::accumulate(m_counts.begin(), m_counts.begin() + m_current->page, 0) + m_current->index + 1;
}
