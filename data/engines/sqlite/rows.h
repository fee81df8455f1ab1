#pragma once

#include "data/engine/rows.h"
#include "data/engines/sqlite/connection.h"

/// The rows of a prepared statement.
class SqliteRows : public engine::Rows
{
public:
    SqliteRows(Connection &connection, Statement statement, Doing doing);
    ~SqliteRows() override;

    bool next() override;
    bool metOtherTables() const override { return m_metOtherTables; }
    Cell cell(int column) const override { return m_statement.cell(column); }

private:
    Connection &m_connection;
    Statement m_statement;
    Doing m_doing;
    bool m_begun = false;
    bool m_metOtherTables = false;
};
