#include "toolkit/controls/mousepointer.h"

#include <QGuiApplication>

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
