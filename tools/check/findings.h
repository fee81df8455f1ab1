#pragma once

#include <QStringList>

class Catalog;
class Connection;
namespace engine {
class Connection;
}

namespace check {

/// Collects the faults of one kind and makes a line of them.
class Findings
{
public:
    void add(const QString &table, const QString &fault, const QString &row);
    /// The lines in the order in which the kinds were met.
    QStringList lines() const;

private:
    struct Kind
    {
        QString table, fault;
        QStringList rows; ///< the first few
        int count = 0;
    };
    std::vector<Kind> m_kinds;
};

// The steps.
/// The file's own structure, and tables and columns that are missing; false when it is useless to go on.
bool checkStructure(Connection &connection, Findings &findings);
/// The part of it that looks for tables and columns.
bool checkTables(const Catalog &catalog, Findings &findings);
/// What the statements need inside of a server besides tables: functions and indexes.
void checkServer(engine::Connection &connection, Findings &findings);
/// Values that a column's type cannot hold, as another tool may have stored them.
void checkColumns(Connection &connection, Findings &findings);
/// Rows that refer to what is not there, keys that repeat, and the like.
void checkRelations(Connection &connection, Findings &findings);
/// What ends the program when it comes upon it: Nulls and apostrophes where it bears none, IDs beyond 16 bits.
void checkEndings(Connection &connection, Findings &findings);
/// The settings file against the database: error 53 and the like when it cannot be read.
void checkConfig(const QString &config, Connection &connection, Findings &findings);
/// The ledger against what its documents post and a rebuild makes of them.
void checkLedger(Connection &connection, Findings &findings);
/// Invoices against the shipments that they list.
void checkInvoices(Connection &connection, Findings &findings);

/// Runs a query and reports each row by its first column.
void reportRows(Connection &connection, Findings &findings, const QString &table, const QString &fault,
                const QByteArray &sql);

} // namespace check
