#include "data/engines/sqlite/collation.h"

#include "data/values/textorder.h"
#include <sqlite3.h>

static int collate(void *, int sizeA, const void *a, int sizeB, const void *b)
{
    return compareTexts({static_cast<const char *>(a), size_t(sizeA)}, {static_cast<const char *>(b), size_t(sizeB)});
}

void registerJetCollation(sqlite3 *connection)
{
    sqlite3_create_collation(connection, "NOCASE", SQLITE_UTF8, nullptr, collate);
}

void switchBloomFiltersOff(sqlite3 *connection)
{
    // Since 3.38 a join over an index that SQLite makes for the statement first asks a Bloom filter whether a key is
    // there at all, and up to 3.40 at least the filter takes a text's length into its hash, whatever the collation
    // says: "A-1" misses "A-1 ". Later versions give all texts one hash, so that their filter says yes to any of them
    // and nothing is lost without it. Neither a PRAGMA nor an option of the connection switches the filter alone; the
    // number is that of the shell's ".testctrl optimizations".
    constexpr unsigned BloomFilter = 0x00080000;
    sqlite3_test_control(SQLITE_TESTCTRL_OPTIMIZATIONS, connection, BloomFilter);
}
