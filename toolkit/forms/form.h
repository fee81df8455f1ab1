#pragma once

#include "toolkit/controls/controls.h"
#include "toolkit/controls/programfocus.h"
#include <QPointer>
#include <QWidget>
#include <functional>

/// A window of the program, shown inside the main window. Forms are single shared instances known by name:
/// `Load` makes one, runs its `formLoad` and shows it; `unload` runs `formUnload` and destroys it. A form's state
/// lies in its controls, which carry the names by which staff, tests and tools know them.
class Form : public QWidget
{
    Q_OBJECT
public:
    /// `name` becomes the object name, `caption` the window title.
    Form(const QString &name, const QString &caption);

    /// Closes the form. The object lives on until control returns to the event loop.
    void unload();
    /// True from the moment the form begins to go.
    bool isUnloading() const { return m_unloading; }

    /// Whether the user may maximise and resize it.
    bool isResizable() const { return m_resizable; }

    /// The order in which the focus goes through the form, as setTabOrder was told.
    const QList<QWidget *> &tabOrder() const { return m_tabOrder; }
    /// Gives the focus to the first stop of the tab order that can take it. The main window does so before it shows a
    /// new form; before that Qt forgets it, as the form moves into its window.
    void focusFirst();

protected:
    /// What the form does when it is loaded, before it is shown. Its window takes over the size and the place that
    /// the form gives itself here, border included; else Qt chooses them.
    virtual void formLoad() {}
    /// What it does when it goes, by unload, by its close box or with the main window.
    virtual void formUnload() {}
    /// What it does when it was resized (also once when it is shown).
    virtual void formResize() {}

    /// Gives the form's window a border that keeps its size. To be called before the form is shown.
    void setResizable(bool on) { m_resizable = on; }

    /// Makes a control with its name. The order in which the focusable ones are placed is set by setTabOrder.
    template <class Control, class... Args> Control *add(const char *name, Args &&...args)
    {
        auto *control = new Control(std::forward<Args>(args)..., this);
        control->setObjectName(QLatin1String(name));
        ProgramFocus::add(control);
        return control;
    }
    TextBox *addText(const char *name);           ///< selects all on focus
    MaskEdBox *addMoney(const char *name);        ///< selects all on focus, money format
    MaskEdBox *addMoneyDisplay(const char *name); ///< shows an amount; read-only and passed over by Tab
    ComboBox *addList(const char *name);          ///< a drop-down list
    ComboBox *addEditable(const char *name);      ///< an editable drop-down
    DTPicker *addDate(const char *name);
    QPushButton *addButton(const char *name, const QString &caption);
    QCheckBox *addCheck(const char *name, const QString &caption);
    /// Disabled, a frame makes dead what stands in it, and Tab passes over it; only the frame's caption is greyed.
    QGroupBox *addFrame(const char *name, const QString &caption);
    QLabel *addLabel(const char *name, const QString &caption = {});
    FlexGrid *addGrid(const char *name);
    /// A combo box the user never sees, holding a list parallel to a visible one.
    ComboBox *addHiddenList(const char *name);

    /// Lets typed characters search the box: hands each to ComboTypeAhead, with `gTypeAheadSeconds` as it stands then.
    static void setTypeAhead(ComboBox *box);

    /// Puts the focus through the widgets in this order. To be called when all stand in their layouts.
    void setTabOrder(const QList<QWidget *> &order);
    /// Sets the focus as a program does: error 5 when the widget can't take it. A form that is minimised is restored.
    static void setFocusTo(QWidget *widget);

    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QList<QWidget *> m_tabOrder;
    bool m_resizable = true;
    bool m_unloading = false;

    friend class Forms;
};
