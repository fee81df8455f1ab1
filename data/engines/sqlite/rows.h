#pragma once

#include "data/engine/rows.h"
#include "data/engines/sqlite/connection.h"

/// The rows of a prepared statement.
class SqliteRows : public engine::Rows
{
public:
    SqliteRows(Connection &connection, PreparedStatement statement);
    ~SqliteRows() override;

    bool next() override;
    bool metOtherTables() const override { return m_statement ? m_statement.sawOtherTables() : m_metOtherTables; }
    Cell cell(int column) const override { return m_statement.cell(column); }

private:
    Connection &m_connection;
    PreparedStatement m_statement;
    bool m_metOtherTables = false; ///< once the statement is given back
};
