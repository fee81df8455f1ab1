#pragma once

#include "data/engine/connection.h"

class Connection;

/// Single rows of one table, found by their rowids.
class SqliteRowEdit : public engine::RowEdit
{
public:
    SqliteRowEdit(Connection &connection, const TableDef &table, const std::vector<QString> &columns);

    std::unique_ptr<engine::Rows> read(qint64 row, bool locked, const ErrorContext &context) override;
    qint64 add(const std::vector<std::optional<Value>> &values, bool tell, const ErrorContext &context) override;
    bool change(qint64 row, const std::vector<std::optional<Value>> &values, const ErrorContext &context) override;

private:
    Connection &m_connection;
    TableDef m_table;
    QByteArray m_readSql;
    QByteArray m_addSql; ///< made for the first row
};
