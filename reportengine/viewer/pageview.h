#pragma once

#include <QAbstractScrollArea>
#include <QRectF>
#include <memory>

class Report;

/// The pages of a report one under the other, of which only those in sight are made and drawn.
class PageView : public QAbstractScrollArea
{
    Q_OBJECT
public:
    enum class Zoom { Percent, PageWidth, WholePage };

    explicit PageView(QWidget *parent);

    /// The report must live as long as it is shown.
    void setReport(Report *report);
    /// To be called when more pages have become known.
    void pagesChanged();

    void setZoom(Zoom zoom, int percent = 100);
    /// What the zoom comes to, in percent of the printed size.
    int percent() const;

    /// Index of the page that fills most of the upper half of the window.
    int currentPage() const;
    void goToPage(int page);
    /// Marks a place on a page, in points, and brings it in sight. An empty one takes the mark away.
    void mark(int page, const QRectF &place);

signals:
    void currentPageChanged(int page);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    QSize pageSize() const; ///< in pixels
    double pixelsPerPoint() const;
    int pageTop(int page) const;
    void layOut();

    Report *m_report = nullptr;
    Zoom m_zoom = Zoom::PageWidth;
    int m_percent = 100;
    int m_lastCurrent = 0;
    int m_markedPage = -1;
    QRectF m_mark;
};
