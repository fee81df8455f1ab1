#pragma once

#include <QStringList>
#include <functional>

class Form;

/// The program's forms by name. The shell fills the list; everyone else asks for a form by its name.
class Forms
{
public:
    using Factory = std::function<Form *()>;
    /// What shows a new form: the main window.
    using Host = std::function<void(Form *)>;

    static void add(const QString &name, Factory factory);
    static bool knows(const QString &name);
    /// The names of all forms that can be loaded, sorted.
    static QStringList names();
    static void setHost(Host host);
    /// The instance that is loaded, or null.
    static Form *loaded(const QString &name);
    /// Loads a form that is not one of the single instances (a viewer window): same steps, no name kept.
    static void loadInstance(Form *form);
    static void unloadAll();

private:
    static void open(Form *form);
    friend Form *Load(const QString &name);
};

/// Opens a form: makes it, runs its load, shows it. Of a form that is loaded already: nothing. Returns the
/// instance.
Form *Load(const QString &name);
