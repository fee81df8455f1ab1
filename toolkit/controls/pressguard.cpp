#include "toolkit/controls/pressguard.h"

#include "toolkit/controls/msgbox.h"
#include "toolkit/controls/programfocus.h"
#include <QAbstractButton>
#include <QApplication>
#include <QShortcutEvent>

namespace {
/// The widget that Qt gives the focus to when this one is pressed; none when a press moves no focus.
QWidget *focusTargetOf(QWidget *pressed)
{
    for (QWidget *widget = pressed; widget; widget = widget->parentWidget()) {
        if (widget->isEnabled() && (widget->focusPolicy() & Qt::ClickFocus)) {
            while (widget->focusProxy())
                widget = widget->focusProxy();
            return widget;
        }
        if (widget->isWindow())
            break;
    }
    return nullptr;
}

bool focusIsElsewhere(const QWidget *target)
{
    const QWidget *focus = QApplication::focusWidget();
    return target && focus && focus->window() == target->window() && focus != target && !target->isAncestorOf(focus);
}

/// Raises the LostFocus of the field left, and tells whether that kept the press from its target: by a box, or by
/// sending the focus elsewhere.
bool isNoClick(const QWidget *target)
{
    const int boxesBefore = messageBoxesShown();
    ProgramFocus::raiseEvents();
    return messageBoxesShown() != boxesBefore || focusIsElsewhere(target);
}

/// Qt would click first, and some time later.
void pressByAccessKey(QAbstractButton *button)
{
    button->setFocus(Qt::ShortcutFocusReason);
    if (!isNoClick(button))
        button->click();
}
} // namespace

bool PressGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (!watched->isWidgetType())
        return false;
    // Qt hands out the second of two quick presses as a double click; it is a press all the same.
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick)
        return isNoClick(focusTargetOf(static_cast<QWidget *>(watched)));
    if (event->type() == QEvent::Shortcut && !static_cast<QShortcutEvent *>(event)->isAmbiguous())
        if (auto *button = qobject_cast<QAbstractButton *>(watched)) {
            pressByAccessKey(button);
            return true;
        }
    return false;
}
