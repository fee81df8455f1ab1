#include "data/engines/postgres/companysession.h"

#include "data/engine/passwordhash.h"
#include "data/engines/postgres/answers.h"
#include "data/engines/postgres/errors.h"
#include "data/engines/postgres/functions.h"

namespace {
const ErrorContext Opening{ErrorContext::Opening, {}, {}};
}

void postgres::setUp(PGconn *connection, const Uri &uri, int lockMilliseconds)
{
    // Notices reach nobody. Compiled plans and helping processes cost more than statements this short can gain, and
    // helpers would add Doubles up in another order at each run. What comes back is read by its form: dates, and
    // numbers to their last digit.
    run(connection,
        "SET client_min_messages = error; SET jit = off; SET max_parallel_workers_per_gather = 0; "
        "SET work_mem = '48MB'; SET DateStyle = 'ISO, MDY'; SET extra_float_digits = 1; "
        "SET standard_conforming_strings = on; SET search_path = public; SET synchronous_commit = off; "
        "SET lock_timeout = " +
            QByteArray::number(lockMilliseconds),
        uri, Opening);
}

void postgres::checkPassword(PGconn *connection, const Uri &uri, const QString &password)
{
    const Result gate = run(connection,
                            "SELECT encode(\"Salt\", 'hex'), \"Rounds\", encode(\"Hash\", 'hex'), \"Version\""
                            " FROM \"MSysPassword\"",
                            uri, Opening);
    const auto field = [&gate](int column) { return QByteArray(PQgetvalue(gate.get(), 0, column)); };
    if (PQntuples(gate.get()) != 1 || field(3).toInt() != FunctionsVersion)
        throw runtimeError(3343, {withoutPassword(uri.text)});
    if (passwordHash(password, QByteArray::fromHex(field(0)), field(1).toInt()) != QByteArray::fromHex(field(2)))
        throw runtimeError(3031);
}
