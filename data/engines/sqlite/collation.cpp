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
