#pragma once

#include <QDateTime>
#include <functional>

/// Where the program takes the present moment from: the system, or what a test put in its place.
namespace Clock {
/// The present local date and time.
QDateTime now();
/// Seconds since midnight, with a fraction; jumps back to 0 at midnight.
double secondsSinceMidnight();
/// Replaces the source; an empty function restores the system's clock.
void setSource(std::function<QDateTime()> source);
} // namespace Clock
