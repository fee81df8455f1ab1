#pragma once

#include <functional>
#include <vector>

/// One run of a routine, and whether that owns the pointer while it works.
struct ReportRun
{
    const char *designer;
    bool ownsPointer;
    std::function<void()> routine;
};

/// Every report of the catalogue through its routine, over a demo company that ends with 2010; the documents are those
/// of the lowest numbers.
const std::vector<ReportRun> &reportRuns();
