#include "data/engines/sqlite/rowedit.h"

#include "data/engines/sqlite/rows.h"
#include "data/engines/sqlite/tables.h"

SqliteRowEdit::SqliteRowEdit(Connection &connection, const TableDef &table, const std::vector<QString> &columns)
    : m_connection(connection), m_table(table)
{
    QByteArrayList names;
    for (const QString &column : columns)
        names += column.isEmpty() ? QByteArray("NULL") : Tables::quoted(column);
    m_readSql = "SELECT " + names.join(", ") + " FROM " + Tables::quoted(table.Name) + " WHERE rowid = ?";
}

std::unique_ptr<engine::Rows> SqliteRowEdit::read(qint64 row, bool, const ErrorContext &context)
{
    // Whoever wants the row locked holds the lock of the whole file by now: SQLite has none for rows.
    PreparedStatement fetch = m_connection.prepare(m_readSql, context);
    fetch.bind(1, row);
    auto rows = std::make_unique<SqliteRows>(m_connection, std::move(fetch));
    return rows->next() ? std::move(rows) : nullptr;
}

qint64 SqliteRowEdit::add(const std::vector<std::optional<Value>> &values, bool, const ErrorContext &context)
{
    if (m_addSql.isEmpty())
        m_addSql = Tables::insertStatement(m_table.Name, m_table.columnNames());
    PreparedStatement insert = m_connection.prepare(m_addSql, context);
    for (size_t i = 0; i < values.size(); ++i)
        insert.bind(int(i) + 1, *values[i]);
    insert.finish();
    m_connection.giveBack(std::move(insert));
    return m_connection.lastInsertedRow();
}

bool SqliteRowEdit::change(qint64 row, const std::vector<std::optional<Value>> &values, const ErrorContext &context)
{
    QByteArrayList settings;
    for (size_t i = 0; i < values.size(); ++i) {
        if (values[i])
            settings += Tables::quoted(m_table.columns[i].name) + " = ?";
    }
    // Made anew each time, since one Update sets other columns than the next; the connection knows those that come
    // again.
    PreparedStatement update = m_connection.prepare(
        "UPDATE " + Tables::quoted(m_table.Name) + " SET " + settings.join(", ") + " WHERE rowid = ?", context);
    int parameter = 0;
    for (const std::optional<Value> &value : values) {
        if (value)
            update.bind(++parameter, *value);
    }
    update.bind(++parameter, row);
    update.finish();
    m_connection.giveBack(std::move(update));
    return m_connection.changes() > 0;
}
