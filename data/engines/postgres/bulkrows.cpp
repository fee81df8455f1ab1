#include "data/engines/postgres/bulkrows.h"

#include "data/engines/postgres/answers.h"
#include "data/engines/postgres/companysession.h"
#include "data/engines/postgres/errors.h"
#include "data/engines/postgres/queue.h"
#include "data/engines/postgres/tables.h"

namespace postgres {

namespace {

const ErrorContext Defining{ErrorContext::Defining, {}, "bulk load"};

/// Adds rows one by one.
class Inserting : public engine::RowSink
{
public:
    Inserting(PGconn *connection, const Uri &uri, const TableDef &table, const QStringList &columns)
        : m_queue(connection, uri), m_context{ErrorContext::Writing, table.Name, "bulk load into " + table.Name}
    {
        m_sql = Tables::insertStatement(table.Name, columns);
    }

    void add(std::span<const Value> row) override
    {
        Parameters parameters;
        for (const Value &value : row)
            parameters.push_back(parameterOf(value));
        m_queue.ask(m_sql, parameters, m_context);
    }

private:
    Queue m_queue;
    ErrorContext m_context;
    QByteArray m_sql;
};

/// Gathers rows and sends them in large pieces: the session can be in one copy only, and several tables may be filled
/// side by side.
class Copying : public engine::RowSink
{
public:
    Copying(PGconn *connection, const Uri &uri, const TableDef &table, const QStringList &columns)
        : m_connection(connection),
          m_uri(uri), m_context{ErrorContext::Writing, table.Name, "bulk load into " + table.Name},
          m_sql("COPY " + quoted(table.Name) + " (" + Tables::listOf(columns) + ") FROM STDIN")
    {
    }

    ~Copying() override
    {
        // The last piece belongs to the load like those before it. What fails here has the server give up the whole
        // load, and fails the commit.
        try {
            send();
        } catch (const RuntimeError &) {
        }
    }

    void add(std::span<const Value> row) override
    {
        bool first = true;
        for (const Value &value : row) {
            if (!first)
                m_lines += '\t';
            first = false;
            put(parameterOf(value));
        }
        m_lines += '\n';
        if (m_lines.size() > PieceSize)
            send();
    }

private:
    static constexpr qsizetype PieceSize = 1 << 20;

    void put(const std::optional<QByteArray> &value)
    {
        if (!value) {
            // No text comes out like it, since a backslash of its own is doubled.
            m_lines += "\\N";
            return;
        }
        for (const char c : *value) {
            switch (c) {
            case '\\':
                m_lines += "\\\\";
                break;
            case '\t':
                m_lines += "\\t";
                break;
            case '\n':
                m_lines += "\\n";
                break;
            case '\r':
                m_lines += "\\r";
                break;
            default:
                m_lines += c;
            }
        }
    }

    void send()
    {
        if (m_lines.isEmpty())
            return;
        PQsendQuery(m_connection, m_sql.constData());
        std::optional<RuntimeError> failure;
        // All answers are taken before anything is thrown, or the session would stay in the copy and take nothing else.
        while (const Result result = nextResult(m_connection, m_uri, m_context)) {
            const ExecStatusType status = PQresultStatus(result.get());
            if (status == PGRES_COPY_IN)
                sendLines();
            else if (status != PGRES_COMMAND_OK && !failure)
                failure = errorFor(result.get(), m_uri.text, m_context);
        }
        m_lines.clear();
        if (failure)
            throw *failure;
    }

    void sendLines()
    {
        PQputCopyData(m_connection, m_lines.constData(), int(m_lines.size()));
        PQputCopyEnd(m_connection, nullptr);
        push(m_connection, m_uri, m_context);
    }

    PGconn *m_connection;
    Uri m_uri;
    ErrorContext m_context;
    QByteArray m_sql, m_lines;
};

} // namespace

BulkRows::BulkRows(const QString &uri, const QString &password, State state)
    : m_uri(uri), m_handle(openSession(m_uri)), m_state(state)
{
    setUp(m_handle.get(), m_uri, LockMilliseconds);
    checkPassword(m_handle.get(), m_uri, password);
    m_tables = Tables::catalogFrom(Tables::readDeclarations(m_handle.get(), m_uri).get());
    // The program's own sessions leave their commits a moment behind; whoever runs a tool takes the rows for stored
    // once it has ended.
    run(m_handle.get(), "SET synchronous_commit = on; BEGIN", m_uri, Defining);
    if (m_state == State::New) {
        for (const Schema::Index &index : Schema::indexes())
            run(m_handle.get(), "DROP INDEX IF EXISTS " + quoted(index.name), m_uri, Defining);
    }
}

BulkRows::~BulkRows() = default;

std::unique_ptr<engine::RowSink> BulkRows::into(const TableDef &table, const QStringList &columns)
{
    if (m_state == State::New)
        return std::make_unique<Copying>(m_handle.get(), m_uri, table, columns);
    return std::make_unique<Inserting>(m_handle.get(), m_uri, table, columns);
}

void BulkRows::commit()
{
    for (const Schema::Index &index : Schema::indexes()) {
        const TableDef *table = m_state == State::New ? m_tables.find(index.table) : nullptr;
        if (table)
            // As in a file: an index made over all rows at once takes a fraction of the time that row by row would.
            run(m_handle.get(), Tables::createStatement(index, *table), m_uri, Defining);
    }
    const Result committed = run(m_handle.get(), "COMMIT", m_uri, Defining);
    if (qstrcmp(PQcmdStatus(committed.get()), "COMMIT") != 0) // a row was refused, and nothing is there
        throw runtimeError(3022, {}, "bulk load");
    // Plans depend on what the server knows about the tables.
    run(m_handle.get(), "ANALYZE", m_uri, Defining);
}

} // namespace postgres
