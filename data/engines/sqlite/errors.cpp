#include "data/engines/sqlite/errors.h"

#include "data/engine/errorcontext.h"
#include "data/engines/sqlite/functions.h"
#include <sqlite3.h>

RuntimeError errorFor(int code, const QString &words, const QString &file, const ErrorContext &context)
{
    const QString detail = detailOf(context, "SQLite", words);
    // Not the disk's: what is written goes into a file that nobody finds any more.
    if (code == SQLITE_READONLY_DBMOVED)
        code = SQLITE_IOERR;
    // By the plain code: but for the one above, what the extended ones add makes no other error for a user.
    switch (code & 0xff) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return lockError(file, context, detail);
    case SQLITE_NOTADB:
        return runtimeError(3343, {file}, detail);
    case SQLITE_CORRUPT:
        return runtimeError(3049, {file}, detail);
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return runtimeError(3051, {file}, detail);
    case SQLITE_READONLY:
        return runtimeError(3027, {}, detail);
    case SQLITE_CONSTRAINT:
        return runtimeError(3022, {}, detail);
    case SQLITE_NOMEM:
        return runtimeError(7, {}, detail);
    case SQLITE_FULL:
        return runtimeError(3026, {}, detail);
    case SQLITE_IOERR:
        return runtimeError(3043, {}, detail);
    default:
        // A function of the dialect says by its message which error it means.
        if (auto error = runtimeErrorFrom(words.toUtf8().constData()))
            return RuntimeError(error->number(), error->description(), detail);
        return runtimeError(3000, {QString::number(code)}, detail);
    }
}
