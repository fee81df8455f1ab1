#pragma once

#include "data/values/runtimeerror.h"

/// What was being done when the engine failed: it decides between the errors for one and the same lock.
struct ErrorContext
{
    enum Kind { Opening, Reading, Writing, Defining } kind = Reading;
    QString table;     ///< named by the lock errors of a table
    QString statement; ///< for the error's detail
};

/// The error of a lock that was waited for in vain; `database` is the name it was opened by.
RuntimeError lockError(const QString &database, const ErrorContext &context, const QString &detail);
/// The detail of an error: the statement, and behind it what the engine of that name says.
QString detailOf(const ErrorContext &context, const char *engine, const QString &words);
