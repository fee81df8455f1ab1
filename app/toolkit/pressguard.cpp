#include "app/toolkit/pressguard.h"

#include "app/toolkit/msgbox.h"
#include <QAbstractButton>
#include <QApplication>
#include <QMouseEvent>

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
    return target && focus && focus != target && !target->isAncestorOf(focus);
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

bool PressGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (!watched->isWidgetType())
        return false;
    auto *widget = static_cast<QWidget *>(watched);
    QWidget *target = nullptr;
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick) {
        target = focusTargetOf(widget);
    } else if (event->type() == QEvent::Shortcut && qobject_cast<QAbstractButton *>(widget)) {
        target = widget;
        widget->setFocus(Qt::ShortcutFocusReason);
    } else {
        return false;
    }
    return messageBoxesShown() != m_boxesBefore || focusIsElsewhere(target);
}
