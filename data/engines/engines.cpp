#include "data/engines/engines.h"

#include "data/engines/sqlite/bulkrows.h"
#include "data/engines/sqlite/copyfile.h"
#include "data/engines/sqlite/createfile.h"
#include "data/engines/sqlite/engine.h"

std::unique_ptr<engine::Connection> engines::open(const engine::Options &options)
{
    return std::make_unique<SqliteEngine>(options);
}

std::unique_ptr<engine::BulkRows> engines::bulkRows(const QString &name, const QString &password,
                                                    engine::BulkRows::State state)
{
    return std::make_unique<SqliteBulkRows>(name, password, state);
}

void engines::create(const QString &name, const QString &password, const QByteArray &salt)
{
    createFile(name, password, salt);
}

void engines::copy(const QString &from, const QString &to, const QString &password)
{
    copyFile(from, to, password);
}
