#pragma once

#include <string_view>

/// The order of texts: without regard to case, blanks at the end not counting. ASCII stands as in SQLite's own
/// NOCASE; letters beyond ASCII stand with their base letter, the accent deciding only between texts otherwise equal.
/// Negative, 0 or positive for UTF-8 texts.
int compareTexts(std::string_view a, std::string_view b);
