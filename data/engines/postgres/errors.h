#pragma once

#include "data/engine/errorcontext.h"
#include "data/values/runtimeerror.h"
#include <libpq-fe.h>

namespace postgres {

/// A URI as errors may show it: without a password.
QString withoutPassword(const QString &uri);

/// The run-time error a user sees for a failed result; the server's own words are kept in the detail.
RuntimeError errorFor(const PGresult *result, const QString &uri, const ErrorContext &context);
/// Error 3043, and what is known of the reason.
RuntimeError lostError(const QString &words, const ErrorContext &context);
/// The error for a connection that is lost, or could not be opened.
RuntimeError errorFor(PGconn *connection, const QString &uri, const ErrorContext &context);

enum class Failure {
    Final,
    Deadlock,    ///< the server has picked this session to let others go on
    StalePlan,   ///< a statement was prepared before its table was changed
    OtherTables, ///< the tables are not as the statement was written for
};
/// What kind of failure a failed result tells of.
Failure failureOf(const PGresult *result);

} // namespace postgres
