#pragma once

#include "data/engines/sqlite/connection.h"
#include <span>

/// Puts many rows into a database file as one: all of them stand there after `commit`, none before or without it.
/// For the administrator's tools; the program itself writes row by row.
class BulkLoad
{
public:
    /// A `New` file belongs to nobody yet: its indexes are made after the rows, and a power failure may ruin it.
    /// A `Live` one may be in use by others.
    enum class File { New, Live };

    /// Opens the file and starts. Errors as at opening a database; 3211 while another process is writing.
    BulkLoad(const QString &path, const QString &password, File file);

    const Catalog &tables() const { return m_tables; }

    /// Inserts into some columns of one table, in their order; the others take their defaults.
    class Inserter
    {
    public:
        void add(std::span<const Value> row);
        void add(std::initializer_list<Value> row) { add(std::span(row.begin(), row.size())); }

    private:
        friend class BulkLoad;
        Inserter(BulkLoad &load, const TableDef &table, const QStringList &columns);

        BulkLoad &m_load;
        Doing m_doing;
        Statement m_insert;
    };

    /// The table must exist and have the columns.
    Inserter into(const QString &table, const QStringList &columns);
    void commit();

private:
    void makeIndexes();

    Connection m_connection;
    std::unique_ptr<Transaction> m_transaction;
    Catalog m_tables;
    File m_file;
};
