#pragma once

#include <QString>

/// What was being done when the engine failed: it decides between the errors for one and the same lock.
struct ErrorContext
{
    enum Kind { Opening, Reading, Writing, Defining } kind = Reading;
    QString table;     ///< named by the lock errors of a table
    QString statement; ///< for the error's detail
};
