#pragma once

#include "data/values/runtimeerror.h"
#include <optional>

struct sqlite3;

/// Registers the functions that translated statements call.
void registerJetFunctions(sqlite3 *database);

/// The run-time error that a function's failure stands for, found in the words SQLite passes on; nothing for
/// SQLite's own messages.
std::optional<RuntimeError> runtimeErrorFrom(const QString &message);
