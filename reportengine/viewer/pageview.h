#pragma once

#include "reportengine/viewer/textselection.h"
#include <QAbstractScrollArea>
#include <memory>

class Report;

/// The pages of a report one under the other, of which only those in sight are made and drawn. The mouse selects text,
/// and drags the pages where there is none.
class PageView : public QAbstractScrollArea
{
    Q_OBJECT
public:
    enum class Zoom { Percent, PageWidth, WholePage };
    static constexpr int SmallestPercent = 25;
    static constexpr int LargestPercent = 400;

    explicit PageView(QWidget *parent);

    /// The report must live as long as it is shown.
    void setReport(Report *report);
    /// To be called when more pages have become known.
    void pagesChanged();

    /// The percentage counts for Zoom::Percent alone.
    void setZoom(Zoom zoom, int percent = 100);
    Zoom zoom() const { return m_zoom; }
    /// What the zoom comes to, in percent of the printed size.
    int percent() const;

    /// Index of the page last gone to, or else of the one that is read: the first at the report's beginning, the last
    /// at its end.
    int currentPage() const { return m_current; }
    void goToPage(int page);
    /// A window's height up or down; whole pages where the zoom shows such.
    void scrollByWindow(int windows);
    void scrollToEnd(bool last);

    /// Marks every place of a text, and one of them (by its number on its page) more strongly, which comes in sight.
    /// An empty text takes the marks away.
    void showFound(const QString &text, int page = -1, int index = -1);
    /// Marks a band across a page, from `top` to `bottom` in points, and brings it to the top of the window.
    void showBand(int page, double top, double bottom);

    bool hasSelection() const { return !m_selection.isEmpty(); }
    void copySelection() const;
    /// Selects all texts of the current page.
    void selectPage();

signals:
    void currentPageChanged(int page);
    void zoomChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    enum class Mouse { Idle, Selecting, Dragging };
    /// A point of the window as one of a page, in points.
    struct PagePoint
    {
        int page;
        QPointF point;
    };

    QSize pageSize() const; ///< in pixels
    double pixelsPerPoint() const;
    int pageTop(int page) const;
    /// The page's paper in the window.
    QRect paperOf(int page) const;
    int pageAt(int y) const; ///< y counts from the first page's top
    PagePoint pagePointAt(const QPoint &position) const;
    std::optional<TextSpot> textSpotAt(const QPoint &position) const;
    bool isTextAt(const QPoint &position) const;
    void layOut();
    void setCurrentPage(int page);
    void bringInSight(int page, const QRectF &place);
    void paintMarks(QPainter &painter, int page, const Page &content) const;

    Report *m_report = nullptr;
    Zoom m_zoom = Zoom::PageWidth;
    int m_percent = 100;
    int m_current = 0;
    bool m_isGoing = false; ///< the program scrolls, not the user
    QString m_soughtText;
    int m_foundPage = -1;
    int m_foundIndex = -1;
    int m_bandPage = -1;
    double m_bandTop = 0;
    double m_bandBottom = 0;
    TextSelection m_selection;
    Mouse m_mouse = Mouse::Idle;
    QPoint m_lastPosition;
};
