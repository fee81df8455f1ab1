#include "toolkit/forms/fillcombo.h"

#include "toolkit/controls/combobox.h"
#include "toolkit/forms/mainmod.h"

void fillCombo(ComboBox *combo, const QString &sql, const char *column)
{
    QStringList entries;
    Recordset rs = gDatabase->OpenRecordset(sql);
    const Field field = rs.Fields(column);
    while (!rs.Eof()) {
        entries += field.text();
        rs.MoveNext();
    }
    rs.Close();
    combo->addItems(entries);
}
