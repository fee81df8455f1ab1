#include "tests/jetsql/sqlcompany.h"

#include "data/engines/sqlite/collation.h"
#include "data/engines/sqlite/functions.h"
#include "data/engines/sqlite/tables.h"
#include "data/schema/schema.h"
#include "data/values/conversions.h"
#include "tests/jetsql/corpus.h"
#include <stdexcept>

namespace {

sqlite3 *openInMemory()
{
    sqlite3 *connection = nullptr;
    sqlite3_open(":memory:", &connection);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    registerJetFunctions(connection);
    registerJetCollation(connection);
    return connection;
}

/// A stored value as the corpus shows it.
QString shown(sqlite3_stmt *statement, int column, ColumnType type)
{
    if (sqlite3_column_type(statement, column) == SQLITE_NULL)
        return "Null";
    const QString text = QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(statement, column)));
    switch (type) {
    case ColumnType::Text:
    case ColumnType::Memo:
        return corpus::shownText(text);
    case ColumnType::Date: {
        const std::optional<Date> date = Date::fromIso(text);
        return date ? date->toText() : "no date: " + text;
    }
    case ColumnType::YesNo:
        return textOf(sqlite3_column_int(statement, column) != 0);
    case ColumnType::Long:
        return sqlite3_column_type(statement, column) == SQLITE_INTEGER ? text : "not whole: " + text;
    case ColumnType::Double:
    case ColumnType::Currency:
        return textOf(sqlite3_column_double(statement, column));
    }
    return text;
}

QString shown(const TableDef &table)
{
    static const char *const words[] = {"text", "memo", "long", "double", "currency", "date", "yesno"};
    QStringList columns;
    for (const ColumnDef &column : table.columns) {
        columns.append(column.name + u' ' + (column.autoNumber ? "counter" : words[int(column.type)]));
        if (column.size > 0)
            columns.last() += u'(' + QString::number(column.size) + u')';
    }
    return "+ " + columns.join(" | ");
}

} // namespace

SqlCompany::SqlCompany() : m_connection(openInMemory(), &sqlite3_close)
{
    for (const auto &tables : {Schema::permanentTables(), Schema::keptScratchTables()}) {
        for (const TableDef &table : tables)
            add(table, true);
    }
    for (const Schema::Index &index : Schema::indexes()) {
        if (m_catalog.find(index.table))
            run(Tables::createStatement(index));
    }
}

void SqlCompany::add(const TableDef &table, bool keyed)
{
    run(Tables::createStatement(table, keyed ? engine::Key::AutoNumberIsKey : engine::Key::None));
    m_catalog.add(table);
}

void SqlCompany::fill(const QByteArrayList &inserts)
{
    for (const QByteArray &insert : inserts)
        run(insert);
}

void SqlCompany::begin()
{
    m_before = m_catalog;
    run("BEGIN");
}

void SqlCompany::rollback()
{
    run("ROLLBACK");
    m_catalog = m_before;
}

void SqlCompany::raise(const QByteArray &sql) const
{
    const QString message = QString::fromUtf8(sqlite3_errmsg(m_connection.get()));
    if (const auto error = runtimeErrorFrom(message))
        throw *error;
    throw std::runtime_error((message + " in " + QString::fromUtf8(sql)).toStdString());
}

SqlCompany::Statement SqlCompany::prepare(const QByteArray &sql) const
{
    sqlite3_stmt *statement = nullptr;
    const int size = int(sql.size()) + 1;
    if (sqlite3_prepare_v2(m_connection.get(), sql.constData(), size, &statement, nullptr) != SQLITE_OK)
        raise(sql);
    return {statement, &sqlite3_finalize};
}

bool SqlCompany::step(const Statement &statement) const
{
    const int code = sqlite3_step(statement.get());
    if (code != SQLITE_ROW && code != SQLITE_DONE)
        raise(sqlite3_sql(statement.get()));
    return code == SQLITE_ROW;
}

void SqlCompany::run(const QByteArray &sql) const
{
    const Statement statement = prepare(sql);
    while (step(statement)) {
    }
}

QString SqlCompany::complaint(const QByteArray &sql) const
{
    try {
        prepare(sql);
        return {};
    } catch (const std::runtime_error &error) {
        return QString::fromUtf8(error.what());
    }
}

QList<QStringList> SqlCompany::rows(const QByteArray &sql, int columns) const
{
    QList<QStringList> result;
    const Statement statement = prepare(sql);
    if (columns < 0)
        columns = sqlite3_column_count(statement.get());
    while (step(statement)) {
        QStringList row;
        for (int i = 0; i < columns; ++i)
            row.append(shown(statement.get(), i, ColumnType::Text));
        result.append(row);
    }
    return result;
}

QStringList SqlCompany::outcome(const QString &statement, const QString &limit)
{
    try {
        const jetsql::Translation translation = translate(statement);
        if (translation.kind == jetsql::StatementKind::Select)
            return selected(translation, limit);
        return ran(translation);
    } catch (const RuntimeError &error) {
        return {"! " + QString::number(error.number()) + u' ' + error.description()};
    } catch (const std::runtime_error &error) {
        return {QString("SQLite: ") + error.what()};
    }
}

QStringList SqlCompany::ran(const jetsql::Translation &translation)
{
    using jetsql::StatementKind;
    QStringList lines;
    if (!translation.newTable.Name.isEmpty()) {
        add(translation.newTable, translation.kind == StatementKind::CreateTable);
        lines.append(shown(translation.newTable));
    }
    if (!translation.sql.isEmpty())
        run(translation.sql);
    if (translation.kind == StatementKind::DropTable)
        m_catalog.remove(translation.targetTable);
    else if (!translation.sql.isEmpty())
        lines.append("= " + QString::number(sqlite3_changes(m_connection.get())));
    return lines;
}

QStringList SqlCompany::selected(const jetsql::Translation &translation, const QString &limit) const
{
    QStringList names;
    for (const jetsql::ResultColumn &column : translation.columns)
        names.append(column.name);
    const QStringList wanted = limit.isEmpty() ? names : corpus::cells(limit.sliced(1));
    QStringList lines{(limit.isEmpty() ? "> " : "~ ") + wanted.join(" | ")};
    const Statement statement = prepare(translation.sql);
    while (step(statement)) {
        QStringList values;
        for (const QString &name : wanted) {
            const int column = int(names.indexOf(name));
            values.append(column < 0 ? "no such column"
                                     : shown(statement.get(), column, translation.columns[column].type));
        }
        lines.append("| " + values.join(" | "));
    }
    return lines;
}
