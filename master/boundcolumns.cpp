#include "master/boundcolumns.h"

#include "app/toolkit/combobox.h"
#include "app/toolkit/textbox.h"
#include "data/dao/recordset.h"

namespace {
QString textIn(const QWidget *control)
{
    if (const auto *combo = qobject_cast<const ComboBox *>(control))
        return combo->text();
    return static_cast<const TextBox *>(control)->text();
}

void setTextIn(QWidget *control, const QString &text)
{
    if (auto *combo = qobject_cast<ComboBox *>(control))
        combo->setText(text);
    else
        static_cast<TextBox *>(control)->setText(text);
}
} // namespace

void BoundColumns::show(const Recordset &rs) const
{
    for (const Bound &bound : m_columns)
        setTextIn(bound.control, rs.Fields(bound.column).joined());
}

void BoundColumns::blank() const
{
    for (const Bound &bound : m_columns)
        setTextIn(bound.control, {});
}

void BoundColumns::write(Recordset &rs) const
{
    for (const Bound &bound : m_columns) {
        const QString text = textIn(bound.control);
        if (bound.written == Written::Always || !text.isEmpty())
            rs.Fields(bound.column) = text;
    }
}
