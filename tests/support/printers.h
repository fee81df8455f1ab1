#pragma once

#include "data/values/value.h"
#include <gtest/gtest.h>
#include <ostream>

// How values show in a failed test, and what tests say about run-time errors.

void PrintTo(const QString &text, std::ostream *out);
void PrintTo(const Date &date, std::ostream *out);
void PrintTo(const Value &value, std::ostream *out);

/// To be called when a test lets an error go on through Qt's own functions, where the program would end. They know no
/// exceptions and leave behind what they hold, so this process says nothing about leaks any more.
void noteUnwindingThroughQt();

/// The number of the run-time error that the call raises, or 0.
int errorNumberOf(const std::function<void()> &call);
/// The wording of the run-time error that the call raises, or nothing.
QString errorTextOf(const std::function<void()> &call);
