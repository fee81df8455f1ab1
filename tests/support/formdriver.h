#pragma once

#include "toolkit/forms/form.h"
#include "toolkit/forms/forms.h"
#include <QTest>
#include <gtest/gtest.h>

/// Fails unless `action` raises the run-time error of that number, and with that description if one is given. A form's
/// routines raise it through the same event dispatch as in the program; where that would show the box and end the
/// process, here `action` ends.
void expectRuntimeError(int number, const std::function<void()> &action, const QString &description = {});

/// Lets everything that is posted happen, deletion of unloaded forms included.
void settle();

/// The hands and eyes of a user on one loaded form, whose controls are told by name:
///
///     FormDriver order("frmOrderEntry", "cmbCustomer: Acme Supply"); // opens it and picks a customer
///     order.act("txtOrderNumber: 1001; btnSave");
///     EXPECT_EQ(order.text("lblStatus"), "Open");
///
/// All input is key and mouse events. A control that isn't there ends the test with an exception.
class FormDriver
{
public:
    /// Loads the form unless it is loaded, and does the steps.
    explicit FormDriver(const QString &form, const QString &steps = {});

    bool isLoaded() const { return m_form && !m_form->isUnloading(); }
    Form *form() const { return m_form; }
    template <class Control> Control *control(const QString &name) const
    {
        auto *found = dynamic_cast<Control *>(find(name));
        if (!found)
            throw std::runtime_error("no such control: " + name.toStdString());
        return found;
    }

    /// What steps of a test's own do with the text behind their colon.
    using OwnSteps = std::map<QString, std::function<void(const QString &)>>;

    /// Does one step after the other and lets all come to rest that they set going:
    ///
    ///     btnSave              a click             txtQty: 5            types over what stands there
    ///     vsfgItems[2]         a click on a row    cmbPart: AX-100      picks from a list, or types where one may type
    ///     vsfgItems[2,1]       or on a cell        cmbPart:             nothing picked any more, as code does it
    ///     vsfgItems[1,3]: 4    types into a cell   dtDate: 3/5/2011     types a date
    ///     <Tab> 12 <Alt+S>     presses keys in the control that has the focus; keys: 12 <Tab> does the same
    void act(const QString &steps, const OwnSteps &own = {});

    /// Clicks on a control: presses a button, gives the focus to a field.
    void click(const QString &name);
    /// Brings the focus to a field with the mouse and replaces its text. The field keeps the focus.
    void type(const QString &name, const QString &text);
    /// Presses keys in the control that has the focus: characters, or one key by its code.
    void keys(const QString &text);
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Opens a combo box's list and clicks on the entry. The box keeps the focus.
    void choose(const QString &name, const QString &entry);

    /// Clicks, or double-clicks, on a grid's cell; rows count the header as 0.
    void clickCell(const QString &grid, int row, int col = 0);
    void doubleClickCell(const QString &grid, int row, int col = 0);
    /// Clicks on a cell, types into it and commits with Enter.
    void typeCell(const QString &grid, int row, int col, const QString &text);

    /// What a control holds: the text of a field, the raw text of a masked box, the caption of a label, button or
    /// frame, a date picker's date, "True" or "False" for a check box.
    QString text(const QString &name) const;
    /// The texts of some controls, blanks between their names, with "|" between them.
    QString shows(const QString &names) const;
    /// One row of a grid, its cells with "|" between them, and the whole grid by its rows, the header first.
    QString row(const QString &grid, int row) const;
    QStringList grid(const QString &name) const;
    /// One data row of a grid as the screen shows it.
    QString shownRow(const QString &grid, int row) const;
    bool enabled(const QString &name) const { return control<QWidget>(name)->isEnabled(); }
    /// The name of the control that has the focus; empty when none has.
    QString focus() const;

private:
    QWidget *find(const QString &name) const;
    void comeToRest() const;
    void press(const QString &keys);
    void step(const QString &name, const QStringList &cell);
    void step(const QString &name, const QStringList &cell, const QString &text);

    QPointer<Form> m_form;
};
