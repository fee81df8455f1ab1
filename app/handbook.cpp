#include "app/handbook.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QKeyEvent>
#include <QUrl>

bool HandbookKey::eventFilter(QObject *watched, QEvent *event)
{
    // A key comes to the window first, whichever widget in it, or box above it, is to have it.
    if (!watched->isWindowType() || event->type() != QEvent::KeyPress)
        return false;
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier || key->isAutoRepeat())
        return false;
    const QString page = QCoreApplication::applicationDirPath() + "/docs/handbook/index.html";
    // A beep and no box: a key pressed by mistake is not to stand in the way of what is being typed.
    if (!QFileInfo::exists(page) || !QDesktopServices::openUrl(QUrl::fromLocalFile(page)))
        QApplication::beep();
    return true;
}
