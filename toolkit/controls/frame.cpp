#include "toolkit/controls/frame.h"

#include <QEvent>

void Frame::changeEvent(QEvent *event)
{
    QGroupBox::changeEvent(event);
    if (event->type() == QEvent::EnabledChange)
        paintContents(!isEnabled());
}

/// Lets the frame's controls use the colours of enabled ones while it is disabled.
void Frame::paintContents(bool asEnabled)
{
    const QList<QWidget *> contents = findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *control : contents) {
        // One that is disabled by itself looks so, inside a live frame and inside a dead one.
        if (!asEnabled || !control->isEnabledTo(this)) {
            control->setPalette(QPalette());
            continue;
        }
        QPalette palette = control->palette();
        for (int role = 0; role < QPalette::NColorRoles; ++role) {
            const auto colorRole = QPalette::ColorRole(role);
            palette.setBrush(QPalette::Disabled, colorRole, palette.brush(QPalette::Active, colorRole));
        }
        control->setPalette(palette);
    }
}
