#pragma once

#include "reports/layouts/layoutbuilder.h"

/// Adds lines to sign on, at the foot of the last page.
void addSignatures(Layout &layout, const QStringList &captions);
/// Adds a line in each row under that column, to be filled in by hand.
void addBlanks(Layout &layout, const QString &heading);
/// Adds a block of captioned facts under the title: pairs of a caption and a formula text, two to a line.
void addFacts(Layout &layout, const std::vector<std::pair<QString, QString>> &facts);
