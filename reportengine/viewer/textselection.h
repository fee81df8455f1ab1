#pragma once

#include "reportengine/viewer/pagetext.h"

class ReportPages;

/// A place between two characters of a report, in the order of reading.
struct TextSpot
{
    int page = 0;
    int line = 0;
    int text = 0; ///< on the line
    qsizetype character = 0;
    auto operator<=>(const TextSpot &) const = default;
};

/// The spot nearest to a point of the page; nothing on a page without texts.
std::optional<TextSpot> spotAt(const Page &page, int index, QPointF point);
/// Whether a point lies on a text.
bool isOnText(const Page &page, QPointF point);

/// What the user has selected: everything between two spots.
class TextSelection
{
public:
    void clear() { m_anchor = m_end = {}; }
    bool isEmpty() const { return m_anchor == m_end; }
    void begin(const TextSpot &spot) { m_anchor = m_end = spot; }
    void extendTo(const TextSpot &spot) { m_end = spot; }
    /// The whole text that the spot lies in.
    void takeText(const Page &page, const TextSpot &spot);
    /// All texts of a page.
    void takePage(const Page &page, int index);

    /// The selected places of a page.
    std::vector<QRectF> places(const Page &page, int index) const;
    /// As plain text: a line per printed line, tabs between the texts of a line.
    QString text(ReportPages &pages) const;

private:
    /// The characters selected of a text, `first` behind its end or at `end` when there are none.
    struct Stretch
    {
        qsizetype first;
        qsizetype end;
    };
    Stretch stretchOf(const TextSpot &begin, qsizetype size) const;

    TextSpot m_anchor;
    TextSpot m_end;
};
