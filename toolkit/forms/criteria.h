#pragma once

#include <QString>

/// The WHERE clause of a search, put together from the criteria that were filled in.
class Criteria
{
public:
    /// `condition` begins with the blank that stands before it in the statement.
    void add(const QString &condition) { m_clause += (m_clause.isEmpty() ? " WHERE " : " AND ") + condition; }
    /// The conditions joined by AND; empty without any.
    const QString &clause() const { return m_clause; }

private:
    QString m_clause;
};
