#include "app/appearance.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>

namespace {
/// Drops lists down below their boxes, a few entries high and with a scroll bar. The base style would lay a menu over
/// the box, which measures every entry before it comes up and has nothing to drag through a hundred thousand of them.
class ListStyle : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override
    {
        return hint == SH_ComboBox_Popup ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

QPalette calmPalette()
{
    const QColor ink(0x22, 0x2b, 0x33);
    const QColor greyed(0x8a, 0x94, 0x9c);
    const QColor accent(0x2f, 0x6f, 0xa3);
    QPalette palette(QColor(0xe6, 0xea, 0xed), QColor(0xf1, 0xf3, 0xf5));
    palette.setColor(QPalette::WindowText, ink);
    palette.setColor(QPalette::Text, ink);
    palette.setColor(QPalette::ButtonText, ink);
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::AlternateBase, QColor(0xf4, 0xf8, 0xfb));
    palette.setColor(QPalette::Highlight, accent);
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, accent);
    palette.setColor(QPalette::ToolTipBase, Qt::white);
    palette.setColor(QPalette::ToolTipText, ink);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, greyed);
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(0xee, 0xf0, 0xf2));
    palette.setColor(QPalette::Inactive, QPalette::Highlight, QColor(0xb9, 0xd2, 0xe6));
    palette.setColor(QPalette::Inactive, QPalette::HighlightedText, ink);
    return palette;
}

/// A crate, for title bars and the task bar.
QIcon crate()
{
    QIcon icon;
    for (const int size : {16, 32, 64}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / 16.0, size / 16.0);
        painter.setPen(QPen(QColor(0x5b, 0x3d, 0x1e), 1));
        painter.setBrush(QColor(0xc8, 0x9b, 0x5a));
        painter.drawRoundedRect(QRectF(1.5, 3.5, 13, 10), 1, 1);
        painter.setBrush(QColor(0xe0, 0xba, 0x7e));
        painter.drawRect(QRectF(1.5, 6.5, 13, 3.5));
        painter.drawLine(QPointF(5.5, 3.5), QPointF(5.5, 13.5));
        painter.drawLine(QPointF(10.5, 3.5), QPointF(10.5, 13.5));
        icon.addPixmap(pixmap);
    }
    return icon;
}
} // namespace

void setAppearance(QApplication &application)
{
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    application.setStyle(new ListStyle(QStringLiteral("Fusion"))); // the application owns it
    application.setPalette(calmPalette());
    application.setWindowIcon(crate());
}
