#pragma once

#include "data/engines/postgres/queue.h"

namespace postgres {

/// The transactions of a session, one at a time.
class Transactions
{
public:
    virtual std::unique_ptr<engine::Transaction> begin(const ErrorContext &context) = 0;
    /// Whether one stands open, as between Edit and Update.
    virtual bool holdsTransaction() const = 0;

protected:
    ~Transactions() = default;
};

/// Single rows of one table, found by their numbers.
class RowEdit : public engine::RowEdit
{
public:
    RowEdit(Queue &queue, Transactions &transactions, const TableDef &table, const std::vector<QString> &columns);

    std::unique_ptr<engine::Rows> read(qint64 row, bool locked, const ErrorContext &context) override;
    qint64 add(const std::vector<std::optional<Value>> &values, bool tell, const ErrorContext &context) override;
    bool change(qint64 row, const std::vector<std::optional<Value>> &values, const ErrorContext &context) override;

private:
    void makeRowsFindable(const ErrorContext &context);

    Queue &m_queue;
    Transactions &m_transactions;
    TableDef m_table;
    QByteArray m_name, m_rowColumn;
    QByteArray m_readSql;
    QByteArray m_addSql; ///< made for the first row
    bool m_findable;     ///< whether the rows' numbers have an index
};

} // namespace postgres
