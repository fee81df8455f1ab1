#pragma once

#include "reportengine/formula/formula.h"

/// The function of that lower-case name over these arguments, or null when there is none that fits them.
FormulaPtr functionCall(const QString &name, const std::vector<FormulaPtr> &arguments);
