#pragma once

#include "tests/support/company.h"

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
