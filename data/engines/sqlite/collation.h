#pragma once

struct sqlite3;

/// Registers the case-blind text order under the name NOCASE.
void registerJetCollation(sqlite3 *database);
