#include "data/engines/sqlite/rows.h"

SqliteRows::SqliteRows(Connection &connection, PreparedStatement statement)
    : m_connection(connection), m_statement(std::move(statement))
{
}

SqliteRows::~SqliteRows()
{
    m_connection.giveBack(std::move(m_statement));
}

bool SqliteRows::next()
{
    if (m_statement.next())
        return true;
    m_metOtherTables = m_statement.sawOtherTables();
    m_connection.giveBack(std::move(m_statement)); // at once, so that its locks go with the last row
    return false;
}
