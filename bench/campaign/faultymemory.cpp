#include "bench/campaign/faultymemory.h"

#include <limits>
#include <sqlite3.h>

// SQLite hands its allocator nothing of ours along.
namespace {

constexpr int Never = std::numeric_limits<int>::max();

sqlite3_mem_methods real;
int failing = Never, count = 0;
bool isLasting = false, hasFailed = false;

bool fails()
{
    const int at = count++;
    if (at < failing || (at > failing && !isLasting))
        return false;
    hasFailed = true;
    return true;
}

} // namespace

bool FaultyMemory::install()
{
    sqlite3_mem_methods methods;
    if (sqlite3_config(SQLITE_CONFIG_GETMALLOC, &real) != SQLITE_OK)
        return false;
    methods = real;
    methods.xMalloc = [](int size) { return fails() ? nullptr : real.xMalloc(size); };
    methods.xRealloc = [](void *memory, int size) { return fails() ? nullptr : real.xRealloc(memory, size); };
    return sqlite3_config(SQLITE_CONFIG_MALLOC, &methods) == SQLITE_OK;
}

void FaultyMemory::failAfter(int allocations, bool lasting)
{
    failing = allocations;
    isLasting = lasting;
    count = 0;
    hasFailed = false;
}

bool FaultyMemory::heal()
{
    failing = Never;
    return hasFailed;
}

int FaultyMemory::passed()
{
    return count;
}
