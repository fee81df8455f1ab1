#include "toolkit/controls/pressguard.h"

#include "toolkit/controls/msgbox.h"
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
} // namespace

PressGuard::Delivery::Delivery(PressGuard &guard) : m_guard(guard), m_outerBoxes(guard.m_boxesBefore)
{
    m_guard.m_boxesBefore = messageBoxesShown();
}

PressGuard::Delivery::~Delivery()
{
    m_guard.m_boxesBefore = m_outerBoxes;
}

bool PressGuard::isNoClick(QWidget *target) const
{
    return messageBoxesShown() != m_boxesBefore || focusIsElsewhere(target);
}

bool PressGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (!watched->isWidgetType())
        return false;
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick)
        return isNoClick(focusTargetOf(static_cast<QWidget *>(watched)));
    if (event->type() == QEvent::Shortcut && !static_cast<QShortcutEvent *>(event)->isAmbiguous())
        if (auto *button = qobject_cast<QAbstractButton *>(watched))
            return pressByAccessKey(button);
    return false;
}

/// Qt would click first, and some time later.
bool PressGuard::pressByAccessKey(QAbstractButton *button)
{
    button->setFocus(Qt::ShortcutFocusReason);
    if (!isNoClick(button))
        button->click();
    return true;
}
