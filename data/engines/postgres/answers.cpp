#include "data/engines/postgres/answers.h"

#include "data/engines/postgres/errors.h"
#include "data/engines/postgres/socketwait.h"
#include <QDeadlineTimer>

namespace postgres {

namespace {

/// Takes in what has arrived. A piece of TLS may take two readings, of which the socket announces only the first.
void takeInput(PGconn *connection)
{
    if (PQconsumeInput(connection) && PQisBusy(connection))
        PQconsumeInput(connection);
}

[[noreturn]] void raiseLost(PGconn *connection, const Uri &uri, const ErrorContext &context)
{
    throw errorFor(connection, uri.text, {ErrorContext::Reading, context.table, context.statement});
}

/// Whether the server, asked over another session, is at work for this one. One that answers with a refusal is taken
/// for being so: if it has been restarted meanwhile, the network tells.
bool isAtWork(PGconn *connection, const Uri &uri)
{
    try {
        const Handle other = openSession(uri, {}, uri.silence);
        PQsendQuery(other.get(), "SELECT FROM pg_stat_activity WHERE coalesce(state, '') NOT LIKE 'idle%' AND pid = " +
                                     QByteArray::number(PQbackendPID(connection)));
        const QDeadlineTimer deadline(1000 * uri.silence);
        while (PQisBusy(other.get())) {
            if (!waitForSocket(other.get(), Input, int(deadline.remainingTime())))
                return false;
            takeInput(other.get());
        }
        return PQntuples(Result(PQgetResult(other.get())).get()) > 0;
    } catch (const RuntimeError &error) {
        return error.number() != 3044;
    }
}

/// Waits until one of the things wanted has come and tells which have.
int waitForServer(PGconn *connection, const Uri &uri, int wanted, const ErrorContext &context)
{
    for (;;) {
        if (const int ready = waitForSocket(connection, wanted, 1000 * uri.silence))
            return ready;
        // Asked over another session, since this one answers nothing before its statement is done, however long that
        // takes.
        const bool atWork = isAtWork(connection, uri);
        // The answer may have come while the other session was being asked.
        if (const int ready = waitForSocket(connection, wanted, 0))
            return ready;
        if (!atWork)
            break;
    }
    endSocket(connection); // whatever else is asked of this session fails at once
    const QString words = QString("The server has been silent for %1 seconds.").arg(uri.silence);
    throw lostError(words, context);
}

} // namespace

void push(PGconn *connection, const Uri &uri, const ErrorContext &context, const std::function<void()> &arrived)
{
    for (;;) {
        const int left = PQflush(connection);
        if (left < 0)
            raiseLost(connection, uri, context);
        if (left == 0)
            return;
        // A server that cannot get rid of its answers reads no further: waiting for it to take more alone would never
        // end.
        if (waitForServer(connection, uri, Input | Output, context) & Input) {
            if (!PQconsumeInput(connection))
                raiseLost(connection, uri, context);
            if (arrived)
                arrived();
        }
    }
}

Result nextResult(PGconn *connection, const Uri &uri, const ErrorContext &context)
{
    while (PQstatus(connection) == CONNECTION_OK && PQisBusy(connection)) {
        waitForServer(connection, uri, Input, context);
        takeInput(connection);
    }
    Result result(PQgetResult(connection));
    // A connection that is lost gives no answers, for ever.
    if (PQstatus(connection) != CONNECTION_OK)
        raiseLost(connection, uri, context);
    return result;
}

Result run(PGconn *connection, const QByteArray &sql, const Uri &uri, const ErrorContext &context)
{
    if (!PQsendQuery(connection, sql.constData()))
        raiseLost(connection, uri, context);
    push(connection, uri, context);
    Result last;
    // Statements in one text give a result each. The last one tells: the server stops at the first that fails.
    while (Result result = nextResult(connection, uri, context))
        last = std::move(result);
    const ExecStatusType status = PQresultStatus(last.get());
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
        throw errorFor(last.get(), uri.text, context);
    return last;
}

} // namespace postgres
