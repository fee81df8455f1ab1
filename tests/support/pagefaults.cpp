#include "tests/support/pagefaults.h"

#include "reportengine/pages/textmetrics.h"

namespace {

bool isText(const PageItem &item)
{
    return item.kind == PageItem::Kind::Text;
}

/// Where the ink of a text stands, inside the place it was given.
QRectF inkOf(const PageItem &item)
{
    const double width = TextMetrics::width(item.text, item.style);
    const double spare = item.rect.width() - width;
    const double left = item.align == Align::Left ? 0 : item.align == Align::Right ? spare : spare / 2;
    return {item.rect.left() + left, item.rect.top(), width, item.rect.height()};
}

bool overlap(const QRectF &a, const QRectF &b)
{
    // Neighbouring lines may touch; a hair's breadth is rounding.
    const QRectF common = a.intersected(b);
    return common.width() > 0.2 && common.height() > 0.8;
}

/// A line that goes through a text, or a box whose frame does; a text inside a box is meant to be there.
bool strikes(const PageItem &shape, const QRectF &ink)
{
    const QRectF inner = ink.adjusted(0.5, 1.5, -0.5, -1.5);
    const QRectF rect = shape.rect.normalized();
    if (shape.kind == PageItem::Kind::Line)
        return rect.left() < inner.right() && rect.right() > inner.left() && rect.top() < inner.bottom() &&
               rect.bottom() > inner.top();
    return shape.thickness > 0 && rect.intersects(inner) && !rect.contains(inner);
}

} // namespace

QStringList pageFaults(const Page &page, const QMarginsF &margins)
{
    QStringList faults;
    const QRectF paper = QRectF({}, page.size).marginsRemoved(margins).adjusted(-0.1, -0.1, 0.1, 0.1);
    for (size_t i = 0; i < page.items.size(); ++i) {
        const PageItem &item = page.items[i];
        if (!isText(item)) {
            if (!paper.contains(item.rect.normalized().topLeft()) ||
                !paper.contains(item.rect.normalized().bottomRight()))
                faults.append("A line or box leaves the margins");
            continue;
        }
        const QRectF ink = inkOf(item);
        if (!paper.contains(ink))
            faults.append("Leaves the margins: " + item.text);
        if (ink.width() > item.rect.width() + 0.2)
            faults.append("Wider than its place: " + item.text);
        for (size_t j = 0; j < page.items.size(); ++j) {
            const PageItem &other = page.items[j];
            if (isText(other) && j > i && overlap(ink, inkOf(other)))
                faults.append("Over one another: " + item.text + " / " + other.text);
            if (!isText(other) && strikes(other, ink))
                faults.append("Struck through: " + item.text);
        }
    }
    return faults;
}
