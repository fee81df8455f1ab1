#include "reportengine/output/exports.h"

#include "data/values/csvfield.h"
#include "reportengine/output/newfile.h"
#include "reportengine/report.h"
#include "reportengine/rows/rowstore.h"

namespace {

/// Plain: no separators, no pictures; Null is empty.
QString plainText(const Value &value, FieldType type)
{
    if (value.isNull())
        return {};
    if (type == FieldType::Date)
        return value.toDate().date().toString(Qt::ISODate);
    if (type == FieldType::DateTime)
        return value.toDate().toIso();
    return value.toText();
}

} // namespace

Outcome writeCsv(Report &report, const QString &path, const Progress &progress)
{
    NewFile file(path);
    if (!file.open())
        return file.failure();
    const RowStore &rows = report.rows();
    QStringList cells;
    for (const DatasetField &field : report.dataset())
        cells.append(csvField(field.name));
    // Lines end as spreadsheets expect it, on every system.
    file.device()->write(cells.join(',').toUtf8() + "\r\n");
    for (int row = 0; row < rows.rowCount(); ++row) {
        for (int i = 0; i < cells.size(); ++i)
            // The dataset as it was read, in the recordset's order: groups and totals are the layout's.
            cells[i] = csvField(plainText(rows.value(row, i), rows.dataset()[i].type));
        file.device()->write(cells.join(',').toUtf8() + "\r\n");
        if (progress && row % 1000 == 0 && !progress(row, rows.rowCount()))
            return Outcome::cancelled();
    }
    return file.commit();
}
