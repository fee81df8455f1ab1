#pragma once

#include "reportengine/pages/page.h"

class QPainter;

/// Draws a page. The painter's unit must be a twentieth of a point (TextMetrics::UnitsPerPoint), its origin the page's
/// top left corner.
void paintPage(const Page &page, QPainter &painter);
