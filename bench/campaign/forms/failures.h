#pragma once

#include <QStringList>
#include <functional>

/// Every statement of a routine that writes is in turn the one that fails on a server: by an error of the server's, by
/// a lock that is not given up, by a deadlock, by a line that is cut. Whether statements are waited for or sent behind
/// each other, the same rows, boxes and papers must come of it, and the same exit status.
class StatementFailures
{
public:
    /// Runs one routine of the clerk's on a database and gives what it told, with its exit status.
    using Clerk = std::function<QString(const QString &database, const QString &role)>;

    /// `company` is the database to start from each time.
    StatementFailures(QString company, Clerk clerk) : m_company(std::move(company)), m_clerk(std::move(clerk)) {}

    /// Tries that many statements of each routine, spread over it, with each failure.
    void tryAll(int count);

    int runs() const { return m_runs; }
    const QStringList &faults() const { return m_faults; }

private:
    struct Outcome
    {
        QString told;
        QStringList rows;
        int statements = 0; ///< that were reached
    };
    Outcome run(const QString &role, const QString &failure, int statement, bool behind);

    QString m_company;
    Clerk m_clerk;
    int m_runs = 0;
    QStringList m_faults;
};
