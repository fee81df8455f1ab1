#include "data/engines/postgres/queue.h"

#include "data/engines/postgres/errors.h"
#include "data/engines/postgres/socketwait.h"

namespace {

/// Statements that are kept prepared; beyond them all are prepared anew.
constexpr int MostPrepared = 500;

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
    if (m_forget || m_names.size() >= MostPrepared) {
        run(m_connection, "DEALLOCATE ALL", m_uri, {});
        m_names.clear();
        m_forget = false;
    }
    if (!PQenterPipelineMode(m_connection) || PQsetnonblocking(m_connection, 1) != 0)
        raiseLost({});
}

void Queue::leave()
{
    PQsetnonblocking(m_connection, 0);
    PQexitPipelineMode(m_connection);
}

QByteArray Queue::prepared(const QByteArray &sql, const ErrorContext &context)
{
    const auto known = m_names.constFind(sql);
    if (known != m_names.cend())
        return *known;
    const QByteArray name = 's' + QByteArray::number(++m_lastName);
    if (!PQsendPrepare(m_connection, name.constData(), sql.constData(), 0, nullptr))
        raiseLost(context);
    m_expected.push_back({context});
    return *m_names.insert(sql, name);
}

void Queue::send(const QByteArray &sql, const Parameters &parameters, const ErrorContext &context)
{
    enter();
    const QByteArray name = prepared(sql, context);
    std::vector<const char *> values;
    values.reserve(parameters.size());
    for (const std::optional<QByteArray> &parameter : parameters)
        values.push_back(parameter ? parameter->isNull() ? "" : parameter->constData() : nullptr);
    if (!PQsendQueryPrepared(m_connection, name.constData(), int(values.size()), values.data(), nullptr, nullptr, 0))
        raiseLost(context);
    m_expected.push_back({context});
    push();
}

void Queue::sync()
{
    if (!PQpipelineSync(m_connection))
        raiseLost(m_expected.back().context);
    m_expected.push_back({m_expected.back().context, true});
    ++m_trips;
    push();
}

/// Hands the system what it takes. Where it takes no more the server may be waiting to be read from, so that both are
/// served until everything is on its way.
void Queue::push()
{
    for (;;) {
        const int left = PQflush(m_connection);
        if (left < 0)
            raiseLost(m_expected.back().context);
        if (left == 0)
            return;
        if (waitForSocket(m_connection, Input | Output, -1) & Input) {
            if (!PQconsumeInput(m_connection))
                raiseLost(m_expected.back().context);
            takeArrived();
        }
    }
}

/// Answers that are here already, but for the last statement's: its rows may be wanted one by one.
void Queue::takeArrived()
{
    while (m_expected.size() > 2 && !PQisBusy(m_connection))
        takeAnswer();
}

void Queue::takeAnswer()
{
    Result result(PQgetResult(m_connection));
    // A connection that is lost gives no answers, for ever.
    if (PQstatus(m_connection) != CONNECTION_OK)
        raiseLost(m_expected.front().context);
    if (!result || PQresultStatus(result.get()) == PGRES_PIPELINE_SYNC)
        m_expected.pop_front();
    else
        note(std::move(result));
}

void Queue::note(Result result)
{
    const ExecStatusType status = PQresultStatus(result.get());
    if (status == PGRES_FATAL_ERROR && !m_failure) {
        m_failure = errorFor(result.get(), m_uri.text, m_expected.front().context);
        m_failedForOtherTables = isForOtherTables(result.get());
    }
    m_answer = std::move(result);
}

void Queue::flush()
{
    if (m_expected.empty())
        return;
    sync();
    while (!m_expected.empty())
        takeAnswer();
    leave();
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
    sync();
    PQsetnonblocking(m_connection, 0);
    while (m_expected.size() > 2)
        takeAnswer();
    if (m_failure)
        return endWalk();
    PQsetSingleRowMode(m_connection);
}

Result Queue::fetch()
{
    if (m_expected.empty())
        return {};
    Result result(PQgetResult(m_connection));
    if (PQstatus(m_connection) != CONNECTION_OK)
        raiseLost(m_expected.front().context);
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
    while (!m_expected.empty())
        takeAnswer();
    leave();
    if (m_failure)
        raise();
}

void Queue::raise()
{
    const RuntimeError failure = *m_failure;
    m_failure.reset();
    ++m_failures;
    // Statements behind the failure were not prepared, and a transaction stands open that can only be given up.
    m_names.clear();
    m_forget = true;
    if (PQtransactionStatus(m_connection) != PQTRANS_IDLE)
        run(m_connection, "ROLLBACK", m_uri, {});
    throw failure;
}

void Queue::raiseLost(const ErrorContext &context)
{
    // The first failure is the one to tell: a server that is shut down says so before it goes.
    const RuntimeError failure =
        m_failure ? *m_failure
                  : errorFor(m_connection, m_uri.text, {ErrorContext::Reading, context.table, context.statement});
    m_expected.clear();
    m_failure.reset();
    ++m_failures;
    throw failure;
}

} // namespace postgres
