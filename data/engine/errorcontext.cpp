#include "data/engine/errorcontext.h"

/// The platform tells apart what is kept from whom: the whole database, a row about to be written, or a table.
RuntimeError lockError(const QString &database, const ErrorContext &context, const QString &detail)
{
    switch (context.kind) {
    case ErrorContext::Opening:
        return runtimeError(3045, {database}, detail);
    case ErrorContext::Writing:
        return runtimeError(3218, {}, detail);
    default:
        return runtimeError(3211, {context.table}, detail);
    }
}

QString detailOf(const ErrorContext &context, const char *engine, const QString &words)
{
    return context.statement.isEmpty() ? words : context.statement + '\n' + engine + ": " + words;
}
