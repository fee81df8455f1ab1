#pragma once

#include "tests/support/desk.h"

#include <QVBoxLayout>

/// A form that holds one control named "it" and, to have somewhere to go, a button "away". Records what `it` raises.
template <class Control> class ControlForm : public Form
{
public:
    template <class... Args> explicit ControlForm(Args &&...args) : Form("test", "Test")
    {
        auto *page = new QVBoxLayout(this);
        it = add<Control>("it", std::forward<Args>(args)...);
        page->addWidget(it);
        auto *away = addButton("away", "Away");
        page->addWidget(away);
        setTabOrder({it, away});
    }

    /// Loads a form with such a control, in place of the one before.
    template <class... Args> static ControlForm *load(Args... args)
    {
        Forms::unloadAll();
        Forms::add("test", [=] { return new ControlForm(args...); });
        return static_cast<ControlForm *>(Load("test"));
    }

    template <class Signal> void watch(Signal signal, const char *name)
    {
        connect(it, signal, this, [this, name] { events += name; });
    }
    QStringList takeEvents() { return std::exchange(events, {}); }

    Control *it;
    QStringList events;
};

/// Plays a script on a form, its steps parted by blanks: "@it" clicks on a control, "<Alt+Down>" is a key,
/// "text:Bolt" is an act of the test's own, and anything else is typed into the control that has the focus.
inline void play(FormDriver &driver, const QString &script,
                 const std::function<void(const QString &act, const QString &value)> &own = {})
{
    for (const QString &step : script.split(u' ', Qt::SkipEmptyParts)) {
        if (step.startsWith(u'@')) {
            driver.click(step.mid(1));
        } else if (step.startsWith(u'<')) {
            const QKeyCombination key = QKeySequence(step.mid(1).chopped(1))[0];
            driver.key(key.key(), key.keyboardModifiers());
        } else if (step.contains(u':')) {
            own(step.section(u':', 0, 0), step.section(u':', 1));
        } else {
            driver.keys(step);
        }
    }
}
