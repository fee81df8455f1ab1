#include "toolkit/forms/fillcombo.h"

#include "toolkit/controls/combobox.h"
#include "toolkit/forms/mainmod.h"

void fillCombo(ComboBox *combo, const QString &sql, const char *column)
{
    QStringList entries;
    Recordset rs = gDatabase->OpenRecordset(sql);
    // Looked up once, not for every row.
    const Field field = rs.Fields(column);
    while (!rs.Eof()) {
        entries += field.text();
        rs.MoveNext();
    }
    rs.Close();
    // All in one go: each one by itself would have the box tell its list of a change many thousand times.
    combo->addItems(entries);
}
