#include "tools/check/findings.h"

#include "data/engines/sqlite/connection.h"
#include "data/engines/sqlite/tables.h"

namespace check {

namespace {

/// The condition under which a stored value is none of the column's type.
QByteArray misfit(const ColumnDef &column)
{
    const QByteArray name = Tables::quoted(column.name);
    switch (column.type) {
    case ColumnType::Text:
        return "length(" + name + ") > " + QByteArray::number(column.size);
    case ColumnType::Memo:
        return {};
    case ColumnType::Date:
        // Only the stored form survives the round trip unchanged, Null included.
        return "datetime(" + name + ") IS NOT " + name;
    case ColumnType::Long:
        return "typeof(" + name + ") NOT IN ('integer', 'null') OR abs(" + name + ") > 2147483648";
    case ColumnType::YesNo:
        // Never Null in a table of its own, and whoever reads one relies on that.
        return name + " NOT IN (0, 1) OR " + name + " IS NULL";
    default:
        return "typeof(" + name + ") NOT IN ('real', 'integer', 'null')";
    }
}

/// The same in words.
QString faultOf(const ColumnDef &column)
{
    switch (column.type) {
    case ColumnType::Text:
        return QString("text longer than the %1 characters of %2").arg(column.size).arg(column.name);
    case ColumnType::Date:
        return "no date in " + column.name;
    case ColumnType::YesNo:
        return "neither yes nor no in " + column.name;
    default:
        return "no number in " + column.name;
    }
}

} // namespace

bool checkTables(const Catalog &catalog, Findings &findings)
{
    bool sound = true;
    // A table or column that is missing would stop the queries of the later steps.
    for (const auto *tables : {&Schema::permanentTables(), &Schema::keptScratchTables()}) {
        for (const TableDef &expected : *tables) {
            const TableDef *table = catalog.find(expected.Name);
            if (!table) {
                findings.add(expected.Name, "the table is missing", {});
                sound = false;
                continue;
            }
            for (const ColumnDef &column : expected.columns) {
                if (table->indexOf(column.name) >= 0)
                    continue;
                findings.add(expected.Name, "missing columns", column.name);
                sound = false;
            }
        }
    }
    return sound;
}

bool checkStructure(Connection &connection, Findings &findings)
{
    const ErrorContext reading{ErrorContext::Reading, {}, "integrity check"};
    PreparedStatement integrity = connection.prepare("PRAGMA integrity_check", reading);
    bool sound = true;
    while (integrity.next()) {
        if (integrity.text(0) == u"ok")
            continue;
        sound = false;
        findings.add("File", "damaged", integrity.text(0));
    }

    return checkTables(Tables::readCatalog(connection), findings) && sound;
}

void checkColumns(Connection &connection, Findings &findings)
{
    for (const TableDef &table : Schema::permanentTables()) {
        for (const ColumnDef &column : table.columns) {
            const QByteArray condition = misfit(column);
            // A memo takes any text of any length.
            if (condition.isEmpty())
                continue;
            reportRows(connection, findings, table.Name, faultOf(column),
                       "SELECT 'row ' || rowid FROM " + Tables::quoted(table.Name) + " WHERE " + condition);
        }
    }
}

} // namespace check
