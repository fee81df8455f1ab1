#pragma once

#include "data/engine/bulkrows.h"
#include "data/engines/sqlite/connection.h"

/// Many rows put into a database file in one transaction.
class SqliteBulkRows : public engine::BulkRows
{
public:
    /// Errors as at opening a database; 3211 while another process is writing.
    SqliteBulkRows(const QString &path, const QString &password, State state);

    const Catalog &tables() const override { return m_tables; }
    std::unique_ptr<engine::RowSink> into(const TableDef &table, const QStringList &columns) override;
    void commit() override;

private:
    void makeIndexes();

    Connection m_connection;
    std::unique_ptr<Transaction> m_transaction;
    Catalog m_tables;
    State m_state;
};
