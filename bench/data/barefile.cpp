#include "bench/data/barefile.h"

#include <QFile>

namespace {
QString originalPath;
} // namespace

void WorkingCopy::setOriginal(const QString &path)
{
    originalPath = path;
}

const QString &WorkingCopy::original()
{
    return originalPath;
}

WorkingCopy::WorkingCopy()
{
    if (!QFile::copy(originalPath, path()))
        qFatal("cannot copy the database to %s", qPrintable(path()));
}

BareConnection::BareConnection(const QString &path)
{
    sqlite3_open(path.toUtf8().constData(), &m_handle);
    run("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; PRAGMA cache_size=-65536");
}

BareConnection::~BareConnection()
{
    sqlite3_close_v2(m_handle);
}

sqlite3_stmt *BareConnection::prepare(const char *sql)
{
    sqlite3_stmt *statement = nullptr;
    if (sqlite3_prepare_v2(m_handle, sql, -1, &statement, nullptr) != SQLITE_OK)
        qFatal("%s: %s", sql, sqlite3_errmsg(m_handle));
    return statement;
}

void BareConnection::run(const char *sql)
{
    if (sqlite3_exec(m_handle, sql, nullptr, nullptr, nullptr) != SQLITE_OK)
        qFatal("%s: %s", sql, sqlite3_errmsg(m_handle));
}
