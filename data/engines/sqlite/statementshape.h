#pragma once

#include <QByteArray>
#include <variant>
#include <vector>

class Statement;

/// What a statement of SQLite is prepared as. Programs here put every value into the text, and preparing costs
/// several times what a lookup by key does; with the constants taken out, statements that differ in those alone
/// are prepared once.
class StatementShape
{
public:
    StatementShape() = default;
    /// The statement as it is.
    static StatementShape whole(const QByteArray &sql);
    /// The statement with its constants taken out, but for those the planner needs to see: what stands behind
    /// ORDER BY, and what a partial index names. For statements over one table, without grouping.
    static StatementShape withoutConstants(const QByteArray &sql);

    const QByteArray &sql() const { return m_sql; }
    /// Gives the constants to a statement prepared from sql().
    void bindTo(Statement &statement) const;

private:
    void takeText(const QByteArray &sql, qsizetype &at);
    void takeNumber(const QByteArray &sql, qsizetype &at);

    QByteArray m_sql;
    std::vector<std::variant<qint64, double, QByteArray>> m_values;
};
