#pragma once

#include "reports/layouts/layoutbuilder.h"

/// The columns that the detail sales reports share: customer, shipment, quantity, sales, cost, margin and its ratio.
std::vector<Column> salesDetailColumns();
/// "Invoiced 3/1/2011 to 3/31/2011" out of the two text objects of the sales reports.
QString salesPeriodSubtitle();
std::vector<TextParameter> salesPeriodParameters();
