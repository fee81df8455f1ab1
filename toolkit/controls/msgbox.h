#pragma once

#include <QString>
#include <functional>

class RuntimeError;

/// The platform's message box: no icon, OK alone. Modal to the whole program. Without a title it bears the program's.
void MsgBox(const QString &prompt, const QString &title = {});
/// The same with Yes and No (Yes is the default; neither Esc nor the close mark answers). True for Yes.
bool MsgBoxYesNo(const QString &prompt, const QString &title);
/// The run-time error box: "Run-time error 'N':", a blank line, the description.
void showRuntimeError(const RuntimeError &error);
/// What has to be done before any box is shown, since people act on what a box says.
void setBeforeBoxes(std::function<void()> action);
/// How many boxes were shown so far. A mouse press that brought one up while it moved the focus is not a click.
int messageBoxesShown();

/// The program's title, on the main window and on boxes without one of their own.
inline constexpr const char *ProgramTitle = "Tamrick Inventory Management";
