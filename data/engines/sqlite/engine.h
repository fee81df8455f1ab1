#pragma once

#include "data/engine/connection.h"
#include "data/engines/sqlite/connection.h"

/// A database file as the layers above speak to it.
class SqliteEngine : public engine::Connection
{
public:
    /// Opens a file and checks the password. The entry "journal" may be "log" or "rollback", which overrule the choice
    /// by the kind of disk the file lies on; "busy" the milliseconds for which a locked file is retried. Errors 3024,
    /// 3031, 3044, 3045, 3051, 3055, 3343.
    explicit SqliteEngine(const engine::Options &options);

    const jetsql::Dialect &dialect() const override;
    Catalog readCatalog() override;
    bool catalogIsCurrent() override;
    std::unique_ptr<engine::Rows> open(const QByteArray &sql, const std::vector<Value> &values,
                                       const ErrorContext &context) override;
    std::unique_ptr<engine::RowEdit> edit(const TableDef &table, const std::vector<QString> &columns) override;
    qint32 takeAutoNumber(const TableDef &table, const QString &column) override;
    void prepareToWrite() override;
    void prepareToCopyRows() override;
    std::unique_ptr<engine::Transaction> begin(const ErrorContext &context) override;
    void execute(const QByteArray &sql, const std::vector<Value> &values, const ErrorContext &context) override;
    void createTable(const TableDef &table, engine::Key key, const ErrorContext &context) override;
    void createIndex(const Schema::Index &index, const ErrorContext &context) override;
    void dropTable(const TableDef &table, const ErrorContext &context) override;
    void flush() override {}
    void sync() override;

private:
    ::Connection m_connection;
    qint64 m_catalogVersion = -1; ///< the schema version that the catalogue was read at
};
