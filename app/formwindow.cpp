#include "app/formwindow.h"

#include "toolkit/controls/msgbox.h"
#include "toolkit/controls/programfocus.h"
#include "toolkit/forms/form.h"
#include <QAction>
#include <QApplication>
#include <QLayout>
#include <QMdiArea>
#include <QMenu>
#include <QStyle>

namespace {
/// How wide a window is whose title bar shows its title whole, between the icon and two or three marks.
int widthForTitle(const QMdiSubWindow *window)
{
    const QFontMetrics metrics(QApplication::font("QMdiSubWindowTitleBar"));
    return metrics.horizontalAdvance(window->windowTitle()) +
           5 * window->style()->pixelMetric(QStyle::PM_TitleBarHeight);
}
} // namespace

FormWindow::FormWindow(Form *form)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWidget(form);
    setFocusPolicy(Qt::NoFocus);
    // Qt gives Close of the window's own menu the key Ctrl+W on some desktops; here that is a key like any other.
    for (QAction *entry : systemMenu()->actions())
        if (entry->shortcuts() == QKeySequence::keyBindings(QKeySequence::Close))
            entry->setShortcut(Qt::CTRL | Qt::Key_F4);
    setWindowFlag(Qt::WindowMaximizeButtonHint, form->isResizable());
    if (!form->isResizable()) // the others can be drawn wider
        form->setMinimumWidth(std::max(form->minimumWidth(), widthForTitle(this)));
    // Or a dialog that keeps its size would stand in a window that does not.
    if (form->layout() && form->layout()->sizeConstraint() == QLayout::SetFixedSize)
        layout()->setSizeConstraint(QLayout::SetFixedSize);
    connect(this, &QMdiSubWindow::windowStateChanged, this, [this](Qt::WindowStates, Qt::WindowStates state) {
        rememberField();
        if ((state & Qt::WindowActive) && !isAncestorOf(QApplication::focusWidget()))
            returnToField();
    });
}

/// Qt hides and shows the window to change its state, and its focus goes astray meanwhile.
void FormWindow::changeEvent(QEvent *event)
{
    rememberField();
    const bool opens = !isVisible();
    const QPointer<QWidget> focus = QApplication::focusWidget();
    QMdiSubWindow::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange || opens)
        return;
    if (focus && focus != this && focus->isVisible())
        focus->setFocus();
    else if (isAncestorOf(ProgramFocus::holder()))
        returnToField();
}

/// A press on the frame or the title bar activates the window first. Where the field left elsewhere keeps its focus, or
/// shows a box, the press goes no further.
void FormWindow::mousePressEvent(QMouseEvent *event)
{
    const int boxesBefore = messageBoxesShown();
    mdiArea()->setActiveSubWindow(this);
    ProgramFocus::raiseEvents();
    if (mdiArea()->activeSubWindow() == this && messageBoxesShown() == boxesBefore)
        QMdiSubWindow::mousePressEvent(event);
}

void FormWindow::rememberField()
{
    if (isAncestorOf(ProgramFocus::holder()))
        m_field = ProgramFocus::holder();
}

void FormWindow::returnToField()
{
    if (m_field && m_field->isVisible())
        m_field->setFocus();
}
