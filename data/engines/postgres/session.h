#pragma once

#include "data/engine/connection.h"
#include <libpq-fe.h>

namespace postgres {

struct Closer
{
    void operator()(PGconn *connection) const { PQfinish(connection); }
    void operator()(PGresult *result) const { PQclear(result); }
};
using Handle = std::unique_ptr<PGconn, Closer>;
using Result = std::unique_ptr<PGresult, Closer>;

/// A URI taken apart into libpq's part and what this program adds to it. Error 3044 where that makes no sense.
struct Uri
{
    explicit Uri(const QString &text);

    QString text;       ///< for libpq
    bool behind = true; ///< false by "behind=no": every statement is waited for
    int silence = 30;   ///< "silence=30": the seconds without a word after which the server is asked if it is there
};

/// True for the name of a database on a server.
bool isUri(const QString &name);
/// The database that a URI leads to, as libpq finds it; empty where the URI is none.
QString databaseName(const Uri &uri);

/// Opens a session. `database` replaces the URI's database where it is not empty. Errors 3024, 3031, 3044, 3045; the
/// second of these two also where the server has not answered within `seconds`, or the URI's connect_timeout.
Handle openSession(const Uri &uri, const QString &database = {}, int seconds = 0);

/// A name between double quotes, a text between single ones.
QByteArray quoted(const QString &name);
QByteArray literal(const QString &text);

} // namespace postgres
