#include "bench/campaign/place.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QThread>
#include <libpq-fe.h>
#include <memory>
#include <sqlite3.h>

namespace {

QStringList rowsOfFile(const QString &file, const QByteArray &sql)
{
    sqlite3 *connection = nullptr;
    sqlite3_stmt *statement = nullptr;
    QStringList result;
    sqlite3_open(file.toUtf8().constData(), &connection);
    sqlite3_busy_timeout(connection, 5000);
    if (sqlite3_prepare_v2(connection, sql.constData(), -1, &statement, nullptr) != SQLITE_OK)
        result += QString::fromUtf8(sqlite3_errmsg(connection));
    while (statement && sqlite3_step(statement) == SQLITE_ROW) {
        QStringList columns;
        for (int i = 0; i < sqlite3_column_count(statement); ++i)
            columns += QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(statement, i)));
        result += columns.join('|');
    }
    sqlite3_finalize(statement);
    sqlite3_close(connection);
    return result;
}

QStringList rowsOfServer(const QString &uri, const QByteArray &sql)
{
    const std::unique_ptr<PGconn, decltype(&PQfinish)> connection(PQconnectdb(uri.toUtf8().constData()), PQfinish);
    const std::unique_ptr<PGresult, decltype(&PQclear)> result(PQexec(connection.get(), sql.constData()), PQclear);
    if (PQresultStatus(result.get()) == PGRES_COMMAND_OK)
        return {};
    if (PQresultStatus(result.get()) != PGRES_TUPLES_OK)
        return {QString::fromUtf8(PQerrorMessage(connection.get()))};
    QStringList rows;
    for (int row = 0; row < PQntuples(result.get()); ++row) {
        QStringList columns;
        for (int column = 0; column < PQnfields(result.get()); ++column)
            columns += QString::fromUtf8(PQgetvalue(result.get(), row, column));
        rows += columns.join('|');
    }
    return rows;
}

} // namespace

Place Place::onServer(const QString &link)
{
    return Place(QString("postgresql://tamrick@/campaign%1?host=%2")
                     .arg(QCoreApplication::applicationPid())
                     .arg(QFileInfo(link).canonicalFilePath()));
}

QStringList Place::rows(const QByteArray &sql) const
{
    return isOnServer() ? rowsOfServer(m_name, sql) : rowsOfFile(m_name, sql);
}

void Place::waitUntilLeft() const
{
    const QByteArray others = "SELECT pid FROM pg_stat_activity WHERE datname = current_database() AND "
                              "backend_type = 'client backend' AND pid <> pg_backend_pid()";
    while (isOnServer() && !rows(others).isEmpty())
        QThread::msleep(5);
}
