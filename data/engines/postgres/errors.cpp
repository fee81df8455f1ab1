#include "data/engines/postgres/errors.h"

#include <QRegularExpression>

namespace {

constexpr char Server[] = "PostgreSQL";

RuntimeError noRightError(const QString &uri, const ErrorContext &context, const QString &detail)
{
    switch (context.kind) {
    case ErrorContext::Opening:
        return runtimeError(3051, {uri}, detail);
    case ErrorContext::Reading:
        return runtimeError(3112, {context.table}, detail);
    default:
        return runtimeError(3027, {}, detail);
    }
}

/// What a SQLSTATE means to a user.
RuntimeError errorOfState(const QByteArray &state, const QString &uri, const ErrorContext &context,
                          const QString &detail)
{
    const bool opening = context.kind == ErrorContext::Opening;
    // No such user, or another password.
    if (state == "28P01" || state == "28000")
        return runtimeError(3031, {}, detail);
    if (state == "3D000")
        return runtimeError(3024, {uri}, detail);
    // Too many sessions, or a server that is just starting.
    if (state == "53300" || state == "57P03")
        return runtimeError(3045, {uri}, detail);
    if (state == "42501")
        return noRightError(uri, context, detail);
    // A session opened for reading alone.
    if (state == "25006")
        return runtimeError(3027, {}, detail);
    // A database without our tables and functions is none of ours.
    if (opening && (state == "42P01" || state == "42883"))
        return runtimeError(3343, {uri}, detail);
    if (state == "42P01") // dropped by another session in this moment
        return runtimeError(context.kind == ErrorContext::Defining ? 3376 : 3078, {context.table}, detail);
    if (state == "42703")
        return runtimeError(3061, {"1"}, detail);
    // A lock that was waited for in vain, a deadlock, or two changes of one row.
    if (state == "55P03" || state == "40P01" || state == "40001")
        return lockError(uri, context, detail);
    // A key that is there already; then what does not fit its column, a number out of range, and a division by zero.
    if (state == "23505")
        return runtimeError(3022, {}, detail);
    if (state == "22001")
        return runtimeError(3163, {}, detail);
    if (state == "22003")
        return runtimeError(6, {}, detail);
    if (state == "22012")
        return runtimeError(11, {}, detail);
    if (state == "53100")
        return runtimeError(3026, {}, detail);
    // The server is being stopped, or the way to it is gone.
    if (state.startsWith("57P") || state.startsWith("08"))
        return runtimeError(3043, {}, detail);
    // Nested too deep, too many columns, too many arguments.
    if (state == "54001" || state == "54011" || state == "54023")
        return runtimeError(3360, {}, detail);
    return runtimeError(3000, {QString::fromLatin1(state)}, detail);
}

} // namespace

QString postgres::withoutPassword(const QString &uri)
{
    // Between the user's name and the host, or among the parameters; boxes and logs show URIs to anybody.
    static const QRegularExpression inAuthority("(//[^/@:]*):[^/@]*@");
    static const QRegularExpression inQuery("([?&]password=)[^&]*");
    return QString(uri).replace(inAuthority, "\\1@").replace(inQuery, "\\1");
}

RuntimeError postgres::errorFor(const PGresult *result, const QString &uri, const ErrorContext &context)
{
    const QByteArray state = PQresultErrorField(result, PG_DIAG_SQLSTATE);
    const QString words = QString::fromUtf8(PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY));
    const QString more = QString::fromUtf8(PQresultErrorField(result, PG_DIAG_MESSAGE_DETAIL));
    const QString detail = detailOf(context, Server, words + (more.isEmpty() ? QString() : u'\n' + more));
    if (state.isEmpty()) // libpq's own: the connection broke
        return lostError(QString::fromUtf8(PQresultErrorMessage(result)).trimmed(), context);
    // A function of the dialect says by its message which error it means.
    if (state == "JT000") {
        const RuntimeError error = runtimeError(words.mid(4).toInt());
        return RuntimeError(error.number(), error.description(), detail);
    }
    return errorOfState(state, withoutPassword(uri), context, detail);
}

RuntimeError postgres::lostError(const QString &words, const ErrorContext &context)
{
    return runtimeError(3043, {}, detailOf(context, Server, words));
}

RuntimeError postgres::errorFor(PGconn *connection, const QString &uri, const ErrorContext &context)
{
    const QString words = QString::fromUtf8(PQerrorMessage(connection)).trimmed();
    const QString shown = withoutPassword(uri);
    const QString detail = detailOf(context, Server, withoutPassword(words));
    if (context.kind != ErrorContext::Opening)
        return lostError(withoutPassword(words), context);
    if (PQconnectionNeedsPassword(connection))
        return runtimeError(3031, {}, detail);
    // Only the words tell the state of a failed opening: "FATAL:  28P01: password authentication failed ...".
    static const QRegularExpression state("(?:FATAL|ERROR): +([0-9A-Z]{5}):");
    const QRegularExpressionMatch found = state.match(words);
    if (found.hasMatch())
        return errorOfState(found.captured(1).toLatin1(), shown, context, detail);
    return runtimeError(3044, {shown}, detail);
}

postgres::Failure postgres::failureOf(const PGresult *result)
{
    const QByteArray state = PQresultErrorField(result, PG_DIAG_SQLSTATE);
    if (state == "40P01" || state == "40001")
        return Failure::Deadlock;
    if (state == "0A000")
        return Failure::StalePlan;
    // No such table, column, operator or cast between such types; a value of another type than its column.
    if (state == "42P01" || state == "42703" || state == "42883" || state == "42846" || state == "42804")
        return Failure::OtherTables;
    return Failure::Final;
}
