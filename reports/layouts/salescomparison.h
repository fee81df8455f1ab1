#pragma once

#include "reports/layouts/layoutbuilder.h"

/// One line a customer with sales, cost and margin of four periods side by side (the period, the same period last
/// year, the year to date, last year to date) and the growth of each pair; the lines in the groups given.
Layout salesComparison(const QString &title, std::vector<TableGroup> groups);
