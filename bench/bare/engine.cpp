#include "bench/bare/engine.h"

#include <cstdio>
#include <cstdlib>

namespace {

void check(bool good, sqlite3 *connection, const QByteArray &what)
{
    if (good)
        return;
    std::fprintf(stderr, "%s: %s\n", sqlite3_errmsg(connection), what.constData());
    std::exit(1);
}

} // namespace

BareEngine::BareEngine(const QString &path)
{
    sqlite3 *connection = nullptr;
    const int result = sqlite3_open_v2(path.toUtf8().constData(), &connection, SQLITE_OPEN_READWRITE, nullptr);
    m_connection.reset(connection);
    check(result == SQLITE_OK, connection, path.toUtf8());
    run("PRAGMA journal_mode=WAL");
    run("PRAGMA synchronous=NORMAL");
    run("PRAGMA cache_size=-65536");
}

void BareEngine::run(const QByteArray &sql)
{
    const char *rest = sql.constData();
    while (*rest) {
        sqlite3_stmt *statement = nullptr;
        check(sqlite3_prepare_v2(m_connection.get(), rest, -1, &statement, &rest) == SQLITE_OK, m_connection.get(),
              sql);
        if (!statement)
            break;
        const int columns = sqlite3_column_count(statement);
        if (columns > 0)
            m_rows.clear();
        int result;
        while ((result = sqlite3_step(statement)) == SQLITE_ROW) {
            for (int column = 0; column < columns; ++column)
                sqlite3_column_text(statement, column);
            if (m_keepsRows)
                keep(statement);
        }
        check(result == SQLITE_DONE, m_connection.get(), sql);
        sqlite3_finalize(statement);
    }
}

void BareEngine::keep(sqlite3_stmt *statement)
{
    QStringList row;
    for (int column = 0; column < sqlite3_column_count(statement); ++column)
        row += QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(statement, column)));
    m_rows.push_back(row);
}

BareEngine::Statement::Statement(BareEngine &engine, const QByteArray &sql)
{
    sqlite3_stmt *statement = nullptr;
    check(sqlite3_prepare_v2(engine.m_connection.get(), sql.constData(), -1, &statement, nullptr) == SQLITE_OK,
          engine.m_connection.get(), sql);
    m_statement.reset(statement);
}

BareEngine::Statement &BareEngine::Statement::bind(int parameter, qint64 value)
{
    sqlite3_bind_int64(m_statement.get(), parameter, value);
    return *this;
}

BareEngine::Statement &BareEngine::Statement::bind(int parameter, double value)
{
    sqlite3_bind_double(m_statement.get(), parameter, value);
    return *this;
}

BareEngine::Statement &BareEngine::Statement::bind(int parameter, const QByteArray &value)
{
    sqlite3_bind_text(m_statement.get(), parameter, value.constData(), int(value.size()), SQLITE_TRANSIENT);
    return *this;
}

bool BareEngine::Statement::step()
{
    const int result = sqlite3_step(m_statement.get());
    check(result == SQLITE_ROW || result == SQLITE_DONE, sqlite3_db_handle(m_statement.get()), "step");
    return result == SQLITE_ROW;
}

void BareEngine::Statement::reset()
{
    sqlite3_reset(m_statement.get());
}

QByteArrayView BareEngine::Statement::view(int column) const
{
    return {sqlite3_column_text(m_statement.get(), column), sqlite3_column_bytes(m_statement.get(), column)};
}

double BareEngine::Statement::number(int column) const
{
    return sqlite3_column_double(m_statement.get(), column);
}

bool BareEngine::Statement::isNull(int column) const
{
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}
