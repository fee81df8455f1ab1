#pragma once

#include "data/values/value.h"
#include <gtest/gtest.h>
#include <ostream>

// How values show in a failed test, and what tests say about run-time errors.

void PrintTo(const QString &text, std::ostream *out);
void PrintTo(const Date &date, std::ostream *out);
void PrintTo(const Value &value, std::ostream *out);

/// The number of the run-time error that the call raises, or 0.
int errorNumberOf(const std::function<void()> &call);
/// The wording of the run-time error that the call raises, or nothing.
QString errorTextOf(const std::function<void()> &call);
