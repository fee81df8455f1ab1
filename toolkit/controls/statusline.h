#pragma once

#include <QString>
#include <functional>

/// Tells what must not be a box, such as where an export or a print went. Without a place for it, nothing is shown.
void showStatus(const QString &text);

/// Sets the place: the main window's foot. An empty function takes it away.
void setStatusPlace(std::function<void(const QString &text)> place);
