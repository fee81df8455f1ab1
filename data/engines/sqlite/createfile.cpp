#include "data/engines/sqlite/createfile.h"

#include "data/engines/sqlite/connection.h"
#include "data/engines/sqlite/filesystem.h"
#include "data/engines/sqlite/passwordgate.h"
#include "data/engines/sqlite/tables.h"
#include <QFile>

namespace {

void makeTables(Connection &connection, const std::vector<TableDef> &tables, const ErrorContext &defining)
{
    for (const TableDef &table : tables)
        connection.run(Tables::createStatement(table, engine::Key::AutoNumberIsKey), defining);
}

void fill(const QString &path, const QString &password, const QByteArray &salt)
{
    ConnectionOptions options;
    options.file = path;
    options.create = true;
    // With the log a disk could turn out to be full only when the file is closed, which cannot fail any more.
    options.journal = Journal::Rollback;
    Connection connection(options);
    const ErrorContext defining{ErrorContext::Defining, {}, "create database"};
    Transaction transaction(connection, defining);
    PasswordGate::create(connection, password, salt);
    makeTables(connection, Schema::permanentTables(), defining);
    makeTables(connection, Schema::keptScratchTables(), defining);
    const auto &made = Tables::readCatalog(connection);
    for (const Schema::Index &index : Schema::indexes()) {
        // The others belong to tables that reports make; they get theirs then.
        if (made.find(index.table))
            connection.run(Tables::createStatement(index), defining);
    }
    transaction.commit();
    // Last, since a file that fails before this is taken away again.
    shareWithGroup(path);
}

} // namespace

void createFile(const QString &path, const QString &password, const QByteArray &salt)
{
    if (QFile::exists(path))
        throw runtimeError(3204, {}, path);
    try {
        fill(path, password, salt);
    } catch (...) {
        if (!path.isEmpty())
            QFile::remove(path);
        throw;
    }
}
