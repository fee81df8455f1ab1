#pragma once

#include "reports/runtime/layoutbuilder.h"

/// Adds the lines on which those who counted, entered and approved a stock document sign, under its last row.
void addSignatures(Layout &layout);
/// Adds a block of captioned facts under the title: pairs of a caption and a formula text, two to a line.
void addFacts(Layout &layout, const std::vector<std::pair<QString, QString>> &facts);
