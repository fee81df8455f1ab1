#pragma once

#include "reports/layouts/layoutbuilder.h"

/// The production requirements with what goes into each figure; `first` is the heading and field of the rows' own
/// column, `group` the level above. Formulas 4 and 6 are the suppress conditions of the row and of the part's group,
/// which routines replace.
Layout productionLayout(const QString &title, const TableGroup &group, const Column &first);
