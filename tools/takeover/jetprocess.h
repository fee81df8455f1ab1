#pragma once

#include "tools/takeover/jetfile.h"

/// Does what readJet does in a process of its own, so that a damaged file on which the library crashes, hangs or
/// complains ends in a ToolError like any other. The sink works in this process.
void readJetSafely(const QString &path, const std::function<bool(const QString &table)> &wanted, JetSink &sink);
