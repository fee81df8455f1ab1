#include "tools/export.h"

#include "data/dao/database.h"
#include "data/schema/schema.h"
#include "tools/csv.h"
#include "tools/toolerror.h"

void exportTable(const QString &database, const QString &table, QTextStream &out)
{
    const std::unique_ptr<Database> file = DBEngine::OpenDatabase(database, false, true, Schema::Connect);
    // Looked up here, since a name that is no table would be the engine's error about a query.
    const std::vector<TableDef> &tables = file->TableDefs();
    const auto found = std::find_if(tables.begin(), tables.end(), [&](const TableDef &definition) {
        return definition.Name.compare(table, Qt::CaseInsensitive) == 0;
    });
    if (found == tables.end())
        throw ToolError{QString("'%1' has no table '%2'").arg(database, table)};

    QStringList names;
    for (const ColumnDef &column : found->columns)
        names += Csv::textField(column.name);
    out << names.join(u',') << '\n';
    Recordset rows = file->OpenRecordset(QString("SELECT * FROM [%1]").arg(found->Name));
    for (; !rows.Eof(); rows.MoveNext()) {
        for (int column = 0; column < rows.fieldCount(); ++column)
            out << (column ? "," : "") << Csv::field(rows.Fields(column).value());
        out << '\n';
    }
}
