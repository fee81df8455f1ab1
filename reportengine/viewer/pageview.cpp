#include "reportengine/viewer/pageview.h"

#include "reportengine/output/pagepainter.h"
#include "reportengine/pages/reportpages.h"
#include "reportengine/pages/textmetrics.h"
#include "reportengine/report.h"
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWheelEvent>

namespace {
constexpr int Gap = 12;  ///< pixels around each page
constexpr int Step = 40; ///< pixels an arrow key scrolls
/// Paper is white whatever the desktop's colours are, and so are the marks on it of one kind.
const QColor Desk(0xb8, 0xbe, 0xc6);
const QColor DarkDesk(0x3a, 0x40, 0x47);
const QColor PaperShadow(0x8a, 0x90, 0x98);
const QColor Found(255, 232, 120);
const QColor FoundNow(255, 165, 60);
const QColor Band(208, 228, 245);
const QColor Selected(168, 205, 240);
} // namespace

PageView::PageView(QWidget *parent) : QAbstractScrollArea(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAutoFillBackground(false);
    viewport()->setMouseTracking(true);
    // Appearing and vanishing bars would change the width that "page width" fits to.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void PageView::setReport(Report *report)
{
    m_report = report;
    m_soughtText.clear();
    m_bandPage = -1;
    m_selection.clear();
    layOut();
    goToPage(0);
    viewport()->update();
}

void PageView::pagesChanged()
{
    layOut();
    viewport()->update();
}

void PageView::setZoom(Zoom zoom, int percent)
{
    m_zoom = zoom;
    m_percent = std::clamp(percent, SmallestPercent, LargestPercent);
    layOut();
    goToPage(m_current);
    viewport()->update();
    emit zoomChanged();
}

int PageView::percent() const
{
    // 100 is the size on paper, as far as the screen knows its own.
    return qRound(pixelsPerPoint() * 7200 / logicalDpiX());
}

double PageView::pixelsPerPoint() const
{
    if (!m_report)
        return 1;
    const QSizeF paper = m_report->layout().pageSize();
    // A window dragged shut must not bring the scale to 0, by which the mouse's place is divided.
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

QRect PageView::paperOf(int page) const
{
    const QSize size = pageSize();
    // In the middle, unless the paper is wider than the window.
    const int left = std::max(Gap, (viewport()->width() - size.width()) / 2) - horizontalScrollBar()->value();
    return {QPoint(left, pageTop(page) - verticalScrollBar()->value()), size};
}

int PageView::pageAt(int y) const
{
    return m_report ? std::clamp((y - Gap) / (pageSize().height() + Gap), 0, m_report->pages().knownPages() - 1) : 0;
}

void PageView::setCurrentPage(int page)
{
    if (page == m_current)
        return;
    m_current = page;
    emit currentPageChanged(page);
}

/// The last pages may not reach the window's top. The page gone to is the current one all the same, so that the number
/// shown is the one asked for.
void PageView::goToPage(int page)
{
    {
        const QScopedValueRollback going(m_isGoing, true);
        verticalScrollBar()->setValue(pageTop(page) - Gap);
    }
    setCurrentPage(page);
}

void PageView::scrollByWindow(int windows)
{
    if (m_zoom == Zoom::WholePage && m_report)
        goToPage(std::clamp(m_current + windows, 0, m_report->pages().knownPages() - 1));
    else
        // A strip of what was read stays in sight.
        verticalScrollBar()->setValue(verticalScrollBar()->value() + windows * (viewport()->height() - Step));
}

void PageView::scrollToEnd(bool last)
{
    verticalScrollBar()->setValue(last ? verticalScrollBar()->maximum() : 0);
    if (m_report)
        setCurrentPage(last ? m_report->pages().knownPages() - 1 : 0);
}

void PageView::showFound(const QString &text, int page, int index)
{
    m_soughtText = text;
    m_foundPage = page;
    m_foundIndex = index;
    if (page >= 0) {
        const std::vector<FoundText> found = findOn(*m_report->pages().page(page), text);
        setCurrentPage(page);
        bringInSight(page, found.at(index).places.front());
    }
    viewport()->update();
}

void PageView::showBand(int page, double top, double bottom)
{
    m_bandPage = page;
    m_bandTop = top;
    m_bandBottom = bottom;
    goToPage(page);
    const QScopedValueRollback going(m_isGoing, true);
    verticalScrollBar()->setValue(pageTop(page) + int(top * pixelsPerPoint()) - Gap);
    viewport()->update();
}

/// Scrolls only where the place is not in sight.
void PageView::bringInSight(int page, const QRectF &place)
{
    const QScopedValueRollback going(m_isGoing, true);
    const double scale = pixelsPerPoint();
    const QRectF inWindow(paperOf(page).topLeft() + place.topLeft() * scale, place.size() * scale);
    if (inWindow.top() < 0 || inWindow.bottom() > viewport()->height())
        verticalScrollBar()->setValue(verticalScrollBar()->value() + int(inWindow.top()) - viewport()->height() / 3);
    if (inWindow.left() < 0 || inWindow.right() > viewport()->width())
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + int(inWindow.left()) -
                                        viewport()->width() / 3);
}

/// A new range may move the bars, which is none of the user's scrolling.
void PageView::layOut()
{
    const QScopedValueRollback going(m_isGoing, true);
    const QSize page = pageSize();
    const int pages = m_report ? m_report->pages().knownPages() : 0;
    verticalScrollBar()->setRange(0, std::max(0, pageTop(pages) - viewport()->height()));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(Step);
    horizontalScrollBar()->setRange(0, std::max(0, page.width() + 2 * Gap - viewport()->width()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setSingleStep(Step);
}

void PageView::paintMarks(QPainter &painter, int page, const Page &content) const
{
    // As a felt pen does it: over tinted boxes too, and the print shows through.
    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
    const double scale = pixelsPerPoint();
    const auto fill = [&](const QRectF &place, const QColor &color) {
        painter.fillRect(QRectF(place.topLeft() * scale, place.size() * scale), color);
    };
    if (page == m_bandPage)
        fill({0, m_bandTop, content.size.width(), m_bandBottom - m_bandTop}, Band);
    const std::vector<FoundText> found = findOn(content, m_soughtText);
    for (int i = 0; i < int(found.size()); ++i) {
        for (const QRectF &place : found[i].places)
            fill(place, page == m_foundPage && i == m_foundIndex ? FoundNow : Found);
    }
    for (const QRectF &place : m_selection.places(content, page))
        fill(place, Selected);
}

void PageView::paintEvent(QPaintEvent *)
{
    QPainter painter(viewport());
    const bool isDark = palette().color(QPalette::Window).lightness() < 128;
    painter.fillRect(viewport()->rect(), isDark ? DarkDesk : Desk);
    if (!m_report)
        return;
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
    const double scale = pixelsPerPoint();
    ReportPages &pages = m_report->pages();
    for (int page = pageAt(verticalScrollBar()->value()); page < pages.knownPages(); ++page) {
        const QRect paper = paperOf(page);
        // Only the pages in sight are made and painted.
        if (paper.top() >= viewport()->height())
            break;
        const std::shared_ptr<const Page> content = pages.page(page);
        painter.fillRect(paper.translated(2, 2), isDark ? QColor(Qt::black) : PaperShadow);
        painter.fillRect(paper, Qt::white);
        painter.save();
        // What a layout places beyond the paper's edge is not on the paper.
        painter.setClipRect(paper);
        painter.translate(paper.topLeft());
        painter.save();
        painter.scale(scale / TextMetrics::UnitsPerPoint, scale / TextMetrics::UnitsPerPoint);
        paintPage(*content, painter);
        painter.restore();
        paintMarks(painter, page, *content);
        painter.restore();
    }
}

void PageView::resizeEvent(QResizeEvent *)
{
    layOut();
    // A page in view stays in view when it changes its size with the window.
    if (m_zoom != Zoom::Percent) {
        goToPage(m_current);
        emit zoomChanged();
    }
}

void PageView::wheelEvent(QWheelEvent *event)
{
    if (!(event->modifiers() & Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    // From what is shown now, so that the wheel takes up where "page width" stands.
    setZoom(Zoom::Percent, percent() + (event->angleDelta().y() > 0 ? 10 : -10));
}

void PageView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space)
        scrollByWindow(event->modifiers() & Qt::ShiftModifier ? -1 : 1);
    else
        QAbstractScrollArea::keyPressEvent(event);
}

PageView::PagePoint PageView::pagePointAt(const QPoint &position) const
{
    const int page = pageAt(position.y() + verticalScrollBar()->value());
    return {page, QPointF(position - paperOf(page).topLeft()) / pixelsPerPoint()};
}

std::optional<TextSpot> PageView::textSpotAt(const QPoint &position) const
{
    const PagePoint at = pagePointAt(position);
    return spotAt(*m_report->pages().page(at.page), at.page, at.point);
}

bool PageView::isTextAt(const QPoint &position) const
{
    if (!m_report)
        return false;
    const PagePoint at = pagePointAt(position);
    return isOnText(*m_report->pages().page(at.page), at.point);
}

void PageView::mousePressEvent(QMouseEvent *event)
{
    const QPoint position = event->position().toPoint();
    m_lastPosition = position;
    if (event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && !isTextAt(position))) {
        // Beside the texts the hand takes hold of the paper; on them the mouse selects.
        m_mouse = Mouse::Dragging;
        viewport()->setCursor(Qt::ClosedHandCursor);
    } else if (event->button() == Qt::LeftButton) {
        m_mouse = Mouse::Selecting;
        m_selection.begin(*textSpotAt(position));
    }
    if (event->button() == Qt::LeftButton) {
        if (m_mouse == Mouse::Dragging)
            m_selection.clear();
        m_bandPage = -1;
        viewport()->update();
    }
}

void PageView::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint position = event->position().toPoint();
    switch (m_mouse) {
    case Mouse::Idle:
        viewport()->setCursor(isTextAt(position) ? Qt::IBeamCursor : Qt::OpenHandCursor);
        break;
    case Mouse::Dragging:
        horizontalScrollBar()->setValue(horizontalScrollBar()->value() + m_lastPosition.x() - position.x());
        verticalScrollBar()->setValue(verticalScrollBar()->value() + m_lastPosition.y() - position.y());
        break;
    case Mouse::Selecting:
        // Beyond the window's edge the pages come after.
        if (position.y() < 0 || position.y() > viewport()->height())
            verticalScrollBar()->setValue(verticalScrollBar()->value() + (position.y() < 0 ? -Step : Step));
        if (const auto spot = textSpotAt(position))
            m_selection.extendTo(*spot);
        viewport()->update();
        break;
    }
    m_lastPosition = position;
}

void PageView::mouseReleaseEvent(QMouseEvent *event)
{
    m_mouse = Mouse::Idle;
    viewport()->setCursor(isTextAt(event->position().toPoint()) ? Qt::IBeamCursor : Qt::OpenHandCursor);
}

void PageView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QPoint position = event->position().toPoint();
    if (event->button() != Qt::LeftButton || !isTextAt(position))
        return;
    // A double click takes the whole text under it: a number, a name.
    const TextSpot spot = *textSpotAt(position);
    m_selection.takeText(*m_report->pages().page(spot.page), spot);
    viewport()->update();
}

void PageView::contextMenuEvent(QContextMenuEvent *event)
{
    QMenu menu(this);
    QAction *copy = menu.addAction("Copy", this, &PageView::copySelection);
    copy->setEnabled(hasSelection());
    menu.addAction("Select the Page", this, &PageView::selectPage);
    menu.exec(event->globalPos());
}

void PageView::copySelection() const
{
    if (m_report && hasSelection())
        QGuiApplication::clipboard()->setText(m_selection.text(m_report->pages()));
}

void PageView::selectPage()
{
    if (!m_report)
        return;
    m_selection.takePage(*m_report->pages().page(m_current), m_current);
    viewport()->update();
}

void PageView::scrollContentsBy(int, int)
{
    viewport()->update();
    if (m_isGoing || !m_report)
        return;
    // The line that is read goes from the window's top at the report's beginning to its foot at the end, so that every
    // page has its turn however small it is shown.
    const QScrollBar *bar = verticalScrollBar();
    const double part = bar->maximum() > 0 ? double(bar->value()) / bar->maximum() : 0;
    setCurrentPage(pageAt(bar->value() + int(part * (viewport()->height() - 1))));
}
