#pragma once

#include <QMdiSubWindow>
#include <QStyle>

/// The user's hand at the screen: presses and keys go to the window, so that whatever lies at the place gets them, a
/// title bar or the menu bar as well as a control.
class Hand
{
public:
    explicit Hand(QWidget *mainWindow) : m_main(mainWindow) {}

    /// Clicks in the middle of a widget, or at a place of its own coordinates.
    void click(const QWidget *widget) { click(widget, widget->rect().center()); }
    void click(const QWidget *widget, QPoint place, bool twice = false);
    void drag(const QWidget *widget, QPoint from, QPoint to);
    /// Presses a key in the window that is active.
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Chooses an entry of the main window's menu by the menu controls' names, its groups first: {"Orders", "OrdNav"}.
    void menu(const QStringList &path);
    /// Clicks on a mark of a child window's title bar, or of the menu bar when the window is maximised.
    void mark(const QMdiSubWindow *window, QStyle::SubControl mark);
    /// A place on the window's title bar that is no mark.
    static QPoint titleOf(const QMdiSubWindow *window);

private:
    QWidget *m_main;
};
