#include "toolkit/controls/focusevents.h"

#include "toolkit/forms/form.h"
#include <QApplication>
#include <QPointer>
#include <QScopedValueRollback>

namespace {
/// The control whose GotFocus was the last, until its LostFocus.
QPointer<QWidget> &holder()
{
    static QPointer<QWidget> control;
    return control;
}

int leavingRoutines = 0;
bool windowShows = false;

/// Qt moves its focus, but not the program's.
bool isInterruption(Qt::FocusReason reason)
{
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
}

bool isUnloading(const QWidget *control)
{
    for (const QWidget *widget = control; widget; widget = widget->parentWidget())
        if (const auto *form = qobject_cast<const Form *>(widget))
            return form->isUnloading();
    return false;
}

/// A control that lost the focus to a menu only learns here that another form was opened from it.
void releaseFormerHolder(QWidget *control)
{
    QWidget *former = holder();
    if (!former || former == control)
        return;
    holder() = nullptr;
    if (isUnloading(former) || !former->isEnabled())
        return;
    const FocusEvents::Leaving leaving;
    QMetaObject::invokeMethod(former, "lostFocus", Qt::DirectConnection);
}
} // namespace

FocusEvents::Leaving::Leaving()
{
    ++leavingRoutines;
}
FocusEvents::Leaving::~Leaving()
{
    --leavingRoutines;
}

void FocusEvents::passToWindow(const std::function<void()> &show)
{
    {
        const QScopedValueRollback raisingNothing(windowShows, true);
        show();
    }
    releaseFormerHolder(nullptr);
    QWidget *control = QApplication::focusWidget();
    if (control && !holder()) {
        control->window()->setFocus();
        control->setFocus();
    }
}

bool FocusEvents::gained(QWidget *control, const QFocusEvent &event)
{
    if (holder() == control || windowShows)
        return false;
    if (leavingRoutines > 0 && isInterruption(event.reason()))
        return false; // a box inside a LostFocus was closed; whether the focus stays here is not settled yet
    releaseFormerHolder(control);
    if (!control->hasFocus())
        return false;
    holder() = control;
    return true;
}

bool FocusEvents::lost(QWidget *control, const QFocusEvent &event)
{
    // A list that drops down for the first time takes the focus for no reason that Qt would name.
    if (holder() != control || windowShows || isInterruption(event.reason()) || QApplication::activePopupWidget())
        return false;
    holder() = nullptr;
    return control->isEnabled() && !isUnloading(control);
}
