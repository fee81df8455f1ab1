#pragma once

#include <QTemporaryDir>
#include <sqlite3.h>

/// A copy of the database that the command line names, for one benchmark to write to.
class WorkingCopy
{
public:
    static void setOriginal(const QString &path);
    static const QString &original();

    WorkingCopy();
    QString path() const { return m_folder.filePath("company.db"); }

private:
    QTemporaryDir m_folder;
};

/// What the benchmarks are measured against: SQLite's C interface with nothing around it, on the same file and with
/// the same settings.
class BareConnection
{
public:
    explicit BareConnection(const QString &path);
    BareConnection(const BareConnection &) = delete;
    BareConnection &operator=(const BareConnection &) = delete;
    ~BareConnection();

    sqlite3_stmt *prepare(const char *sql);
    void run(const char *sql);

private:
    sqlite3 *m_handle = nullptr;
};
