#include "reportengine/viewer/finder.h"

#include "reportengine/pages/reportpages.h"
#include "reportengine/viewer/pagetext.h"
#include <QElapsedTimer>
#include <numeric>

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

int Finder::wrapped(int page) const
{
    const int pages = int(m_counts.size());
    return (page + pages) % pages;
}

std::optional<Finder::Place> Finder::next(int page)
{
    if (m_current && m_current->index + 1 < countOn(m_current->page)) {
        ++m_current->index;
        return m_current;
    }
    const int first = m_current ? m_current->page + 1 : page;
    for (int step = 0; step < int(m_counts.size()); ++step) {
        if (const int at = wrapped(first + step); countOn(at) > 0)
            return m_current = Place{at, 0};
    }
    return m_current = std::nullopt;
}

std::optional<Finder::Place> Finder::previous(int page)
{
    if (m_current && m_current->index > 0) {
        --m_current->index;
        return m_current;
    }
    const int first = m_current ? m_current->page - 1 : page;
    for (int step = 0; step < int(m_counts.size()); ++step) {
        if (const int at = wrapped(wrapped(first) - step); countOn(at) > 0)
            return m_current = Place{at, countOn(at) - 1};
    }
    return m_current = std::nullopt;
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
