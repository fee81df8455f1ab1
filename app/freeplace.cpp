#include "app/freeplace.h"

#include <QMdiArea>
#include <QMdiSubWindow>
#include <QRegion>
#include <QStyle>

namespace {
int titleHeight(const QMdiArea *area)
{
    return area->style()->pixelMetric(QStyle::PM_TitleBarHeight);
}

/// What the user sees of the title bars; none of a maximised window's, which everything lies on.
QRegion titlesInSight(const QMdiArea *area)
{
    QRegion titles;
    for (const QMdiSubWindow *window : area->subWindowList(QMdiArea::StackingOrder)) {
        if (!window->isVisible() || window->isMaximized())
            continue;
        titles -= window->geometry(); // of those below
        titles += QRect(window->pos(), QSize(window->width(), titleHeight(area)));
    }
    return titles;
}

qint64 areaOf(const QRegion &region)
{
    qint64 area = 0;
    for (const QRect &part : region)
        area += qint64(part.width()) * part.height();
    return area;
}
} // namespace

/// Down the diagonal by a title bar's height a step, then down the next one to its right, until nothing is hidden.
/// Where everything hides something the least counts, and a smaller window is tried last.
QRect freePlace(const QMdiArea *area, QSize size, QSize least)
{
    constexpr int Gap = 4, NextDiagonal = 160;
    const QRect room = area->viewport()->rect();
    const QRegion titles = titlesInSight(area);
    const int step = titleHeight(area) + Gap;
    QRect best(QPoint(), size.boundedTo(room.size()).expandedTo(least));
    qint64 hidden = areaOf(titles & best);
    for (const QSize smallest : {size, least}) {
        for (int from = 0; from + smallest.width() <= room.width(); from += NextDiagonal) {
            for (QPoint corner(from, 0); hidden > 0; corner += QPoint(step, step)) {
                const QRect place = QRect(corner, size) & room;
                if (place.width() < smallest.width() || place.height() < smallest.height())
                    break;
                if (const qint64 hides = areaOf(titles & place); hides < hidden) {
                    best = place;
                    hidden = hides;
                }
            }
        }
    }
    return best;
}
