#pragma once

#include <QString>

/// The platform's message box: no icon, OK alone. Modal to the whole program.
void MsgBox(const QString &prompt, const QString &title);
/// The same with Yes and No (Yes is the default; neither Esc nor the close mark answers). True for Yes.
bool MsgBoxYesNo(const QString &prompt, const QString &title);
/// The run-time error box: "Run-time error 'N':", a blank line, the description.
class RuntimeError;
void showRuntimeError(const RuntimeError &error);
