#pragma once

#include <QFocusEvent>
#include <QWidget>
#include <functional>

/// Turns Qt's focus events into the platform's GotFocus and LostFocus. A control holds the focus, for the program,
/// from its GotFocus to its LostFocus; message boxes, menus, lists that drop down and other programs don't
/// interrupt that, and a form that is unloaded or a control that is disabled raises no LostFocus.
namespace FocusEvents {
/// Whether the control has got the focus and its GotFocus is due.
bool gained(QWidget *control, const QFocusEvent &event);
/// Whether the control has lost the focus and its LostFocus is due.
bool lost(QWidget *control, const QFocusEvent &event);

/// Shows another form's window, which takes the focus, then raises the LostFocus of the control left, and GotFocus in
/// the new form unless that routine sent the focus back. Qt moves its focus several times while a window shows.
void passToWindow(const std::function<void()> &show);

/// Stands while a LostFocus routine runs. The control that the focus is moving to has no part in what happens
/// meanwhile: if the routine sends the focus back, that control gets neither event.
class Leaving
{
public:
    Leaving();
    ~Leaving();
    Leaving(const Leaving &) = delete;
    Leaving &operator=(const Leaving &) = delete;
};

template <class Control> void raiseGotFocus(Control *control, const QFocusEvent &event)
{
    if (gained(control, event))
        emit control->gotFocus();
}

template <class Control> void raiseLostFocus(Control *control, const QFocusEvent &event)
{
    if (!lost(control, event))
        return;
    const Leaving leaving;
    emit control->lostFocus();
}
} // namespace FocusEvents
