#include "data/engines/postgres/queue.h"

#include "data/engines/postgres/answers.h"
#include "data/engines/postgres/errors.h"
#include <QThread>

namespace {

/// Statements that are kept prepared; beyond them all are prepared anew.
constexpr int MostPrepared = 500;
/// How often a transaction is sent again.
constexpr int MostAttempts = 3;
constexpr int PauseMilliseconds = 50;

} // namespace

std::optional<QByteArray> postgres::parameterOf(const Value &value)
{
    switch (value.type()) {
    case Value::Type::Null:
        return std::nullopt;
    case Value::Type::Boolean:
        return value.toBoolean() ? "t" : "f";
    case Value::Type::Long:
        return QByteArray::number(value.toLong());
    case Value::Type::Double:
        return QByteArray::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    case Value::Type::Currency:
        return QByteArray::number(value.toDouble(), 'f', 4);
    case Value::Type::Date:
        return value.toDate().toIso().toLatin1();
    case Value::Type::Text:
        break;
    }
    const QString text = value.toText();
    if (text.contains(QChar(u'\0')))
        throw runtimeError(3421);
    return text.toUtf8();
}

namespace postgres {

void Queue::enter()
{
    if (!m_expected.empty())
        return;
    m_failedForOtherTables = false;
    m_sent.clear();
    if (m_forget || m_names.size() >= MostPrepared) {
        // Before the pipeline is entered, inside which nothing can be waited for.
        run(m_connection, "DEALLOCATE ALL", m_uri, {});
        m_names.clear();
        m_forget = false;
    }
    m_inTransaction = PQtransactionStatus(m_connection) != PQTRANS_IDLE;
    if (!PQenterPipelineMode(m_connection))
        raiseLost({});
}

QByteArray Queue::prepared(const QByteArray &sql)
{
    const auto known = m_names.constFind(sql);
    if (known != m_names.cend())
        return *known;
    const QByteArray name = 's' + QByteArray::number(++m_lastName);
    if (!PQsendPrepare(m_connection, name.constData(), sql.constData(), 0, nullptr))
        raiseLost(m_sent.back().context);
    m_expected.push_back({m_sent.size() - 1});
    return *m_names.insert(sql, name);
}

void Queue::send(const QByteArray &sql, const Parameters &parameters, const ErrorContext &context, bool written)
{
    m_attempts = 0;
    post({sql, parameters, context, written});
}

void Queue::post(const Sent &statement)
{
    enter();
    m_sent.push_back(statement);
    const QByteArray name = prepared(statement.sql);
    std::vector<const char *> values;
    values.reserve(statement.parameters.size());
    for (const std::optional<QByteArray> &parameter : statement.parameters)
        // A null pointer is Null to the server, and an empty text is not that.
        values.push_back(parameter ? parameter->isNull() ? "" : parameter->constData() : nullptr);
    if (!PQsendQueryPrepared(m_connection, name.constData(), int(values.size()), values.data(), nullptr, nullptr, 0))
        raiseLost(statement.context);
    m_expected.push_back({m_sent.size() - 1});
    push();
}

void Queue::sync()
{
    // Up to here the server keeps its answers together; the sync has it send them all.
    if (!PQpipelineSync(m_connection))
        raiseLost(context(m_expected.back()));
    m_expected.push_back({m_expected.back().statement, true});
    ++m_trips;
    push();
}

void Queue::push()
{
    try {
        postgres::push(m_connection, m_uri, context(m_expected.back()), [this] { takeArrived(); });
    } catch (const RuntimeError &loss) {
        raiseLost(loss);
    }
}

/// Answers that are here already, but for the last statement's: its rows may be wanted one by one.
void Queue::takeArrived()
{
    while (m_expected.size() > 2 && !PQisBusy(m_connection))
        takeAnswer();
}

Result Queue::next()
{
    try {
        return nextResult(m_connection, m_uri, context(m_expected.front()));
    } catch (const RuntimeError &loss) {
        raiseLost(loss);
    }
}

void Queue::takeAnswer()
{
    Result result = next();
    if (!result || PQresultStatus(result.get()) == PGRES_PIPELINE_SYNC)
        m_expected.pop_front();
    else
        note(std::move(result));
}

void Queue::takeAnswers()
{
    while (!m_expected.empty())
        takeAnswer();
    // Outside of it statements can be waited for one by one again.
    PQexitPipelineMode(m_connection);
}

void Queue::note(Result result)
{
    const ExecStatusType status = PQresultStatus(result.get());
    // Only the first one counts: what stood behind it was passed over, and has no failure of its own.
    if (status == PGRES_FATAL_ERROR && !m_failure) {
        m_failure = errorFor(result.get(), m_uri.text, context(m_expected.front()));
        m_kind = failureOf(result.get());
        m_failed = m_expected.front().statement;
    }
    m_answer = std::move(result);
}

void Queue::flush()
{
    if (m_expected.empty())
        return;
    do {
        sync();
        takeAnswers();
    } while (redo());
    if (m_failure)
        raise();
}

Result Queue::ask(const QByteArray &sql, const Parameters &parameters, const ErrorContext &context)
{
    send(sql, parameters, context);
    flush();
    return std::move(m_answer);
}

void Queue::walk(const QByteArray &sql, const Parameters &parameters, const ErrorContext &context)
{
    send(sql, parameters, context);
    do {
        sync();
        while (m_expected.size() > 2)
            takeAnswer();
        if (!m_failure) {
            // Only now that the SELECT's own answer comes next: the mode is that of the result being waited for.
            PQsetSingleRowMode(m_connection);
            return;
        }
        takeAnswers();
    } while (redo());
    raise();
}

Result Queue::fetch()
{
    if (m_expected.empty())
        return {};
    Result result = next();
    if (result && PQresultStatus(result.get()) == PGRES_SINGLE_TUPLE)
        return result;
    // What closes the walk: its end, or its failure.
    if (result)
        note(std::move(result));
    endWalk();
    return {};
}

void Queue::endWalk()
{
    if (!m_expected.empty())
        takeAnswers();
    if (m_failure)
        raise();
}

/// The first statement of the transaction that failed; nothing where it began before this batch, so that others have
/// seen its answers.
std::optional<size_t> Queue::failedTransaction() const
{
    for (size_t i = m_failed + 1; i-- > 0;) {
        if (m_sent[i].sql == "BEGIN")
            return i;
        // The transaction before it is closed and done with: the statement stood alone.
        if (i < m_failed && (m_sent[i].sql == "COMMIT" || m_sent[i].sql == "ROLLBACK"))
            return m_failed;
    }
    return m_inTransaction ? std::nullopt : std::optional(m_failed);
}

/// Whether the statement that failed may do better when it is sent again, perhaps written anew. If not, `failure` is
/// what it is for the tables as they are now.
bool Queue::passes(Sent &failed, RuntimeError &failure)
{
    if (m_kind == Failure::Deadlock) {
        QThread::msleep(PauseMilliseconds); // or this session is quicker again than the one it has just let go on
        return true;
    }
    // What is read would come in other types than its reader expects. (A statement that gives no rows has no stale
    // plan: the server makes it anew by itself.)
    if (m_kind != Failure::OtherTables || !failed.written || !m_rewrite)
        return false;
    try {
        auto [sql, parameters] = m_rewrite(failed.context.statement);
        failed.parameters = std::move(parameters);
        return std::exchange(failed.sql, sql) != sql;
    } catch (const RuntimeError &error) {
        failure = error;
        return false;
    }
}

bool Queue::redo()
{
    if (!m_failure)
        return false;
    const std::optional<size_t> first = failedTransaction();
    if (!first)
        return false;
    m_attempts = *first > 0 ? 1 : m_attempts + 1; // what stood before it is done and not tried again
    if (m_attempts > MostAttempts)
        return false;
    giveUpTransaction();
    std::vector<Sent> again(m_sent.begin() + qptrdiff(*first), m_sent.end());
    if (!passes(again[m_failed - *first], *m_failure))
        return false;
    m_failure.reset();
    for (const Sent &statement : again)
        post(statement);
    return true;
}

/// Statements behind a failure were not prepared, and a transaction stands open that can only be given up.
void Queue::giveUpTransaction()
{
    m_names.clear();
    m_forget = true;
    if (PQtransactionStatus(m_connection) != PQTRANS_IDLE)
        run(m_connection, "ROLLBACK", m_uri, {});
}

void Queue::raise()
{
    const RuntimeError failure = *m_failure;
    m_failure.reset();
    // What failed before the walk's own statement is nothing that a second walk would meet again, and must be told.
    m_failedForOtherTables =
        m_failed + 1 == m_sent.size() && (m_kind == Failure::OtherTables || m_kind == Failure::StalePlan);
    ++m_failures;
    giveUpTransaction();
    throw failure;
}

void Queue::raiseLost(const ErrorContext &context)
{
    raiseLost(errorFor(m_connection, m_uri.text, {ErrorContext::Reading, context.table, context.statement}));
}

void Queue::raiseLost(const RuntimeError &loss)
{
    // The first failure is the one to tell: a server that is shut down says so before it goes.
    const RuntimeError failure = m_failure.value_or(loss);
    m_expected.clear();
    m_failure.reset();
    ++m_failures;
    throw failure;
}

} // namespace postgres
