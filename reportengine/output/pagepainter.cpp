#include "reportengine/output/pagepainter.h"

#include "reportengine/pages/textmetrics.h"
#include <QPainter>

namespace {

constexpr double Units = TextMetrics::UnitsPerPoint;

class PagePainter
{
public:
    explicit PagePainter(QPainter &painter) : m_painter(painter) {}

    void paint(const PageItem &item)
    {
        switch (item.kind) {
        case PageItem::Kind::Text:
            text(item);
            break;
        case PageItem::Kind::Line:
            m_painter.setPen(QPen(item.style.color, item.thickness * Units));
            m_hasTextPen = false;
            m_painter.drawLine(item.rect.topLeft() * Units, item.rect.bottomRight() * Units);
            break;
        case PageItem::Kind::Box:
            m_painter.setPen(item.thickness > 0 ? QPen(item.style.color, item.thickness * Units) : QPen(Qt::NoPen));
            m_hasTextPen = false;
            m_painter.setBrush(item.fill.isValid() ? QBrush(item.fill) : QBrush(Qt::NoBrush));
            m_painter.drawRect(QRectF(item.rect.topLeft() * Units, item.rect.size() * Units));
            break;
        }
    }

private:
    void text(const PageItem &item)
    {
        // Neighbours mostly share font and colour; setting them is dearer than comparing.
        if (!m_hasFont || !(m_style == item.style)) {
            m_painter.setFont(TextMetrics::font(item.style));
            m_hasTextPen = m_hasTextPen && m_style.color == item.style.color;
            m_style = item.style;
            m_hasFont = true;
        }
        if (!m_hasTextPen) {
            m_painter.setPen(item.style.color);
            m_hasTextPen = true;
        }
        const double y = item.rect.top() + TextMetrics::ascent(item.style);
        m_painter.drawText(QPointF(textLeft(item), y) * Units, item.text);
    }

    QPainter &m_painter;
    TextStyle m_style;
    bool m_hasFont = false;
    bool m_hasTextPen = false;
};

} // namespace

void paintPage(const Page &page, QPainter &painter)
{
    painter.setBrush(Qt::NoBrush);
    PagePainter pagePainter(painter);
    for (const PageItem &item : page.items)
        pagePainter.paint(item);
}
