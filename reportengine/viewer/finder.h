#pragma once

#include "reportengine/output/outcome.h"
#include <optional>
#include <vector>

class ReportPages;

/// The places of one text in a report. Pages are searched when they are needed; the count of all grows meanwhile.
class Finder
{
public:
    struct Place
    {
        int page;
        int index; ///< among the page's places, in the order of reading
    };

    /// All pages must be known. They must live as long as the search.
    void start(ReportPages &pages, const QString &text);
    void stop() { *this = {}; }
    const QString &text() const { return m_text; }

    /// The next place after (or before) the last one, round by the report's other end; the first one on or after
    /// `page` when there was none. Nothing when the report does not hold the text, or when the search was stopped.
    std::optional<Place> next(int page, const Progress &progress = {});
    std::optional<Place> previous(int page, const Progress &progress = {});
    const std::optional<Place> &current() const { return m_current; }

    /// Searches on for about that long; true once all pages are.
    bool advance(int milliseconds);
    bool isComplete() const { return m_searched == int(m_counts.size()); }
    /// How many places are known so far.
    int count() const { return m_found; }
    /// The number of the last place among all, from 1, once the pages before it were searched; else 0.
    int ordinal() const;

private:
    int countOn(int page);
    int firstPageWithAny(int from, int direction, const Progress &progress);

    ReportPages *m_pages = nullptr;
    QString m_text;
    std::vector<int> m_counts; ///< by page; -1: not searched yet
    int m_searched = 0;
    int m_found = 0;
    int m_nextToSearch = 0;
    std::optional<Place> m_current;
};
