#pragma once

#include "data/values/value.h"
#include <utility>
#include <vector>

using Cells = std::vector<std::pair<const char *, Value>>;

/// Adds a row to a table of gDatabase, the columns not named at their defaults; returns its ID where it has one.
QString addRow(const char *table, const Cells &cells);
