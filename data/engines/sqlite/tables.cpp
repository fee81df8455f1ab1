#include "data/engines/sqlite/tables.h"

#include "data/engines/sqlite/connection.h"
#include "data/values/limits.h"
#include <array>

namespace {

struct Declaration
{
    ColumnType type;
    const char *word; ///< tells the type
    const char *text; ///< the whole declaration
};

/// SQLite takes a column's storage from parts of the declared type: INT, CHAR or TEXT, DOUB or REAL. Where the
/// type's word holds none of them a second word names the storage.
constexpr std::array Declarations = {
    Declaration{ColumnType::Memo, "LONGTEXT", "LONGTEXT"},
    Declaration{ColumnType::YesNo, "YESNO", "YESNO INTEGER"},
    Declaration{ColumnType::Currency, "CURRENCY", "CURRENCY REAL"},
    Declaration{ColumnType::Date, "DATETIME", "DATETIME TEXT"},
    Declaration{ColumnType::Double, "DOUBLE", "DOUBLE"},
    Declaration{ColumnType::Long, "COUNTER", "COUNTER INTEGER"},
    Declaration{ColumnType::Long, "INT", "INTEGER"},
    Declaration{ColumnType::Text, "TEXT", "TEXT"},
    // Words other tools use.
    Declaration{ColumnType::YesNo, "BOOL", ""},
    Declaration{ColumnType::Date, "DATE", ""},
    Declaration{ColumnType::Text, "CHAR", ""},
    Declaration{ColumnType::Double, "REAL", ""},
    Declaration{ColumnType::Double, "FLOAT", ""},
    Declaration{ColumnType::Double, "NUM", ""},
};

QByteArray declaration(const ColumnDef &column, engine::Key key)
{
    // AUTOINCREMENT, or SQLite would give the number of the last row again once that row is deleted.
    if (column.autoNumber)
        return key == engine::Key::AutoNumberIsKey ? "INTEGER PRIMARY KEY AUTOINCREMENT" : "COUNTER INTEGER";
    const auto found = std::find_if(Declarations.begin(), Declarations.end(), [&](const Declaration &known) {
        return known.type == column.type && !QByteArray(known.word).startsWith("COUNTER");
    });
    QByteArray text = found->text;
    if (column.type == ColumnType::Text && column.size > 0)
        text += '(' + QByteArray::number(column.size) + ')';
    if (column.type == ColumnType::Text || column.type == ColumnType::Memo)
        text += " COLLATE NOCASE";
    if (column.defaultZero)
        text += " DEFAULT 0";
    return text;
}

/// A column out of its declared type, "TEXT(50)" for one.
ColumnDef columnFrom(const QString &name, const QString &declared, const QString &defaultText, bool isKey)
{
    ColumnDef column;
    column.name = name;
    for (const Declaration &known : Declarations) {
        if (!declared.contains(QLatin1String(known.word), Qt::CaseInsensitive))
            continue;
        column.type = known.type;
        column.autoNumber = known.type == ColumnType::Long && (isKey || QByteArray(known.word) == "COUNTER");
        break;
    }
    const qsizetype bracket = declared.indexOf(u'(');
    if (column.type == ColumnType::Text && bracket >= 0)
        column.size = QStringView(declared).mid(bracket + 1).chopped(1).trimmed().toInt();
    if (column.type == ColumnType::Text && column.size == 0)
        column.size = LongestText;
    column.defaultZero = defaultText == u"0";
    return column;
}

} // namespace

QByteArray Tables::quoted(const QString &name)
{
    return jetsql::quotedName(name).toUtf8();
}

QByteArray Tables::createStatement(const TableDef &table, engine::Key key)
{
    QByteArrayList columns;
    for (const ColumnDef &column : table.columns)
        columns += quoted(column.name) + ' ' + declaration(column, key);
    return "CREATE TABLE " + quoted(table.Name) + " (\n  " + columns.join(",\n  ") + "\n)";
}

QByteArray Tables::createStatement(const Schema::Index &index)
{
    QByteArrayList columns;
    for (const QString &column : index.columns)
        columns += quoted(column);
    QByteArray sql =
        "CREATE INDEX " + quoted(index.name) + " ON " + quoted(index.table) + " (" + columns.join(", ") + ')';
    if (!index.where.isEmpty())
        sql += " WHERE " + index.where.toUtf8();
    return sql;
}

QByteArray Tables::insertStatement(const QString &table, const QStringList &columns)
{
    QByteArrayList names;
    for (const QString &column : columns)
        names += quoted(column);
    const QByteArrayList places(columns.size(), "?");
    return "INSERT INTO " + quoted(table) + " (" + names.join(", ") + ") VALUES (" + places.join(", ") + ')';
}

Catalog Tables::readCatalog(Connection &connection)
{
    const ErrorContext reading{ErrorContext::Reading, "sqlite_schema", {}};
    // One statement over all tables: reports make and drop them all the time, and after each the catalogue is read
    // anew.
    PreparedStatement columns = connection.prepare("SELECT t.name, c.name, c.type, c.dflt_value, c.pk"
                                                   " FROM sqlite_schema AS t JOIN pragma_table_info(t.name) AS c"
                                                   " WHERE t.type = 'table' ORDER BY t.rowid, c.cid",
                                                   reading);
    Catalog catalog;
    TableDef table;
    const auto finishTable = [&] {
        if (!table.Name.isEmpty() && !isSystemTable(table.Name))
            catalog.add(std::move(table));
        table = {};
    };
    while (columns.next()) {
        const QString name = columns.text(0);
        if (name != table.Name) {
            finishTable();
            table.Name = name;
        }
        const bool isKey = columns.integer(4) != 0;
        table.keyed = table.keyed || isKey;
        table.columns.push_back(columnFrom(columns.text(1), columns.text(2), columns.text(3), isKey));
    }
    finishTable();
    connection.giveBack(std::move(columns));
    return catalog;
}

/// What the program's own list of tables leaves out, as users know it.
bool Tables::isSystemTable(const QString &name)
{
    return name.startsWith(u"MSys", Qt::CaseInsensitive) || name.startsWith(u"sqlite_", Qt::CaseInsensitive);
}
