#include "reportengine/viewer/pageview.h"

#include "reportengine/output/pagepainter.h"
#include "reportengine/pages/reportpages.h"
#include "reportengine/pages/textmetrics.h"
#include "reportengine/report.h"
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>

namespace {
constexpr int Gap = 12; ///< pixels around each page
const QColor Desk(0xb8, 0xbe, 0xc6);
const QColor Marker(255, 220, 0, 110);
} // namespace

PageView::PageView(QWidget *parent) : QAbstractScrollArea(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAutoFillBackground(false);
    // Appearing and vanishing bars would change the width that "page width" fits to.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void PageView::setReport(Report *report)
{
    m_report = report;
    m_markedPage = -1;
    m_lastCurrent = -1;
    layOut();
    verticalScrollBar()->setValue(0);
    viewport()->update();
}

void PageView::pagesChanged()
{
    layOut();
    viewport()->update();
}

void PageView::setZoom(Zoom zoom, int percent)
{
    const int page = currentPage();
    m_zoom = zoom;
    m_percent = percent;
    layOut();
    goToPage(page);
    viewport()->update();
}

int PageView::percent() const
{
    return qRound(pixelsPerPoint() * 7200 / logicalDpiX());
}

double PageView::pixelsPerPoint() const
{
    if (!m_report)
        return 1;
    const QSizeF paper = m_report->layout().pageSize();
    const double width = std::max(50, viewport()->width() - 2 * Gap) / paper.width();
    const double height = std::max(50, viewport()->height() - 2 * Gap) / paper.height();
    switch (m_zoom) {
    case Zoom::PageWidth:
        return width;
    case Zoom::WholePage:
        return std::min(width, height);
    case Zoom::Percent:
        break;
    }
    return m_percent / 100.0 * logicalDpiX() / 72;
}

QSize PageView::pageSize() const
{
    return m_report ? (m_report->layout().pageSize() * pixelsPerPoint()).toSize() : QSize(1, 1);
}

int PageView::pageTop(int page) const
{
    return Gap + page * (pageSize().height() + Gap);
}

int PageView::currentPage() const
{
    if (!m_report)
        return 0;
    const int middle = verticalScrollBar()->value() + viewport()->height() / 3;
    return std::clamp((middle - Gap) / (pageSize().height() + Gap), 0, m_report->pages().knownPages() - 1);
}

void PageView::goToPage(int page)
{
    verticalScrollBar()->setValue(pageTop(page) - Gap);
}

void PageView::mark(int page, const QRectF &place)
{
    m_markedPage = place.isEmpty() ? -1 : page;
    m_mark = place;
    if (m_markedPage >= 0) {
        const double scale = pixelsPerPoint();
        const int top = pageTop(page) + int(place.top() * scale);
        const int value = verticalScrollBar()->value();
        if (top < value || top + place.height() * scale > value + viewport()->height())
            verticalScrollBar()->setValue(top - viewport()->height() / 3);
        const int left = int(place.left() * scale);
        if (left < horizontalScrollBar()->value() || left > horizontalScrollBar()->value() + viewport()->width())
            horizontalScrollBar()->setValue(left - Gap);
    }
    viewport()->update();
}

void PageView::layOut()
{
    const QSize page = pageSize();
    const int pages = m_report ? m_report->pages().knownPages() : 0;
    verticalScrollBar()->setRange(0, std::max(0, pageTop(pages) - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(40);
    horizontalScrollBar()->setRange(0, std::max(0, page.width() + 2 * Gap - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(40);
}

void PageView::paintEvent(QPaintEvent *)
{
    QPainter painter(viewport());
    painter.fillRect(viewport()->rect(), Desk);
    if (!m_report)
        return;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const QSize size = pageSize();
    const int scrolled = verticalScrollBar()->value();
    const int left = std::max(Gap, (viewport()->width() - size.width()) / 2) - horizontalScrollBar()->value();
    const double scale = pixelsPerPoint();
    ReportPages &pages = m_report->pages();
    int page = std::max(0, (scrolled - Gap) / (size.height() + Gap));
    for (; page < pages.knownPages() && pageTop(page) < scrolled + viewport()->height(); ++page) {
        const QRect paper(QPoint(left, pageTop(page) - scrolled), size);
        painter.fillRect(paper.translated(2, 2), QColor(0x8a, 0x90, 0x98));
        painter.fillRect(paper, Qt::white);
        painter.save();
        painter.setClipRect(paper);
        painter.translate(paper.topLeft());
        if (page == m_markedPage)
            painter.fillRect(QRectF(m_mark.topLeft() * scale, m_mark.size() * scale), Marker);
        painter.scale(scale / TextMetrics::UnitsPerPoint, scale / TextMetrics::UnitsPerPoint);
        paintPage(*pages.page(page), painter);
        painter.restore();
    }
}

void PageView::resizeEvent(QResizeEvent *)
{
    // A page in view stays in view when it changes its size with the window.
    const int page = std::max(m_lastCurrent, 0);
    layOut();
    if (m_zoom != Zoom::Percent)
        goToPage(page);
}

void PageView::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    setZoom(Zoom::Percent, std::clamp(percent() + (event->angleDelta().y() > 0 ? 10 : -10), 25, 400));
}

void PageView::keyPressEvent(QKeyEvent *event)
{
    QScrollBar *bar = verticalScrollBar();
    switch (event->key()) {
    case Qt::Key_PageDown:
    case Qt::Key_Space:
        bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
        return;
    case Qt::Key_PageUp:
        bar->triggerAction(QAbstractSlider::SliderPageStepSub);
        return;
    case Qt::Key_Home:
        bar->setValue(0);
        return;
    case Qt::Key_End:
        bar->setValue(bar->maximum());
        return;
    default:
        QAbstractScrollArea::keyPressEvent(event);
    }
}

void PageView::scrollContentsBy(int, int)
{
    viewport()->update();
    const int page = currentPage();
    if (page != m_lastCurrent) {
        m_lastCurrent = page;
        emit currentPageChanged(page);
    }
}
