#include "toolkit/controls/mousepointer.h"

#include <QGuiApplication>

/// A plain state, not counted: set twice and cleared once it is clear.
void setHourglass()
{
    if (!QGuiApplication::overrideCursor())
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}

void setDefaultPointer()
{
    while (QGuiApplication::overrideCursor())
        QGuiApplication::restoreOverrideCursor();
}
