#include "bench/statements/sqliteparser.h"

#include "data/engines/sqlite/collation.h"
#include "data/engines/sqlite/functions.h"
#include "data/engines/sqlite/tables.h"
#include "data/schema/schema.h"
#include <stdexcept>

namespace {

sqlite3 *openInMemory()
{
    sqlite3 *connection = nullptr;
    sqlite3_open(":memory:", &connection);
    sqlite3_db_config(connection, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    registerJetFunctions(connection);
    registerJetCollation(connection);
    return connection;
}

} // namespace

SqliteParser::SqliteParser() : m_connection(openInMemory(), &sqlite3_close)
{
    for (const auto *tables : {&Schema::permanentTables(), &Schema::keptScratchTables()}) {
        for (const TableDef &table : *tables) {
            run(Tables::createStatement(table, engine::Key::AutoNumberIsKey));
            m_catalog.add(table);
        }
    }
    for (const Schema::Index &index : Schema::indexes()) {
        if (m_catalog.find(index.table))
            run(Tables::createStatement(index));
    }
}

void SqliteParser::run(const QByteArray &sql)
{
    if (sqlite3_exec(m_connection.get(), sql.constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(m_connection.get()));
}

QString SqliteParser::complaint(const QByteArray &sql) const
{
    sqlite3_stmt *statement = nullptr;
    const int code = sqlite3_prepare_v2(m_connection.get(), sql.constData(), int(sql.size()) + 1, &statement, nullptr);
    sqlite3_finalize(statement);
    if (code == SQLITE_OK)
        return {};
    const QString message = QString::fromUtf8(sqlite3_errmsg(m_connection.get()));
    if (const auto error = runtimeErrorFrom(message))
        throw *error;
    return message + " in " + QString::fromUtf8(sql);
}
