#include "app/appearance.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>

namespace {
bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

QColor mixed(const QColor &one, const QColor &other, double shareOfOther)
{
    const auto part = [=](double a, double b) { return a + shareOfOther * (b - a); };
    return QColor::fromRgbF(part(one.redF(), other.redF()), part(one.greenF(), other.greenF()),
                            part(one.blueF(), other.blueF()));
}

/// The base style outlines fields with a shade darker than the window, which nobody sees on a dark one.
void outlineOnDark(const QStyleOption *option, QPainter *painter)
{
    if (!isDark(option->palette) || option->state & QStyle::State_HasFocus)
        return;
    constexpr double ShareOfGround = 0.65;
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(Qt::NoBrush);
    painter->setPen(
        mixed(option->palette.color(QPalette::WindowText), option->palette.color(QPalette::Window), ShareOfGround));
    painter->drawRoundedRect(QRectF(option->rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    painter->restore();
}

/// What the base style does otherwise than the platform's controls.
class ControlStyle : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;

    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override
    {
        switch (hint) {
        case SH_ComboBox_Popup:
            // Lists drop down below their boxes, a few entries high and with a scroll bar. The base style would lay a
            // menu over the box, which measures every entry before it comes up and has nothing to drag through a
            // hundred thousand of them.
            return 0;
        case SH_MenuBar_AltKeyNavigation:
            return 1;
        default:
            return QProxyStyle::styleHint(hint, option, widget, data);
        }
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        const auto *frame = qstyleoption_cast<const QStyleOptionFrame *>(option);
        if (element == PE_PanelLineEdit && frame && frame->state & State_ReadOnly) {
            // A box that only shows something looks like it: no white field to type in.
            QStyleOptionFrame display(*frame);
            display.palette.setBrush(QPalette::Base, frame->palette.brush(QPalette::Window));
            QProxyStyle::drawPrimitive(element, &display, painter, widget);
        } else {
            QProxyStyle::drawPrimitive(element, option, painter, widget);
        }
        if (element == PE_IndicatorCheckBox || (element == PE_PanelLineEdit && frame && frame->lineWidth > 0))
            outlineOnDark(option, painter);
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override
    {
        QProxyStyle::drawComplexControl(control, option, painter, widget);
        if (control == CC_SpinBox || control == CC_ComboBox)
            outlineOnDark(option, painter);
    }

    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        const auto *entry = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
        if (element != CE_MenuBarItem || !entry || !(entry->state & State_Selected)) {
            QProxyStyle::drawControl(element, option, painter, widget);
            return;
        }
        // The base style marks a menu's name only while its menu is down; keys go from name to name before.
        QStyleOptionMenuItem marked(*entry);
        marked.state |= State_Sunken;
        QProxyStyle::drawControl(element, &marked, painter, widget);
    }
};

/// Greys with one accent, and texts dark enough for a day at the screen.
QPalette calmPalette()
{
    const QColor ink(0x22, 0x2b, 0x33);
    const QColor greyed(0x5c, 0x66, 0x6e); // of locked fields, and to be read all the same
    const QColor accent(0x2f, 0x6f, 0xa3);
    QPalette palette(QColor(0xe6, 0xea, 0xed), QColor(0xf1, 0xf3, 0xf5));
    palette.setColor(QPalette::WindowText, ink);
    palette.setColor(QPalette::Text, ink);
    palette.setColor(QPalette::ButtonText, ink);
    palette.setColor(QPalette::Dark, QColor(0x9f, 0xac, 0xb6));
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

/// Desktops don't say so in a palette; white windows with black text throughout are made for that.
bool isOfHighContrast(const QPalette &palette)
{
    for (const QPalette::ColorRole ground : {QPalette::Window, QPalette::Base, QPalette::Button})
        if (palette.color(ground) != Qt::white)
            return false;
    return palette.color(QPalette::Text) == Qt::black && palette.color(QPalette::WindowText) == Qt::black;
}

/// A crate, for title bars and the task bar. packaging/tamrick.svg has the same for the menu.
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
    // One style on every system: the forms are laid out for it, and tests and pictures see what users see.
    application.setStyle(new ControlStyle("Fusion")); // the application owns it
    followDesktopPalette();
    application.setWindowIcon(crate());
    // Where the windows' own icons are not asked for, the desktop finds the one of the menu entry by this name.
    QApplication::setDesktopFileName("tamrick");
}

void followDesktopPalette()
{
    QApplication::setPalette(QPalette()); // the desktop's
    QApplication::setPalette(programPalette(QApplication::palette()));
}

QPalette programPalette(const QPalette &desktop)
{
    if (!isDark(desktop) && !isOfHighContrast(desktop))
        return calmPalette();
    // Many desktops grey locked texts until they can't be read.
    QPalette palette = desktop;
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        const QColor ink = desktop.color(QPalette::Active, role), ground = desktop.color(QPalette::Window);
        constexpr double Greyed = 0.35;
        palette.setColor(QPalette::Disabled, role, mixed(ink, ground, Greyed));
    }
    return palette;
}
