#include "tools/copy.h"

#include "data/dao/bulkload.h"
#include "data/dao/database.h"
#include "data/schema/schema.h"
#include "tools/newdatabase.h"
#include "tools/toolerror.h"

namespace {

Recordset allRows(Database &database, const TableDef &table)
{
    return database.OpenRecordset(QString("SELECT * FROM [%1]").arg(table.Name));
}

/// In the order of the rows in the original, which is that of their making; statements without an order give them so.
int copyRows(Database &source, BulkLoad &target, const TableDef &table)
{
    const QStringList names = table.columnNames();
    BulkLoad::Inserter inserter = target.into(table.Name, names);
    std::vector<Value> row(table.columns.size());
    int count = 0;
    for (Recordset rows = allRows(source, table); !rows.Eof(); rows.MoveNext(), ++count) {
        for (size_t i = 0; i < row.size(); ++i)
            row[i] = rows.Fields(names[qsizetype(i)]).value();
        inserter.add(row);
    }
    return count;
}

/// Through the same layer as the program reads them: what it cannot tell apart is the same.
void compareRows(Database &source, Database &copy, const TableDef &table)
{
    Recordset left = allRows(source, table), right = allRows(copy, table);
    for (int row = 1; !left.Eof() || !right.Eof(); left.MoveNext(), right.MoveNext(), ++row) {
        bool same = !left.Eof() && !right.Eof();
        for (const ColumnDef &column : table.columns)
            same = same && left.Fields(column.name).value() == right.Fields(column.name).value();
        if (!same)
            throw ToolError{QString("row %1 of '%2' did not arrive as it is").arg(row).arg(table.Name)};
    }
}

} // namespace

int fillCompany(const QString &from, const QString &to)
{
    // Others may go on working: everything is read as it stood when the copy began.
    const auto source = DBEngine::OpenDatabase(from, false, true, Schema::Connect + ";snapshot=yes");
    int count = 0;
    {
        // Closed before the comparison, which reads what stands there and not what was sent.
        BulkLoad target(to, Schema::Password, BulkLoad::File::New);
        for (const TableDef &table : Schema::permanentTables())
            count += copyRows(*source, target, table);
        target.commit();
    }
    const auto copy = DBEngine::OpenDatabase(to, false, true, Schema::Connect);
    for (const TableDef &table : Schema::permanentTables())
        compareRows(*source, *copy, table);
    return count;
}

int copyCompany(const QString &from, const QString &to)
{
    NewDatabase copy(to);
    const int count = fillCompany(from, copy.name());
    // Only now does the new database have its name; whatever failed before has left nothing.
    copy.publish();
    return count;
}
