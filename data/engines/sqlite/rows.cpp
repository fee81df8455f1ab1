#include "data/engines/sqlite/rows.h"

SqliteRows::SqliteRows(Connection &connection, Statement statement, Doing doing)
    : m_connection(connection), m_statement(std::move(statement)), m_doing(std::move(doing))
{
}

SqliteRows::~SqliteRows()
{
    m_connection.giveBack(std::move(m_statement));
}

bool SqliteRows::next()
{
    const int code = m_statement.step();
    if (!m_begun) {
        // Before anything else is asked: SQLite tells the reason of its latest failure only.
        m_metOtherTables = m_statement.sawOtherTables();
        m_begun = true;
    }
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        m_connection.raise(code, m_doing);
    m_connection.giveBack(std::move(m_statement));
    return false;
}
