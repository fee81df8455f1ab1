#include "data/values/clock.h"

namespace {
std::function<QDateTime()> &source()
{
    static std::function<QDateTime()> function;
    return function;
}
} // namespace

QDateTime Clock::now()
{
    return source() ? source()() : QDateTime::currentDateTime();
}

double Clock::secondsSinceMidnight()
{
    return now().time().msecsSinceStartOfDay() / 1000.0;
}

void Clock::setSource(std::function<QDateTime()> newSource)
{
    source() = std::move(newSource);
}
