#include "bench/data/workingcopy.h"

#include <benchmark/benchmark.h>
#include <cstdio>

int main(int argc, char **argv)
{
    constexpr std::string_view option = "--database=";
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument = argv[i];
        if (!argument.starts_with(option))
            continue;
        WorkingCopy::setOriginal(QString::fromLocal8Bit(argv[i] + option.size()));
        std::copy(argv + i + 1, argv + argc, argv + i);
        --argc;
        break;
    }
    if (WorkingCopy::original().isEmpty()) {
        std::fputs("usage: bench_data --database=FILE [options of Google Benchmark]\n", stderr);
        return 2;
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
