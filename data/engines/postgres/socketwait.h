#pragma once

#include <libpq-fe.h>

namespace postgres {

/// What a connection's socket is waited for. Input stands for its end as well.
enum Readiness { Input = 1, Output = 2 };

/// Waits until one of the things wanted has come, for ever with -1, and tells which have; 0 when the time is over.
int waitForSocket(PGconn *connection, int wanted, int milliseconds);

/// Ends both directions for good. libpq finds its connection lost.
void endSocket(PGconn *connection);

} // namespace postgres
