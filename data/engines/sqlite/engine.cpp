#include "data/engines/sqlite/engine.h"

#include "data/engines/sqlite/autonumber.h"
#include "data/engines/sqlite/dialect.h"
#include "data/engines/sqlite/passwordgate.h"
#include "data/engines/sqlite/rowedit.h"
#include "data/engines/sqlite/rows.h"
#include "data/engines/sqlite/tables.h"
#include "data/jetsql/dialect.h"

namespace {

ConnectionOptions connectionOptions(const engine::Options &options)
{
    ConnectionOptions result;
    result.file = options.name;
    result.exclusive = options.exclusive;
    result.readOnly = options.readOnly;
    if (const QString journal = options.entries.value("journal"); journal == u"log")
        result.journal = Journal::WriteAheadLog;
    else if (journal == u"rollback")
        result.journal = Journal::Rollback;
    if (const QString busy = options.entries.value("busy"); !busy.isEmpty())
        result.busyMilliseconds = busy.toInt();
    return result;
}

/// The file's transaction behind the interface.
class SqliteTransaction : public engine::Transaction
{
public:
    SqliteTransaction(::Connection &connection, const ErrorContext &context) : m_transaction(connection, context) {}
    void commit() override { m_transaction.commit(); }

private:
    ::Transaction m_transaction;
};

} // namespace

SqliteEngine::SqliteEngine(const engine::Options &options) : m_connection(connectionOptions(options))
{
    PasswordGate::check(m_connection, options.password, options.name);
    // A backup reads the file as it stood at one moment, while others go on writing.
    if (options.entries.contains("snapshot"))
        m_connection.run("BEGIN", {ErrorContext::Opening, {}, {}});
    m_connection.noteNetwork();
}

const jetsql::Dialect &SqliteEngine::dialect() const
{
    return sqliteDialect();
}

Catalog SqliteEngine::readCatalog()
{
    // Those prepared before the tables changed would be prepared anew at each run.
    m_connection.forgetStatements();
    // The version first: a change in between is then found at the next look.
    m_catalogVersion = m_connection.schemaVersion();
    return Tables::readCatalog(m_connection);
}

bool SqliteEngine::catalogIsCurrent()
{
    return m_connection.schemaVersion() == m_catalogVersion;
}

std::unique_ptr<engine::Rows> SqliteEngine::open(const QByteArray &sql, const std::vector<Value> &values,
                                                 const ErrorContext &context)
{
    PreparedStatement statement = m_connection.prepare(sql, context);
    statement.bind(values);
    return std::make_unique<SqliteRows>(m_connection, std::move(statement));
}

std::unique_ptr<engine::RowEdit> SqliteEngine::edit(const TableDef &table, const std::vector<QString> &columns)
{
    return std::make_unique<SqliteRowEdit>(m_connection, table, columns);
}

qint32 SqliteEngine::takeAutoNumber(const TableDef &table, const QString &column)
{
    return ::takeAutoNumber(m_connection, table, column);
}

void SqliteEngine::prepareToWrite()
{
    m_connection.prepareToWrite();
}

void SqliteEngine::prepareToCopyRows()
{
    m_connection.checkpoint();
}

std::unique_ptr<engine::Transaction> SqliteEngine::begin(const ErrorContext &context)
{
    return std::make_unique<SqliteTransaction>(m_connection, context);
}

void SqliteEngine::execute(const QByteArray &sql, const std::vector<Value> &values, const ErrorContext &context)
{
    m_connection.runPrepared(sql, context, values);
}

void SqliteEngine::createTable(const TableDef &table, engine::Key key, const ErrorContext &context)
{
    m_connection.run(Tables::createStatement(table, key), context);
}

void SqliteEngine::createIndex(const Schema::Index &index, const ErrorContext &context)
{
    m_connection.run(Tables::createStatement(index), context);
}

void SqliteEngine::dropTable(const TableDef &table, const ErrorContext &context)
{
    // The counter of a copied AutoNumber, which SQLite does not know to belong to the table.
    m_connection.run("DELETE FROM sqlite_sequence WHERE name = " + jetsql::quotedText(table.Name).toUtf8(), context);
    m_connection.run("DROP TABLE " + Tables::quoted(table.Name), context);
}

void SqliteEngine::sync()
{
    // First of all: the log of a file that nobody finds any more can be synced as well, and would promise nothing.
    m_connection.requireInPlace();
    m_connection.syncCommits();
}
