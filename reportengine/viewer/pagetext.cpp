#include "reportengine/viewer/pagetext.h"

#include "reportengine/pages/textmetrics.h"
#include "reportengine/pages/valuetext.h"

namespace {

constexpr double SameLine = 4; ///< points that the feet of texts on one line may be apart

/// The lines an object's text stands on, as indices of the page's items: from `first` up to, not including, `end`.
struct Run
{
    int first;
    int end;
};

/// The items of one text, which the placer puts on the page one after the other.
std::vector<Run> runsOf(const Page &page)
{
    std::vector<Run> runs;
    for (int i = 0; i < int(page.items.size()); ++i) {
        const PageItem &item = page.items[i];
        if (item.kind != PageItem::Kind::Text)
            continue;
        if (item.line > 0 && !runs.empty())
            runs.back().end = i + 1;
        else
            runs.push_back({i, i + 1});
    }
    return runs;
}

/// A text as it was before it was fitted to the paper, and where each of its lines begins in it.
struct WholeText
{
    QString text;
    std::vector<qsizetype> begins;
};

WholeText wholeText(const Page &page, const Run &run)
{
    const PageItem &first = page.items[run.first];
    if (run.end == run.first + 1 && !first.text.endsWith(TextMetrics::Ellipsis))
        return {first.text, {0}};
    const QString whole = printedValue(first.value, first.picture);
    WholeText result{whole.isEmpty() ? first.text : whole, {}};
    qsizetype from = 0;
    for (int i = run.first; i < run.end; ++i) {
        QString line = page.items[i].text;
        // The mark is the paper's unless the text itself has it there.
        if (line.endsWith(TextMetrics::Ellipsis) && result.text.indexOf(line, from) < 0)
            line.chop(1);
        // Between two lines a blank was dropped.
        from = std::max(from, result.text.indexOf(line, from));
        result.begins.push_back(from);
        from += line.size();
    }
    return result;
}

/// The parts of a find, of the whole text's characters from `from` to `to`, on the lines of the run.
FoundText placed(const Page &page, const Run &run, const WholeText &whole, qsizetype from, qsizetype to)
{
    FoundText found;
    for (int i = run.first; i < run.end; ++i) {
        const PageItem &item = page.items[i];
        const qsizetype begin = whole.begins[i - run.first];
        const qsizetype left = std::max<qsizetype>(from - begin, 0);
        const qsizetype right = std::min(to - begin, item.text.size());
        if (left < right)
            found.places.push_back(placeOf(item, left, right));
    }
    // It lies in what the ellipsis stands for.
    if (found.places.empty()) {
        const PageItem &last = page.items[run.end - 1];
        found.places.push_back(placeOf(last, last.text.size() - 1, last.text.size()));
    }
    return found;
}

} // namespace

std::vector<FoundText> findOn(const Page &page, const QString &sought)
{
    std::vector<FoundText> result;
    if (sought.isEmpty())
        return result;
    for (const Run &run : runsOf(page)) {
        const WholeText whole = wholeText(page, run);
        qsizetype at = whole.text.indexOf(sought, 0, Qt::CaseInsensitive);
        for (; at >= 0; at = whole.text.indexOf(sought, at + sought.size(), Qt::CaseInsensitive))
            result.push_back(placed(page, run, whole, at, at + sought.size()));
    }
    std::ranges::stable_sort(result, {}, [](const FoundText &found) {
        // In the order in which the page is read.
        return std::pair(std::round(found.places[0].bottom() / SameLine), found.places[0].left());
    });
    return result;
}

std::vector<std::vector<int>> linesOf(const Page &page)
{
    std::vector<int> texts;
    for (int i = 0; i < int(page.items.size()); ++i) {
        if (page.items[i].kind == PageItem::Kind::Text)
            texts.push_back(i);
    }
    const auto bottom = [&](int item) { return page.items[item].rect.bottom(); };
    std::ranges::stable_sort(texts, {}, bottom);
    std::vector<std::vector<int>> lines;
    for (const int item : texts) {
        if (lines.empty() || bottom(item) - bottom(lines.back().front()) > SameLine)
            lines.emplace_back();
        lines.back().push_back(item);
    }
    for (std::vector<int> &line : lines)
        std::ranges::stable_sort(line, {}, [&](int item) { return textLeft(page.items[item]); });
    return lines;
}

QRectF placeOf(const PageItem &item, qsizetype from, qsizetype to)
{
    const double left = TextMetrics::width(item.text.left(from), item.style);
    const double right = TextMetrics::width(item.text.left(to), item.style);
    return {textLeft(item) + left, item.rect.top(), right - left, item.rect.height()};
}

qsizetype charactersBefore(const PageItem &item, double x)
{
    qsizetype count = 0;
    // A character belongs to the side its greater half is on.
    while (count < item.text.size() && placeOf(item, count, count + 1).center().x() < x)
        ++count;
    return count;
}
