#include "data/engines/sqlite/bulkrows.h"

#include "data/engines/sqlite/passwordgate.h"
#include "data/engines/sqlite/tables.h"

namespace {

const ErrorContext Defining{ErrorContext::Defining, {}, "bulk load"};

ConnectionOptions optionsFor(const QString &path, engine::BulkRows::State state)
{
    ConnectionOptions options;
    options.file = path;
    // The log would take everything first and have it copied into the file afterwards.
    options.journal = state == engine::BulkRows::State::New ? Journal::Rollback : Journal::ByMount;
    return options;
}

class Sink : public engine::RowSink
{
public:
    Sink(Connection &connection, const TableDef &table, const QStringList &columns)
    {
        m_insert = connection.prepare(Tables::insertStatement(table.Name, columns),
                                      {ErrorContext::Writing, table.Name, "bulk load into " + table.Name});
    }

    void add(std::span<const Value> row) override
    {
        int parameter = 0;
        for (const Value &value : row)
            m_insert.bind(++parameter, value);
        // For the next row also where this one is refused.
        const auto makeReady = qScopeGuard([this] { m_insert.reset(); });
        m_insert.finish();
    }

private:
    PreparedStatement m_insert;
};

} // namespace

SqliteBulkRows::SqliteBulkRows(const QString &path, const QString &password, State state)
    : m_connection(optionsFor(path, state)), m_state(state)
{
    // The same gate as for everybody: a file of another program is not written to.
    PasswordGate::check(m_connection, password, path);
    m_connection.noteNetwork();
    if (m_state == State::New)
        // A new file that a power failure spoils is thrown away and made again.
        m_connection.run("PRAGMA synchronous=OFF", Defining);
    m_transaction =
        std::make_unique<Transaction>(m_connection, ErrorContext{ErrorContext::Writing, {}, Defining.statement});
    m_tables = Tables::readCatalog(m_connection);
    if (m_state == State::New) {
        for (const Schema::Index &index : Schema::indexes())
            // Made at the end instead, in one go each: row by row it takes many times as long.
            m_connection.run("DROP INDEX IF EXISTS " + Tables::quoted(index.name), Defining);
    }
}

std::unique_ptr<engine::RowSink> SqliteBulkRows::into(const TableDef &table, const QStringList &columns)
{
    return std::make_unique<Sink>(m_connection, table, columns);
}

void SqliteBulkRows::commit()
{
    if (m_state == State::New)
        makeIndexes();
    m_transaction->commit();
    // Whoever ran the tool takes the rows for stored once it has ended, also through a power failure.
    m_connection.syncCommits();
    m_connection.checkpoint(); // others may go on with the file, and a load is much for one log
}

void SqliteBulkRows::makeIndexes()
{
    for (const Schema::Index &index : Schema::indexes()) {
        if (m_tables.find(index.table))
            m_connection.run(Tables::createStatement(index), Defining);
    }
}
