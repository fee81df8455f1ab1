#include "reportengine/viewer/pageicons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>

namespace {

class PageIconEngine : public QIconEngine
{
public:
    explicit PageIconEngine(PageIcon icon) : m_icon(icon) {}

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        // A square of 16 units around the middle.
        const double unit = std::min(rect.width(), rect.height()) / 16.0;
        painter->translate(QRectF(rect).center());
        painter->scale(unit, unit);
        // One arrow is drawn, and turned the way the icon points.
        turn(*painter);
        // Asked when it is shown, so that the icons follow the desktop's colours.
        painter->setPen(QPen(QGuiApplication::palette().color(group, QPalette::ButtonText), 2, Qt::SolidLine,
                             Qt::RoundCap, Qt::RoundJoin));
        draw(*painter);
        painter->restore();
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(0, 0), size), mode, state);
        return pixmap;
    }

    QIconEngine *clone() const override { return new PageIconEngine(*this); }

private:
    void turn(QPainter &painter) const
    {
        switch (m_icon) {
        case PageIcon::First:
        case PageIcon::Previous:
            painter.rotate(180);
            break;
        case PageIcon::Up:
            painter.rotate(-90);
            break;
        case PageIcon::Down:
            painter.rotate(90);
            break;
        case PageIcon::Next:
        case PageIcon::Last:
        case PageIcon::Close:
            break;
        }
    }

    /// Points to the right.
    void draw(QPainter &painter) const
    {
        if (m_icon == PageIcon::Close) {
            painter.drawLine(QPointF(-4, -4), QPointF(4, 4));
            painter.drawLine(QPointF(-4, 4), QPointF(4, -4));
            return;
        }
        const bool hasBar = m_icon == PageIcon::First || m_icon == PageIcon::Last;
        const double tip = hasBar ? 1.5 : 3;
        painter.drawPolyline(QPolygonF{{tip - 5, -5}, {tip, 0}, {tip - 5, 5}});
        if (hasBar)
            painter.drawLine(QPointF(5, -5), QPointF(5, 5));
    }

    PageIcon m_icon;
};

} // namespace

QIcon pageIcon(PageIcon icon)
{
    return QIcon(new PageIconEngine(icon));
}
