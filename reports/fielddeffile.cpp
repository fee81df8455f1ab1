#include "reports/fielddeffile.h"
#include "data/dao/recordset.h"
#include <QFileInfo>
#include <QSaveFile>

namespace {

/// Type word and sample; texts have their length between the two.
QString describe(const Field &field)
{
    switch (field.Type()) {
    case ColumnType::Text:
        return QString("String\t%1\tsample").arg(field.Size());
    case ColumnType::Memo:
        return "Memo\tsample";
    case ColumnType::Long:
        return "Long\t1";
    case ColumnType::Double:
        return "Number\t1.00";
    case ColumnType::Currency:
        return "Currency\t1.00";
    case ColumnType::Date:
        return "Date\t1/1/2000";
    case ColumnType::YesNo:
        return "Boolean\tTrue";
    }
    return {};
}

} // namespace

int CreateFieldDefFile(Recordset &data, const QString &path, bool overwrite)
{
    // The old file stays until the new one is whole.
    QSaveFile file(path);
    if ((!overwrite && QFileInfo::exists(path)) || !file.open(QIODevice::WriteOnly))
        return 0;
    QString text = "; Field definition file for table: " + QFileInfo(path).completeBaseName() + "\r\n";
    for (int column = 0; column < data.fieldCount(); ++column) {
        const Field field = data.Fields(column);
        text += field.Name() + "\t" + describe(field) + "\r\n";
    }
    // One byte a character, as the report designer reads it; column names are plain ASCII.
    file.write(text.toLatin1());
    return file.commit() ? 1 : 0;
}
