#pragma once

#include "data/engine/bulkrows.h"

/// Puts many rows into a database as one: all of them stand there after `commit`, none before or without it.
/// For the administrator's tools; the program itself writes row by row.
class BulkLoad
{
public:
    using File = engine::BulkRows::State;

    /// Opens the database and starts. Errors as at opening a database; 3211 while somebody else is writing a file.
    BulkLoad(const QString &path, const QString &password, File file);

    const Catalog &tables() const { return m_rows->tables(); }

    /// Inserts into some columns of one table, in their order; the others take their defaults.
    class Inserter
    {
    public:
        void add(std::span<const Value> row) { m_sink->add(row); }
        void add(std::initializer_list<Value> row) { add(std::span(row.begin(), row.size())); }

    private:
        friend class BulkLoad;
        explicit Inserter(std::unique_ptr<engine::RowSink> sink) : m_sink(std::move(sink)) {}

        std::unique_ptr<engine::RowSink> m_sink;
    };

    /// The table must exist and have the columns.
    Inserter into(const QString &table, const QStringList &columns);
    void commit() { m_rows->commit(); }

private:
    std::unique_ptr<engine::BulkRows> m_rows;
};
