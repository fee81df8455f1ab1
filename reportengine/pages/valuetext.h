#pragma once

#include "data/values/value.h"
#include "reportengine/pages/layout.h"

/// A value as it is printed; Null prints nothing.
QString printedValue(const Value &value, Picture picture);
/// Whether that is a number or date, which is never cut short.
bool isFigure(const Value &value);
