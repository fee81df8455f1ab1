#pragma once

#include "data/values/date.h"

// The platform's conversions of text to dates. English (US) whatever the machine's locale.

/// A date out of free text, month first; nothing when it is impossible in every reading.
std::optional<Date> dateFromText(QStringView text);
/// The same, or error 13.
Date CDate(QStringView text);
