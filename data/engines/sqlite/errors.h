#pragma once

#include "data/values/runtimeerror.h"

struct ErrorContext;

/// The run-time error a user sees for a result code of SQLite; `words` are SQLite's own, kept in the detail.
RuntimeError errorFor(int code, const QString &words, const QString &file, const ErrorContext &context);
