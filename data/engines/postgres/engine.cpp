#include "data/engines/postgres/engine.h"

#include "data/engines/postgres/answers.h"
#include "data/engines/postgres/companysession.h"
#include "data/engines/postgres/dialect.h"
#include "data/engines/postgres/errors.h"
#include "data/engines/postgres/rows.h"
#include "data/engines/postgres/tables.h"

namespace postgres {

namespace {

/// Transactions sent before the answers are waited for: what a lost session can cost at most.
constexpr int MostBehind = 1000;
/// Sessions share this lock; one that opens the database exclusively holds it alone.
constexpr char OpenLock[] = "7103";

void lockDatabase(PGconn *connection, const Uri &uri, bool exclusive)
{
    const QByteArray function = exclusive ? "pg_try_advisory_lock(" : "pg_try_advisory_lock_shared(";
    const Result taken = run(connection, "SELECT " + function + OpenLock + ')', uri, {ErrorContext::Opening, {}, {}});
    if (qstrcmp(PQgetvalue(taken.get(), 0, 0), "t") != 0)
        throw runtimeError(3045, {withoutPassword(uri.text)});
}

Parameters parametersOf(const std::vector<Value> &values)
{
    Parameters parameters;
    for (const Value &value : values)
        parameters.push_back(parameterOf(value));
    return parameters;
}

/// The scratch tables that reports only empty, for this session alone.
QByteArray makeScratchTables()
{
    QByteArrayList statements;
    for (const TableDef &table : Schema::keptScratchTables())
        statements += Tables::createStatements(table, engine::Key::AutoNumberIsKey);
    return statements.join("; ");
}

} // namespace

class Engine::Transaction : public engine::Transaction
{
public:
    Transaction(Engine &engine, const ErrorContext &context)
        : m_engine(engine), m_context(context), m_number(engine.m_transaction)
    {
    }

    ~Transaction() override
    {
        if (!isOpen())
            return;
        m_engine.m_transaction = 0;
        try {
            m_engine.m_queue.release();
            m_engine.m_queue.send("ROLLBACK", {}, m_context);
        } catch (const RuntimeError &) {
            // The session is lost, and the transaction with it.
        }
    }

    void commit() override
    {
        if (!isOpen())
            return;
        m_engine.commit(m_context);
    }

private:
    bool isOpen() const { return m_engine.m_transaction == m_number && m_engine.holdsTransaction(); }

    Engine &m_engine;
    ErrorContext m_context;
    int m_number;
};

Engine::Engine(const engine::Options &options)
    : m_uri(options.name), m_handle(openSession(m_uri)), m_queue(m_handle.get(), m_uri)
{
    const QString busy = options.entries.value("busy");
    setUp(m_handle.get(), m_uri, busy.isEmpty() ? LockMilliseconds : busy.toInt());
    checkPassword(m_handle.get(), m_uri, options.password);
    lockDatabase(m_handle.get(), m_uri, options.exclusive);
    run(m_handle.get(), makeScratchTables(), m_uri, {ErrorContext::Opening, {}, {}});
    // Sessions tell each other here of tables made and dropped, so that nobody need ask before each statement.
    run(m_handle.get(), QByteArray("LISTEN ") + Tables::Channel, m_uri, {ErrorContext::Opening, {}, {}});
    if (options.readOnly)
        run(m_handle.get(), "SET default_transaction_read_only = on", m_uri, {ErrorContext::Opening, {}, {}});
    if (options.entries.contains("snapshot"))
        run(m_handle.get(), "BEGIN ISOLATION LEVEL REPEATABLE READ READ ONLY", m_uri, {ErrorContext::Opening, {}, {}});
}

const jetsql::Dialect &Engine::dialect() const
{
    return postgres::dialect();
}

Catalog Engine::readCatalog()
{
    m_queue.release();
    m_queue.flush();
    m_queue.forgetStatements();
    m_tablesChanged = false;
    m_declarations = Tables::readDeclarations(m_handle.get(), m_uri);
    m_catalog = Tables::catalogFrom(m_declarations.get());
    return m_catalog;
}

bool Engine::catalogIsCurrent()
{
    PQconsumeInput(m_handle.get());
    while (PGnotify *notice = PQnotifies(m_handle.get())) {
        // What this session told comes back to it as well.
        m_tablesChanged = m_tablesChanged || notice->be_pid != PQbackendPID(m_handle.get());
        PQfreemem(notice);
    }
    return !m_tablesChanged;
}

bool Engine::catalogIsSurelyCurrent()
{
    // Other tools tell nobody what they change.
    m_queue.release();
    m_queue.flush();
    const Result now = Tables::readDeclarations(m_handle.get(), m_uri);
    return catalogIsCurrent() && Tables::areSame(now.get(), m_declarations.get());
}

void Engine::setRewrite(std::function<engine::Written(const QString &statement)> rewrite)
{
    m_queue.setRewrite([rewrite = std::move(rewrite)](const QString &statement) {
        const engine::Written written = rewrite(statement);
        return std::pair(written.sql, parametersOf(written.values));
    });
}

std::unique_ptr<engine::Rows> Engine::open(const QByteArray &sql, const std::vector<Value> &values,
                                           const ErrorContext &context)
{
    return std::make_unique<Rows>(m_queue, sql, parametersOf(values), context);
}

std::unique_ptr<engine::RowEdit> Engine::edit(const TableDef &table, const std::vector<QString> &columns)
{
    return std::make_unique<RowEdit>(m_queue, *this, table, columns);
}

qint32 Engine::takeAutoNumber(const TableDef &table, const QString &column)
{
    const ErrorContext writing{ErrorContext::Writing, table.Name, "AddNew in " + table.Name};
    m_queue.release();
    // Waited for: a form shows and prints the number long before it stores the row.
    const Result taken =
        m_queue.ask("SELECT jet_autonumber($1, $2, $3)",
                    {Tables::sequenceOf(table.Name, column).toUtf8(), table.Name.toUtf8(), column.toUtf8()}, writing);
    return qint32(cellOf(taken.get(), 0, 0).integer());
}

std::unique_ptr<engine::Transaction> Engine::begin(const ErrorContext &context)
{
    m_queue.release();
    m_queue.send("BEGIN", {}, context);
    m_transaction = ++m_lastTransaction;
    // A failure met later, by whatever was sent behind, ends this transaction too; by the count it is noticed.
    m_failures = m_queue.failures();
    return std::make_unique<Transaction>(*this, context);
}

void Engine::commit(const ErrorContext &context)
{
    m_queue.release();
    m_transaction = 0;
    m_queue.send("COMMIT", {}, context);
    ++m_sent;
    // Whatever comes behind a new table is translated for it, so that its making must have gone well first.
    if (!m_uri.behind || context.kind == ErrorContext::Defining || m_sent >= MostBehind)
        flush();
}

void Engine::execute(const QByteArray &sql, const std::vector<Value> &values, const ErrorContext &context)
{
    const Parameters parameters = parametersOf(values);
    m_queue.release();
    m_queue.send(sql, parameters, context, context.kind == ErrorContext::Writing);
    // Nothing else looks at the rows of a session's own table, and the planner would know nothing of them.
    if (std::exchange(m_copies, false) && Tables::isPrivate(context.table))
        m_queue.send("ANALYZE " + quoted(context.table), {}, context);
}

void Engine::define(const QByteArray &sql, const QString &table, const ErrorContext &context)
{
    m_queue.release();
    m_queue.send(sql, {}, context);
    if (!Tables::isPrivate(table))
        m_queue.send(QByteArray("NOTIFY ") + Tables::Channel, {}, context);
}

void Engine::createTable(const TableDef &table, engine::Key key, const ErrorContext &context)
{
    for (const QByteArray &sql : Tables::createStatements(table, key))
        define(sql, table.Name, context);
}

void Engine::createIndex(const Schema::Index &index, const ErrorContext &context)
{
    if (const TableDef *table = m_catalog.find(index.table)) {
        // In the spelling that the table was made with: between quotation marks the server tells upper case from lower.
        Schema::Index stored = index;
        stored.table = table->Name;
        define(Tables::createStatement(stored, *table), table->Name, context);
    }
}

void Engine::dropTable(const TableDef &table, const ErrorContext &context)
{
    define("DROP TABLE " + quoted(table.Name), table.Name, context);
}

void Engine::flush()
{
    m_sent = 0;
    // Before a walk begins, everything is answered.
    if (!m_queue.isWalking())
        m_queue.flush();
}

void Engine::sync()
{
    // A commit that is to be on the disk takes those before it along. One of nothing would not be written at all.
    const ErrorContext syncing{ErrorContext::Writing, {}, "sync"};
    m_queue.release();
    if (holdsTransaction()) // a row between Edit and Update stays locked
        return flush();
    for (const char *sql : {"BEGIN", "SET LOCAL synchronous_commit = on",
                            "SELECT pg_logical_emit_message(true, 'tamrick', '')", "COMMIT"})
        m_queue.send(sql, {}, syncing);
    flush();
}

} // namespace postgres
