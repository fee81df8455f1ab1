#include "toolkit/forms/forms.h"

#include "toolkit/forms/form.h"
#include <QMap>

namespace {
struct Registry
{
    QMap<QString, Forms::Factory> factories;
    QMap<QString, QPointer<Form>> loaded;
    QList<QPointer<Form>> instances; ///< loaded forms without a name of their own
    Forms::Host host;
};

Registry &registry()
{
    static Registry forms;
    return forms;
}
} // namespace

void Forms::add(const QString &name, Factory factory)
{
    registry().factories.insert(name, std::move(factory));
}

bool Forms::knows(const QString &name)
{
    return registry().factories.contains(name);
}

QStringList Forms::names()
{
    return registry().factories.keys();
}

void Forms::setHost(Host host)
{
    registry().host = std::move(host);
}

Form *Forms::loaded(const QString &name)
{
    Form *form = registry().loaded.value(name);
    return form && !form->isUnloading() ? form : nullptr;
}

/// Windows that are gone leave empty pointers behind, which go with the next one that is opened.
void Forms::loadInstance(Form *form)
{
    registry().instances.removeAll(nullptr);
    registry().instances.append(form);
    open(form);
}

void Forms::open(Form *form)
{
    // The load routine runs before there is a window, as it may set the form's size and place.
    form->formLoad();
    if (registry().host)
        registry().host(form);
    else
        form->show();
}

/// Over a copy, since an unload routine may take other forms out of the list.
void Forms::unloadAll()
{
    const auto named = registry().loaded.values();
    const auto others = registry().instances;
    for (const QPointer<Form> &form : named + others)
        if (form)
            form->unload();
}

Form *Load(const QString &name)
{
    // A form that is on its way out does not count: its name is free for a new one while the object lives on to the end
    // of the event.
    if (Form *open = Forms::loaded(name))
        return open;
    const Forms::Factory factory = registry().factories.value(name);
    Q_ASSERT_X(factory, "Load", qPrintable(name));
    Form *form = factory();
    // Before its load routine runs, which may ask for the form by its name.
    registry().loaded[name] = form;
    Forms::open(form);
    return form;
}
