#pragma once

#include <cstdio>
#include <cstdlib>
#include <ctime>

/// Ends the program over an input that takes more than two seconds of the processor's time. The fuzzer's own limit goes
/// by the clock, which on a busy machine runs on while nothing happens; it is there for inputs that never end.
class Patience
{
public:
    Patience() : m_begin(seconds()) {}
    Patience(const Patience &) = delete;
    Patience &operator=(const Patience &) = delete;
    ~Patience()
    {
        const double taken = seconds() - m_begin;
        if (taken <= 2)
            return;
        std::fprintf(stderr, "took %.1f s\n", taken);
        std::abort();
    }

private:
    static double seconds()
    {
        timespec time = {};
        clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
        return double(time.tv_sec) + double(time.tv_nsec) / 1e9;
    }

    double m_begin;
};
