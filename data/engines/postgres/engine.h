#pragma once

#include "data/engine/connection.h"
#include "data/engines/postgres/rowedit.h"

namespace postgres {

/// A database on a server as the layers above speak to it, in one session for the life of the program. Nothing
/// reconnects: a session that is lost is error 3043.
class Engine : public engine::Connection, public Transactions
{
public:
    /// Opens a URI and checks the password of the database, which is another one than the server's. "behind=no" in the
    /// URI has every statement waited for. The entry "busy" is the milliseconds for which a lock is waited for. Errors
    /// 3024, 3031, 3044, 3045, 3051, 3343.
    explicit Engine(const engine::Options &options);

    const jetsql::Dialect &dialect() const override;
    Catalog readCatalog() override;
    bool catalogIsCurrent() override;
    bool catalogIsSurelyCurrent() override;
    void setRewrite(std::function<engine::Written(const QString &statement)> rewrite) override;
    std::unique_ptr<engine::Rows> open(const QByteArray &sql, const std::vector<Value> &values,
                                       const ErrorContext &context) override;
    std::unique_ptr<engine::RowEdit> edit(const TableDef &table, const std::vector<QString> &columns) override;
    qint32 takeAutoNumber(const TableDef &table, const QString &column) override;
    void prepareToWrite() override {}
    void prepareToCopyRows() override { m_copies = true; }
    std::unique_ptr<engine::Transaction> begin(const ErrorContext &context) override;
    void execute(const QByteArray &sql, const std::vector<Value> &values, const ErrorContext &context) override;
    void createTable(const TableDef &table, engine::Key key, const ErrorContext &context) override;
    void createIndex(const Schema::Index &index, const ErrorContext &context) override;
    void dropTable(const TableDef &table, const ErrorContext &context) override;
    void flush() override;
    void sync() override;

private:
    class Transaction;

    bool holdsTransaction() const override { return m_transaction > 0 && m_failures == m_queue.failures(); }
    void commit(const ErrorContext &context);
    void define(const QByteArray &sql, const QString &table, const ErrorContext &context);

    Uri m_uri;
    Handle m_handle;
    Queue m_queue;
    int m_transaction = 0; ///< the open one, counted from 1; 0 for none
    int m_lastTransaction = 0;
    int m_failures = 0; ///< of the queue, when the open transaction began
    int m_sent = 0;     ///< transactions that nobody has waited for
    bool m_copies = false;
    bool m_tablesChanged = false; ///< by another session, since the catalogue was read
    Result m_declarations;        ///< of m_catalog
    Catalog m_catalog;
};

} // namespace postgres
