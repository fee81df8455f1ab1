#pragma once

struct sqlite3;

/// Makes the order of texts (data/values/textorder.h) the connection's NOCASE: it takes the name of SQLite's own, which
/// it agrees with on ASCII, so that a file with ASCII keys reads alike in every other tool.
void registerJetCollation(sqlite3 *connection);

/// Keeps the connection's joins from dropping rows whose keys are equal in this order and yet not of the same length.
void switchBloomFiltersOff(sqlite3 *connection);
