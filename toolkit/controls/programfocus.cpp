#include "toolkit/controls/programfocus.h"

#include <QApplication>
#include <QPointer>
#include <QScopedValueRollback>
#include <QSet>
#include <QWidget>

namespace {
struct State
{
    QPointer<QWidget> holder;
    QPointer<QWidget> leaving;      ///< whose LostFocus routine runs
    QSet<const QObject *> controls; ///< all that can hold the focus
};

State &state()
{
    static State focus;
    return focus;
}

/// The control that has Qt's focus in a window, or whose part has it, such as the editor of a grid's cell. Asked of the
/// window, not of the application, it is the same while a box, a menu or another program is in front.
QWidget *controlWithQtFocusIn(const QWidget *window)
{
    for (QWidget *widget = window->focusWidget(); widget && widget != window; widget = widget->parentWidget())
        if (state().controls.contains(widget))
            return widget;
    return nullptr;
}

void raiseEventsIn(const QWidget *window)
{
    QWidget *control = controlWithQtFocusIn(window);
    if (state().leaving || !control || control == state().holder)
        return;
    // Nobody holds the focus while the routine of the field left runs, so what it asks for raises no second round.
    const QPointer<QWidget> former = std::exchange(state().holder, nullptr);
    auto *left = former && former->isEnabled() ? dynamic_cast<FocusListener *>(former.data()) : nullptr;
    if (left) {
        const QScopedValueRollback leaving(state().leaving, former);
        left->focusLost();
        // The routine may have sent the focus back; then the control aimed at first never had it.
        control = controlWithQtFocusIn(window);
    }
    state().holder = control;
    if (auto *entered = dynamic_cast<FocusListener *>(control))
        entered->focusGained();
}
} // namespace

void ProgramFocus::add(QWidget *control)
{
    state().controls.insert(control);
    // By its address alone, since by then it is no widget any more.
    QObject::connect(control, &QObject::destroyed, [](QObject *gone) { state().controls.remove(gone); });
}

void ProgramFocus::removeAllIn(const QWidget *form)
{
    if (form->isAncestorOf(state().holder))
        state().holder = nullptr;
    state().controls.removeIf(
        [form](const QObject *control) { return form->isAncestorOf(static_cast<const QWidget *>(control)); });
}

QWidget *ProgramFocus::holder()
{
    return state().holder;
}

QWidget *ProgramFocus::leaving()
{
    return state().leaving;
}

void ProgramFocus::raiseEvents()
{
    if (const QWidget *widget = QApplication::focusWidget())
        raiseEventsIn(widget->window());
}

void ProgramFocus::moveTo(QWidget *control)
{
    control->setFocus();
    raiseEventsIn(control->window());
}
