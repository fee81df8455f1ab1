#include "tests/support/rows.h"

#include "toolkit/forms/mainmod.h"

QString addRow(const char *table, const Cells &cells)
{
    Recordset rs = gDatabase->OpenRecordset(QStringLiteral("SELECT * FROM ") + QLatin1String(table));
    rs.AddNew();
    for (const auto &[column, value] : cells)
        rs.Fields(column) = value;
    const Field first = rs.Fields(0);
    const QString id = first.Name() == QLatin1String("ID") ? first.text() : QString();
    rs.Update();
    return id;
}
