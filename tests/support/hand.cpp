#include "tests/support/hand.h"

#include <QApplication>
#include <QMenuBar>
#include <QStyleOption>
#include <QTest>
#include <QWindow>

namespace {
QPoint inWindow(const QWidget *widget, QPoint place)
{
    return widget->mapTo(widget->window(), place);
}

QStyleOptionTitleBar titleBar(const QMdiSubWindow *window)
{
    QStyleOptionTitleBar option;
    option.initFrom(window);
    option.subControls = QStyle::SC_All;
    option.titleBarFlags = window->windowFlags();
    option.titleBarState = window->windowState();
    option.rect = QRect(0, 0, window->width(), window->style()->pixelMetric(QStyle::PM_TitleBarHeight, &option));
    return option;
}
} // namespace

void Hand::click(const QWidget *widget, QPoint place, bool twice)
{
    QWindow *window = widget->window()->windowHandle();
    QTest::mouseMove(window, inWindow(widget, place));
    QTest::mouseEvent(twice ? QTest::MouseDClick : QTest::MouseClick, window, Qt::LeftButton, {},
                      inWindow(widget, place));
}

void Hand::drag(const QWidget *widget, QPoint from, QPoint to)
{
    QWindow *window = widget->window()->windowHandle();
    const QPoint start = inWindow(widget, from), end = inWindow(widget, to);
    QTest::mouseMove(window, start);
    QTest::mousePress(window, Qt::LeftButton, {}, start);
    QTest::mouseMove(window, (start + end) / 2);
    QTest::mouseMove(window, end);
    QTest::mouseRelease(window, Qt::LeftButton, {}, end);
}

void Hand::key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    if (modifiers & Qt::ControlModifier)
        QTest::keyPress(m_main->windowHandle(), Qt::Key_Control, Qt::ControlModifier);
    QTest::keyClick(m_main->windowHandle(), key, modifiers);
    if (modifiers & Qt::ControlModifier)
        QTest::keyRelease(m_main->windowHandle(), Qt::Key_Control);
}

void Hand::menu(const QStringList &path)
{
    QWidget *open = m_main->findChild<QMenuBar *>();
    for (const QString &name : path) {
        auto *action = m_main->findChild<QAction *>(name);
        const auto *menu = qobject_cast<QMenu *>(open);
        click(open,
              (menu ? menu->actionGeometry(action) : static_cast<QMenuBar *>(open)->actionGeometry(action)).center());
        open = action->menu();
    }
    QCoreApplication::processEvents();
}

void Hand::mark(const QMdiSubWindow *window, QStyle::SubControl mark)
{
    if (const QWidget *marks = window->maximizedButtonsWidget()) {
        QStyleOptionComplex option;
        option.initFrom(marks);
        option.subControls = QStyle::SC_MdiMinButton | QStyle::SC_MdiNormalButton | QStyle::SC_MdiCloseButton;
        const QStyle::SubControl shown = mark == QStyle::SC_TitleBarMinButton      ? QStyle::SC_MdiMinButton
                                         : mark == QStyle::SC_TitleBarNormalButton ? QStyle::SC_MdiNormalButton
                                                                                   : QStyle::SC_MdiCloseButton;
        click(marks, marks->style()->subControlRect(QStyle::CC_MdiControls, &option, shown, marks).center());
    } else {
        const QStyleOptionTitleBar option = titleBar(window);
        click(window, window->style()->subControlRect(QStyle::CC_TitleBar, &option, mark, window).center());
    }
    QCoreApplication::processEvents();
}

QPoint Hand::titleOf(const QMdiSubWindow *window)
{
    const QStyleOptionTitleBar option = titleBar(window);
    return window->style()->subControlRect(QStyle::CC_TitleBar, &option, QStyle::SC_TitleBarLabel, window).center();
}
