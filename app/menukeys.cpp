#include "app/menukeys.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>

namespace {
bool beginsWith(const QAction *action, QChar letter)
{
    return action->isVisible() && action->isEnabled() && action->text().startsWith(letter, Qt::CaseInsensitive);
}

QAction *activeAction(const QWidget *menu)
{
    const auto *list = qobject_cast<const QMenu *>(menu);
    return list ? list->activeAction() : static_cast<const QMenuBar *>(menu)->activeAction();
}

void press(QWidget *menu, Qt::Key key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(menu, &event);
}
} // namespace

MenuKeys::MenuKeys(QMenuBar *bar) : QObject(bar), m_bar(bar)
{
    // On the application, since a key goes to the field that has the focus and not to the bar.
    qApp->installEventFilter(this);
}

/// The bar itself knows this way in, by the Alt key alone.
void MenuKeys::enterBar()
{
    const auto send = [this](QEvent::Type type, Qt::KeyboardModifiers modifiers) {
        QKeyEvent event(type, Qt::Key_Alt, modifiers);
        QCoreApplication::sendEvent(m_bar->window(), &event);
    };
    send(QEvent::ShortcutOverride, Qt::AltModifier);
    send(QEvent::KeyPress, Qt::AltModifier);
    send(QEvent::KeyRelease, Qt::NoModifier);
}

bool MenuKeys::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    auto *widget = static_cast<QWidget *>(watched);
    const auto &key = static_cast<const QKeyEvent &>(*event);
    if (widget == m_bar || (qobject_cast<QMenu *>(widget) && widget->parentWidget() == m_bar->window()))
        return pressedInside(widget, key);
    const bool inMainWindow = widget->window() == m_bar->window() && !QApplication::activePopupWidget();
    return inMainWindow && pressedOutside(key);
}

bool MenuKeys::pressedOutside(const QKeyEvent &key)
{
    if (key.key() == Qt::Key_F10 && key.modifiers() == Qt::NoModifier) {
        enterBar();
        return true;
    }
    const bool isLetter = key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z;
    if (key.modifiers() != Qt::AltModifier || !isLetter)
        return false;
    const QChar letter(key.key());
    const QList<QAction *> entries = m_bar->actions();
    if (std::any_of(entries.begin(), entries.end(), [&](const QAction *entry) { return beginsWith(entry, letter); })) {
        enterBar();
        choose(m_bar, letter);
    }
    return true; // and never a letter typed into the field
}

bool MenuKeys::pressedInside(QWidget *menu, const QKeyEvent &key)
{
    const QString text = key.text();
    const bool isLetter = text.size() == 1 && text[0].isLetterOrNumber() && !(key.modifiers() & Qt::ControlModifier);
    return isLetter && choose(menu, text[0]);
}

/// False when no entry begins with the letter.
bool MenuKeys::choose(QWidget *menu, QChar letter)
{
    const QList<QAction *> entries = menu->actions();
    const auto from = entries.indexOf(activeAction(menu)) + 1;
    QAction *next = nullptr;
    int matches = 0;
    for (qsizetype i = 0; i < entries.size(); ++i) {
        QAction *entry = entries[(from + i) % entries.size()];
        if (beginsWith(entry, letter) && ++matches == 1)
            next = entry;
    }
    if (!next)
        return false;
    goTo(menu, next);
    // One entry of that letter is chosen at once; of several the next is marked.
    if (matches == 1)
        press(menu, menu == m_bar ? Qt::Key_Down : Qt::Key_Return);
    return true;
}

/// By the menu's own keys: set as its active entry by a call, a group would open.
void MenuKeys::goTo(QWidget *menu, const QAction *action)
{
    const Qt::Key forward = menu == m_bar ? Qt::Key_Right : Qt::Key_Down;
    for (qsizetype step = 0; step < menu->actions().size() && activeAction(menu) != action; ++step)
        press(menu, forward);
}
