#pragma once

#include "reportengine/pages/compiledlayout.h"
#include "reportengine/pages/page.h"

/// Height of a section for the row of the context: 0 when it is suppressed, and more than its own where wrapped texts
/// need more lines.
double sectionHeight(const CompiledSection &section, const FormulaContext &context);

/// Adds a section's objects to a page, its top left corner at `origin`. Answers its height.
double placeSection(const CompiledSection &section, const FormulaContext &context, QPointF origin, Page &page);
