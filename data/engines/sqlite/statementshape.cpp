#include "data/engines/sqlite/statementshape.h"

#include "data/engines/sqlite/statement.h"
#include "data/schema/schema.h"

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isNamePart(char c)
{
    return isDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

/// The position behind a text or name in quotes that begins at `at`; a doubled quote inside does not end it.
qsizetype behindQuotes(const QByteArray &sql, qsizetype at)
{
    const char quote = sql[at];
    for (++at; at < sql.size(); ++at) {
        if (sql[at] != quote)
            continue;
        if (at + 1 == sql.size() || sql[at + 1] != quote)
            return at + 1;
        ++at;
    }
    return at;
}

bool isNamedByPartialIndex(const QByteArray &constant)
{
    static const QByteArray conditions = [] {
        QByteArray all;
        for (const Schema::Index &index : Schema::indexes())
            all += index.where.toUtf8() + '\n';
        return all;
    }();
    return conditions.contains(constant);
}

} // namespace

StatementShape StatementShape::whole(const QByteArray &sql)
{
    StatementShape shape;
    shape.m_sql = sql;
    return shape;
}

StatementShape StatementShape::withoutConstants(const QByteArray &sql)
{
    StatementShape shape;
    shape.m_sql.reserve(sql.size());
    for (qsizetype at = 0; at < sql.size();) {
        const char c = sql[at];
        const QByteArrayView rest = QByteArrayView(sql).sliced(at);
        if (rest.startsWith(" ORDER BY ") || rest.startsWith(" LIMIT ")) {
            shape.m_sql += rest;
            break;
        }
        if (c == '\'') {
            shape.takeText(sql, at);
        } else if (isDigit(c)) {
            shape.takeNumber(sql, at);
        } else {
            const qsizetype start = at++;
            if (c == '"')
                at = behindQuotes(sql, start);
            else if (isNamePart(c))
                at = std::find_if_not(sql.begin() + at, sql.end(), isNamePart) - sql.begin();
            shape.m_sql += rest.first(at - start);
        }
    }
    return shape;
}

void StatementShape::takeText(const QByteArray &sql, qsizetype &at)
{
    const qsizetype start = at;
    at = behindQuotes(sql, at);
    const QByteArray constant = sql.mid(start, at - start);
    if (isNamedByPartialIndex(constant)) {
        m_sql += constant;
        return;
    }
    m_values.emplace_back(constant.mid(1, constant.size() - 2).replace("''", "'"));
    m_sql += '?';
}

void StatementShape::takeNumber(const QByteArray &sql, qsizetype &at)
{
    const qsizetype start = at;
    const auto belongs = [&](qsizetype i) {
        return isNamePart(sql[i]) || sql[i] == '.' || ((sql[i] == '+' || sql[i] == '-') && (sql[i - 1] | 0x20) == 'e');
    };
    while (at < sql.size() && belongs(at))
        ++at;
    const QByteArray constant = sql.mid(start, at - start);
    bool whole = false, real = false;
    const qint64 integer = constant.toLongLong(&whole);
    const double number = constant.toDouble(&real);
    if (whole)
        m_values.emplace_back(integer);
    else if (real)
        m_values.emplace_back(number);
    m_sql += whole || real ? QByteArray("?") : constant;
}

void StatementShape::bindTo(Statement &statement) const
{
    int parameter = 0;
    for (const auto &value : m_values) {
        ++parameter;
        if (const auto *integer = std::get_if<qint64>(&value))
            sqlite3_bind_int64(statement.handle(), parameter, *integer);
        else if (const auto *real = std::get_if<double>(&value))
            sqlite3_bind_double(statement.handle(), parameter, *real);
        else
            statement.bind(parameter, std::get<QByteArray>(value));
    }
}
