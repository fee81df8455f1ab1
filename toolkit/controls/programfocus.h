#pragma once

class QWidget;

/// A control that is told when it gets and loses the program's focus, and raises its GotFocus and LostFocus then.
class FocusListener
{
public:
    virtual ~FocusListener() = default;
    virtual void focusGained() = 0;
    virtual void focusLost() = 0;
};

/// Which control holds the program's focus: one state, apart from Qt's focus and from the reasons Qt gives for moving
/// it. It changes only when a control of a form has gained Qt's focus. What is no control (labels, frames, title bars,
/// menus, lists that drop down, message boxes, other programs) takes the focus from nobody; Qt may move its own
/// through any number of widgets while a window opens, closes or changes its state, only where it comes to rest counts.
///
/// A change raises the LostFocus of the control left, then the GotFocus of the one where the focus stands after that:
/// a routine that sends the focus elsewhere leaves the control first aimed at without any event. LostFocus never
/// nests, and a control that went with its form, or was disabled, raises none.
namespace ProgramFocus {
/// Makes the widget a control that can hold the focus, with all its parts.
void add(QWidget *control);
/// A form goes: its controls hold the focus no longer, and nothing is raised for them.
void removeAllIn(const QWidget *form);

/// The control that holds the focus; null when none has gained it yet.
QWidget *holder();
/// The control whose LostFocus routine runs; null while none does.
QWidget *leaving();

/// Looks where Qt's focus has come to rest and raises what is due. Called when an event has been delivered, and in the
/// middle of one where its effect depends on the focus: before a mouse press reaches the control under it.
void raiseEvents();
/// Moves the focus as a program does: what is due is raised before this returns, unless a LostFocus routine runs.
void moveTo(QWidget *control);
} // namespace ProgramFocus
