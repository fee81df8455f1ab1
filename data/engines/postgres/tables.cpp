#include "data/engines/postgres/tables.h"

#include "data/engines/postgres/answers.h"
#include "data/engines/postgres/dialect.h"
#include "data/values/limits.h"

namespace {

using postgres::literal;
using postgres::quoted;

/// The server's numbers for its types.
constexpr int Bool = 16, Int4 = 23, TextType = 25, Float8 = 701, VarChar = 1043, Timestamp = 1114, Numeric = 1700;

QByteArray typeOf(const ColumnDef &column)
{
    switch (column.type) {
    case ColumnType::Text:
        // Compared by bytes where nobody asks for more, which needs no language on the server.
        return "varchar(" + QByteArray::number(column.size > 0 ? column.size : LongestText) + ") COLLATE \"C\"";
    case ColumnType::Memo:
        return "text COLLATE \"C\"";
    case ColumnType::Date:
        return "timestamp(0)";
    case ColumnType::Currency:
        return "numeric(19,4)";
    default:
        return postgres::typeName(column.type);
    }
}

QByteArray declaration(const TableDef &table, const ColumnDef &column, engine::Key key)
{
    QByteArray text = quoted(column.name) + ' ' + typeOf(column);
    if (column.autoNumber) {
        // Not a serial of the server's own, which knows nothing of numbers that came in with rows: it would give them
        // again.
        text += " DEFAULT jet_autonumber(" + literal(postgres::Tables::sequenceOf(table.Name, column.name)) + ", " +
                literal(table.Name) + ", " + literal(column.name) + ')';
        if (key == engine::Key::AutoNumberIsKey)
            text += " PRIMARY KEY";
    } else if (column.defaultZero) {
        text += column.type == ColumnType::YesNo ? " DEFAULT false" : " DEFAULT 0";
    }
    return text;
}

ColumnType typeFrom(int type)
{
    switch (type) {
    case Bool:
        return ColumnType::YesNo;
    case Int4:
        return ColumnType::Long;
    case Float8:
        return ColumnType::Double;
    case Numeric:
        return ColumnType::Currency;
    case Timestamp:
        return ColumnType::Date;
    case TextType:
        return ColumnType::Memo;
    default:
        return ColumnType::Text;
    }
}

} // namespace

namespace postgres {

/// Two workstations may run one report at one time: each has scratch tables of its own.
bool Tables::isPrivate(const QString &table)
{
    return table.startsWith(u"tmp", Qt::CaseInsensitive);
}

QString Tables::sequenceOf(const QString &table, const QString &column)
{
    return table + u'_' + column + "_numbers";
}

QByteArrayList Tables::createStatements(const TableDef &table, engine::Key key)
{
    const bool own = isPrivate(table.Name);
    QByteArrayList statements, columns, owners;
    const bool keyed = key == engine::Key::AutoNumberIsKey;
    TableDef made = table;
    made.keyed = keyed;
    if (rowColumn(made) == RowColumn)
        // A session's own table is mostly filled and walked once: one sequence for all of them, and no key to keep.
        columns += quoted(RowColumn) + (own ? QByteArray(" int8 DEFAULT nextval('jet_row')")
                                            : QByteArray(" int8 GENERATED ALWAYS AS IDENTITY PRIMARY KEY"));
    for (const ColumnDef &column : table.columns) {
        columns += declaration(table, column, key);
        if (!column.autoNumber)
            continue;
        const QByteArray sequence = quoted(sequenceOf(table.Name, column.name));
        statements += (own ? "CREATE TEMP SEQUENCE " : "CREATE SEQUENCE ") + sequence;
        owners += "ALTER SEQUENCE " + sequence + " OWNED BY " + quoted(table.Name) + '.' + quoted(column.name);
    }
    // Rows that are changed again and again find room on their page, and their indexes stay as they are.
    statements += (own ? "CREATE TEMP TABLE " : "CREATE TABLE ") + quoted(table.Name) + " (" + columns.join(", ") +
                  ')' + (own ? "" : " WITH (fillfactor = 80)");
    return statements + owners;
}

QByteArray Tables::createStatement(const Schema::Index &index, const TableDef &table)
{
    const auto keyOf = [&table](const QString &column) {
        const int position = table.indexOf(column);
        const ColumnType type = position < 0 ? ColumnType::Long : table.columns[size_t(position)].type;
        const bool text = type == ColumnType::Text || type == ColumnType::Memo;
        return text ? "jet_key(" + quoted(column) + ')' : quoted(column);
    };
    QByteArrayList keys;
    for (const QString &column : index.columns)
        // As statements sort, or the index could not spare them the sorting.
        keys += keyOf(column) + " NULLS FIRST";
    QByteArray sql = "CREATE INDEX " + quoted(index.name) + " ON " + quoted(index.table) + " (" + keys.join(", ") + ')';
    if (!index.where.isEmpty()) { // "Status = 'Open'"
        const QStringList sides = index.where.split(" = ");
        sql += " WHERE " + keyOf(sides[0]) + " = jet_key(" + sides[1].toUtf8() + ')';
    }
    return sql;
}

QByteArray Tables::listOf(const QStringList &columns)
{
    QByteArrayList names;
    for (const QString &column : columns)
        names += quoted(column);
    return names.join(", ");
}

QByteArray Tables::insertStatement(const QString &table, const QStringList &columns)
{
    QByteArrayList places;
    for (qsizetype i = 1; i <= columns.size(); ++i)
        places += '$' + QByteArray::number(i);
    return "INSERT INTO " + quoted(table) + " (" + listOf(columns) + ") VALUES (" + places.join(", ") + ')';
}

QByteArrayList Tables::statisticsFor(const TableDef &table)
{
    QByteArrayList statements;
    for (const ColumnDef &column : table.columns) {
        if (column.type == ColumnType::Text)
            // The planner knows nothing of what a function gives, and takes every key for equally rare.
            statements += "CREATE STATISTICS " + quoted("st" + table.Name + '_' + column.name) + " ON (jet_key(" +
                          quoted(column.name) + ")) FROM " + quoted(table.Name);
    }
    return statements;
}

Result Tables::readDeclarations(PGconn *connection, const Uri &uri)
{
    // One statement for all tables, since each would cost a round trip at every start.
    return run(
        connection,
        "SELECT c.relname, a.attname, a.atttypid, a.atttypmod, coalesce(pg_get_expr(d.adbin, d.adrelid), ''),"
        "       coalesce(a.attnum = ANY (k.conkey), false), c.oid"
        " FROM pg_class AS c JOIN pg_attribute AS a ON a.attrelid = c.oid AND a.attnum > 0 AND NOT a.attisdropped"
        " LEFT JOIN pg_attrdef AS d ON d.adrelid = c.oid AND d.adnum = a.attnum"
        " LEFT JOIN pg_constraint AS k ON k.conrelid = c.oid AND k.contype = 'p'"
        " WHERE c.relkind = 'r' AND c.relnamespace IN ('public'::regnamespace, pg_my_temp_schema())"
        "   AND pg_table_is_visible(c.oid) AND c.relname NOT ILIKE 'msys%' AND a.attname <> '_row'"
        " ORDER BY c.oid, a.attnum",
        uri, {ErrorContext::Reading, {}, "catalogue"});
}

bool Tables::areSame(const PGresult *some, const PGresult *others)
{
    const int rows = PQntuples(some), columns = PQnfields(some);
    if (rows != PQntuples(others))
        return false;
    for (int cell = 0; cell < rows * columns; ++cell) {
        const int row = cell / columns, column = cell % columns;
        if (qstrcmp(PQgetvalue(some, row, column), PQgetvalue(others, row, column)) != 0)
            return false;
    }
    return true;
}

Catalog Tables::catalogFrom(const PGresult *rows)
{
    Catalog catalog;
    TableDef table;
    const auto text = [rows](int row, int column) {
        return QString::fromUtf8(PQgetvalue(rows, row, column), PQgetlength(rows, row, column));
    };
    const int count = PQntuples(rows);
    for (int row = 0; row < count; ++row) {
        if (text(row, 0) != table.Name) {
            if (!table.Name.isEmpty())
                catalog.add(std::move(table));
            table = {text(row, 0), {}};
        }
        ColumnDef column{text(row, 1), typeFrom(text(row, 2).toInt())};
        const int modifier = text(row, 3).toInt();
        if (text(row, 2).toInt() == VarChar && modifier > 4)
            column.size = modifier - 4; // as the server counts it, with a length word before it
        else if (column.type == ColumnType::Text)
            column.size = LongestText;
        const QString standard = text(row, 4);
        column.autoNumber = standard.startsWith(QLatin1String("jet_autonumber("));
        // The server gives a default back in its own words, by the column's type.
        column.defaultZero = standard == u"0" || standard == u"false" || standard.startsWith(QLatin1String("(0)")) ||
                             standard.startsWith(QLatin1String("'0'"));
        table.keyed = table.keyed || text(row, 5) == u"t";
        table.columns.push_back(std::move(column));
    }
    if (!table.Name.isEmpty())
        catalog.add(std::move(table));
    return catalog;
}

} // namespace postgres
