#pragma once

#include "data/engines/postgres/session.h"
#include <functional>

namespace postgres {

// All waiting for a server. It lasts as long as the server is at work, and ends with error 3043 where that is gone: a
// session is lost, or a server that has said nothing for the URI's `silence` is asked over another session and knows of
// nothing to do, or does not answer either.

/// Sends what is to be sent. Where the system takes no more, the server may be waiting to be read from, so that both
/// are served; `arrived` is told when something came in.
void push(PGconn *connection, const Uri &uri, const ErrorContext &context, const std::function<void()> &arrived = {});

/// The next result as PQgetResult gives it, none behind the last.
Result nextResult(PGconn *connection, const Uri &uri, const ErrorContext &context);

/// Runs statements that need no parameters, outside of the queue, and gives the last one's result.
Result run(PGconn *connection, const QByteArray &sql, const Uri &uri, const ErrorContext &context);

} // namespace postgres
