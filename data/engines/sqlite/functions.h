#pragma once

#include "data/values/runtimeerror.h"
#include <optional>

struct sqlite3;

/// Gives a connection the functions that translated statements call: the engine's conversions, LIKE, `&`, arithmetic
/// that can fail, and sums in row order. One that fails ends its statement with the message "JET:" and the error's
/// number.
void registerJetFunctions(sqlite3 *connection);

/// The run-time error that a function's failure stands for, found in the words SQLite passes on; nothing for
/// SQLite's own messages.
std::optional<RuntimeError> runtimeErrorFrom(const QString &message);
