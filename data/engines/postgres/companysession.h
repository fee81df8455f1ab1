#pragma once

#include "data/engines/postgres/session.h"

namespace postgres {

/// How long a lock is waited for unless the user says otherwise.
constexpr int LockMilliseconds = 8000;

/// Makes the session one of this program: the settings that its statements rely on.
void setUp(PGconn *connection, const Uri &uri, int lockMilliseconds);

/// Error 3031 for a wrong password of the database, 3343 for one that is none of this program's, or another version's.
void checkPassword(PGconn *connection, const Uri &uri, const QString &password);

} // namespace postgres
