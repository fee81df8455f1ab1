#include "tests/support/unwinding.h"

namespace {
bool unwound = false;
}

void noteUnwindingThroughQt()
{
    unwound = true;
}

/// Asked by the leak sanitizer, where there is one, before it looks for leaks.
extern "C" int __lsan_is_turned_off()
{
    return unwound;
}
