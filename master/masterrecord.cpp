#include "master/masterrecord.h"

#include "toolkit/controls/combobox.h"
#include "toolkit/controls/textbox.h"
#include "toolkit/forms/fillcombo.h"
#include "toolkit/forms/mainmod.h"
#include <QCheckBox>

namespace {
void blank(QWidget *control)
{
    if (auto *check = qobject_cast<QCheckBox *>(control))
        check->setChecked(false);
    else if (auto *combo = qobject_cast<ComboBox *>(control))
        // A drop-down list has nothing picked then, though no entry of it is empty.
        combo->setText({});
    else
        static_cast<TextBox *>(control)->clear();
}

void showIn(QWidget *control, const Value &value)
{
    if (auto *check = qobject_cast<QCheckBox *>(control))
        check->setChecked(!value.isNull() && value.toBoolean());
    else if (auto *combo = qobject_cast<ComboBox *>(control))
        combo->setText(value.joined());
    else
        static_cast<TextBox *>(control)->setText(value.joined());
}

/// True or False of a check box, the text of any other control.
Value valueIn(const QWidget *control)
{
    if (const auto *check = qobject_cast<const QCheckBox *>(control))
        return check->isChecked();
    if (const auto *combo = qobject_cast<const ComboBox *>(control))
        return combo->text();
    return static_cast<const TextBox *>(control)->text();
}
} // namespace

/// In the spelling that every list of active records asks for.
void MasterRecord::fillStatus() const
{
    m_status->addItem("Active");
    m_status->addItem("InActive");
}

/// Active or not: what was retired is still found, and made active again here.
void MasterRecord::fillKeys() const
{
    fillCombo(m_key.box, QString("SELECT * FROM ") + m_key.table + " ORDER BY " + m_key.column, m_key.column);
}

/// The key goes in as typed: an apostrophe breaks the statement at the key that types it. Meant, as everywhere.
Recordset MasterRecord::find() const
{
    return gDatabase->OpenRecordset(QString("SELECT * FROM ") + m_key.table + " WHERE " + m_key.column + " = '" +
                                    m_key.box->text() + "'");
}

/// An empty key leaves everything as it stands. An unknown one blanks the form, with the status already filled in.
void MasterRecord::show() const
{
    if (m_key.box->text().isEmpty())
        return;
    Recordset rs = find();
    if (rs.Bof() && rs.Eof()) {
        for (const Bound &bound : m_columns)
            blank(bound.control);
        m_status->setText("Active");
    } else {
        for (const Bound &bound : m_columns)
            showIn(bound.control, rs.Fields(bound.column).value());
    }
    rs.Close();
}

/// Whether the key exists decides between a new row and a change, without a question; a name typed otherwise makes a
/// second record. The key is found in any case, and a form that writes it on a change stores the new spelling.
void MasterRecord::save() const
{
    Recordset rs = find();
    const bool isNew = rs.Bof() && rs.Eof();
    if (isNew) {
        rs.AddNew();
        // The day on which the record came in; changes leave it.
        rs.Fields("DateAdded") = Date::now();
    } else {
        rs.Edit();
    }
    if (isNew || m_key.writtenOnChange)
        rs.Fields(m_key.column) = m_key.box->text();
    for (const Bound &bound : m_columns) {
        // Texts as they were typed: the column converts them, and what it cannot hold is an error of its own.
        const Value value = valueIn(bound.control);
        if (bound.written == Written::Always || !value.joined().isEmpty())
            rs.Fields(bound.column) = value;
    }
    rs.Update();
    rs.Close();
}
