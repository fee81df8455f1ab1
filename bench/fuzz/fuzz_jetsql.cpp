#include "bench/fuzz/patience.h"
#include "bench/statements/mutation.h"

#include <cstdio>
#include <cstdlib>

/// Any bytes at all, taken for a statement.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    static const SqliteParser parser;
    const Patience patience;
    const QString statement = QString::fromUtf8(reinterpret_cast<const char *>(data), qsizetype(size));
    if (const QString fault = faultOf(parser, statement); !fault.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(fault));
        std::abort();
    }
    return 0;
}
