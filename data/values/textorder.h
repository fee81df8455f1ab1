#pragma once

#include <string_view>

/// An ASCII letter in lower case, anything else as it is.
template <typename Char> constexpr Char asciiLower(Char c)
{
    return c >= 'A' && c <= 'Z' ? Char(c + 32) : c;
}

/// The order of texts: without regard to case, blanks at the end not counting. ASCII stands as in SQLite's own
/// NOCASE; letters beyond ASCII stand with their base letter, the accent deciding only between texts otherwise equal.
/// Negative, 0 or positive for UTF-8 texts.
int compareTexts(std::string_view a, std::string_view b);
