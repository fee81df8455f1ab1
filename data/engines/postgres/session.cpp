#include "data/engines/postgres/session.h"

#include "data/engines/postgres/errors.h"
#include "data/engines/postgres/socketwait.h"
#include <QDeadlineTimer>
#include <QUrl>
#include <QUrlQuery>

namespace {

constexpr int OpeningSeconds = 10;
constexpr int MostSeconds = 24 * 60 * 60;
/// The first functions that statements need.
constexpr int OldestServer = 130000;

const ErrorContext Opening{ErrorContext::Opening, {}, {}};

/// Waits for what a connection being opened waits for; false when the time is over.
bool waitFor(PGconn *connection, PostgresPollingStatusType wanted, const QDeadlineTimer &deadline)
{
    const postgres::Readiness readiness = wanted == PGRES_POLLING_READING ? postgres::Input : postgres::Output;
    return postgres::waitForSocket(connection, readiness, int(deadline.remainingTime())) != 0;
}

/// What the URI, a service's file or the environment give libpq as connect_timeout, which it leaves to its callers.
int openingSeconds(PGconn *connection)
{
    const std::unique_ptr<PQconninfoOption, void (*)(PQconninfoOption *)> options(PQconninfo(connection),
                                                                                  PQconninfoFree);
    for (const PQconninfoOption *option = options.get(); option && option->keyword; ++option) {
        if (qstrcmp(option->keyword, "connect_timeout") == 0 && QByteArray(option->val).toInt() > 0)
            return std::min(QByteArray(option->val).toInt(), MostSeconds);
    }
    return OpeningSeconds;
}

} // namespace

postgres::Uri::Uri(const QString &name) : text(name)
{
    const qsizetype mark = name.indexOf(u'?');
    if (mark < 0)
        return;
    QUrlQuery query(name.sliced(mark + 1));
    const auto take = [&query](const QString &key) {
        const QString value = query.queryItemValue(key);
        query.removeAllQueryItems(key);
        return value;
    };
    // Taken out of the URI: libpq refuses one with a parameter that it does not know.
    behind = take("behind") != u"no";
    if (const QString seconds = take("silence"); !seconds.isEmpty())
        silence = seconds.toInt();
    if (silence < 1 || silence > MostSeconds)
        throw runtimeError(3044, {withoutPassword(name)});
    text = name.first(mark) + (query.isEmpty() ? QString() : u'?' + query.toString(QUrl::FullyEncoded));
}

bool postgres::isUri(const QString &name)
{
    return name.startsWith(QLatin1String("postgresql://")) || name.startsWith(QLatin1String("postgres://"));
}

QString postgres::databaseName(const Uri &uri)
{
    // Only a connection begun knows it: the name may stand in a service or in the environment, or be the user's.
    const QByteArray text = uri.text.toUtf8();
    const char *keys[] = {"dbname", nullptr}, *values[] = {text.constData(), nullptr};
    return QString::fromUtf8(PQdb(Handle(PQconnectStartParams(keys, values, 1)).get()));
}

postgres::Handle postgres::openSession(const Uri &uri, const QString &database, int seconds)
{
    const QByteArray text = uri.text.toUtf8(), other = database.toUtf8();
    // What the URI says itself stands behind these and overrules them. A server that has gone without a word is noticed
    // within a minute.
    const char *keys[] = {"application_name",
                          "client_encoding",
                          "keepalives_idle",
                          "keepalives_interval",
                          "keepalives_count",
                          "tcp_user_timeout",
                          "dbname",
                          other.isEmpty() ? nullptr : "dbname",
                          nullptr};
    const char *values[] = {"tamrick", "UTF8", "30", "10", "3", "60000", text.constData(), other.constData(), nullptr};
    Handle handle(PQconnectStartParams(keys, values, 1));
    if (!handle)
        throw std::bad_alloc();
    PQsetErrorVerbosity(handle.get(), PQERRORS_VERBOSE); // so that a refusal tells its state
    // What ends an idle session reaches users as the error of their next statement; libpq would print it as well.
    PQsetNoticeProcessor(
        handle.get(), [](void *, const char *) {}, nullptr);
    const QDeadlineTimer deadline(1000 * (seconds > 0 ? seconds : openingSeconds(handle.get())));
    PostgresPollingStatusType wanted = PGRES_POLLING_WRITING;
    while (PQstatus(handle.get()) != CONNECTION_BAD && wanted != PGRES_POLLING_OK && wanted != PGRES_POLLING_FAILED &&
           waitFor(handle.get(), wanted, deadline))
        wanted = PQconnectPoll(handle.get());
    if (PQstatus(handle.get()) != CONNECTION_OK || wanted != PGRES_POLLING_OK)
        throw errorFor(handle.get(), uri.text, Opening);
    PQsetnonblocking(handle.get(), 1); // libpq's own waiting knows no end
    if (PQserverVersion(handle.get()) < OldestServer)
        throw runtimeError(3343, {withoutPassword(uri.text)}, "The server is older than version 13.");
    return handle;
}

QByteArray postgres::quoted(const QString &name)
{
    return jetsql::quotedName(name).toUtf8();
}

QByteArray postgres::literal(const QString &text)
{
    return jetsql::quotedText(text).toUtf8();
}
