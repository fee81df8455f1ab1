#pragma once

#include "reportengine/pages/layout.h"
#include <QFont>
#include <QStringList>

// How wide texts are on paper. Widths of characters are measured once and added up; fonts are drawn without hinting
// and kerning, so that the sum holds on screen, printer and PDF alike.

namespace TextMetrics {
/// Fonts are made in twentieths of a point: the painter must be scaled by 1 / UnitsPerPoint.
inline constexpr double UnitsPerPoint = 20;
/// What stands in place of the rest of a text that is cut.
inline constexpr QChar Ellipsis(u'\u2026');

const QFont &font(const TextStyle &style);
/// In points.
double width(const QString &text, const TextStyle &style);
/// From the top of the line to the baseline.
double ascent(const TextStyle &style);

/// The text, or its beginning and an ellipsis if it is too wide.
QString shortened(const QString &text, const TextStyle &style, double width);
/// The text in lines no wider than that, broken at blanks and behind hyphens where there are any. What is beyond the
/// last line allowed ends in an ellipsis.
QStringList wrapped(const QString &text, const TextStyle &style, double width, int maxLines);
} // namespace TextMetrics
