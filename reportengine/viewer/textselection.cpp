#include "reportengine/viewer/textselection.h"

#include "reportengine/pages/reportpages.h"

namespace {

/// How far a value lies outside a stretch.
double outside(double value, double from, double to)
{
    return std::max({from - value, value - to, 0.0});
}

} // namespace

std::optional<TextSpot> spotAt(const Page &page, int index, QPointF point)
{
    const auto lines = linesOf(page);
    std::optional<TextSpot> best;
    double bestDistance = 0;
    for (int line = 0; line < int(lines.size()); ++line) {
        for (int text = 0; text < int(lines[line].size()); ++text) {
            const PageItem &item = page.items[lines[line][text]];
            const QRectF ink = placeOf(item, 0, item.text.size());
            // The line counts before the place on it.
            const double distance =
                1000 * outside(point.y(), ink.top(), ink.bottom()) + outside(point.x(), ink.left(), ink.right());
            if (best && distance >= bestDistance)
                continue;
            best = {index, line, text, charactersBefore(item, point.x())};
            bestDistance = distance;
        }
    }
    return best;
}

bool isOnText(const Page &page, QPointF point)
{
    return std::ranges::any_of(page.items, [&](const PageItem &item) {
        // A little around the letters too: who aims between two lines means one of them.
        return item.kind == PageItem::Kind::Text &&
               placeOf(item, 0, item.text.size()).adjusted(-2, -1, 2, 1).contains(point);
    });
}

void TextSelection::takeText(const Page &page, const TextSpot &spot)
{
    m_anchor = m_end = spot;
    m_anchor.character = 0;
    m_end.character = page.items[linesOf(page)[spot.line][spot.text]].text.size();
}

void TextSelection::takePage(const Page &page, int index)
{
    m_anchor = m_end = {.page = index};
    const auto lines = linesOf(page);
    if (lines.empty())
        return;
    const int last = lines.back().back();
    m_end = {index, int(lines.size()) - 1, int(lines.back().size()) - 1, page.items[last].text.size()};
}

TextSelection::Stretch TextSelection::stretchOf(const TextSpot &begin, qsizetype size) const
{
    // Dragged upwards the anchor is the end.
    const auto &[from, to] = std::minmax(m_anchor, m_end);
    TextSpot end = begin;
    end.character = size;
    if (to <= begin || end <= from)
        return {0, 0};
    return {from < begin ? 0 : from.character, end < to ? size : to.character};
}

std::vector<QRectF> TextSelection::places(const Page &page, int index) const
{
    std::vector<QRectF> result;
    const auto [from, to] = std::minmax(m_anchor.page, m_end.page);
    if (isEmpty() || index < from || index > to)
        return result;
    const auto lines = linesOf(page);
    for (int line = 0; line < int(lines.size()); ++line) {
        for (int text = 0; text < int(lines[line].size()); ++text) {
            const PageItem &item = page.items[lines[line][text]];
            const Stretch stretch = stretchOf({index, line, text, 0}, item.text.size());
            if (stretch.first < stretch.end)
                result.push_back(placeOf(item, stretch.first, stretch.end));
        }
    }
    return result;
}

QString TextSelection::text(ReportPages &pages) const
{
    QStringList result;
    const auto [from, to] = std::minmax(m_anchor.page, m_end.page);
    for (int index = from; !isEmpty() && index <= to; ++index) {
        const std::shared_ptr<const Page> page = pages.page(index);
        const auto lines = linesOf(*page);
        for (int line = 0; line < int(lines.size()); ++line) {
            QStringList texts;
            for (int text = 0; text < int(lines[line].size()); ++text) {
                const QString &whole = page->items[lines[line][text]].text;
                const Stretch stretch = stretchOf({index, line, text, 0}, whole.size());
                if (stretch.first < stretch.end)
                    texts.append(whole.mid(stretch.first, stretch.end - stretch.first));
            }
            // Tabs between the texts of a line, so that a table goes into a spreadsheet column by column.
            if (!texts.isEmpty())
                result.append(texts.join('\t'));
        }
    }
    return result.join('\n');
}
