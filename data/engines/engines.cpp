#include "data/engines/engines.h"

#include "data/engines/postgres/bulkrows.h"
#include "data/engines/postgres/createdatabase.h"
#include "data/engines/postgres/engine.h"
#include "data/engines/postgres/session.h"
#include "data/engines/sqlite/bulkrows.h"
#include "data/engines/sqlite/copyfile.h"
#include "data/engines/sqlite/createfile.h"
#include "data/engines/sqlite/engine.h"
#include <QFile>

/// On a server scratch tables belong to a session; in a file they are tables like all others, shared by everybody.
bool engines::hasPrivateTables(const QString &name)
{
    return postgres::isUri(name);
}

bool engines::isFile(const QString &name)
{
    return !postgres::isUri(name);
}

QString engines::databaseName(const QString &uri)
{
    return postgres::databaseName(postgres::Uri(uri));
}

void engines::discard(const QString &name, engine::Made made)
{
    if (postgres::isUri(name))
        postgres::discardDatabase(name, made);
    else
        QFile::remove(name);
}

std::unique_ptr<engine::Connection> engines::open(const engine::Options &options)
{
    if (postgres::isUri(options.name))
        return std::make_unique<postgres::Engine>(options);
    return std::make_unique<SqliteEngine>(options);
}

std::unique_ptr<engine::BulkRows> engines::bulkRows(const QString &name, const QString &password,
                                                    engine::BulkRows::State state)
{
    if (postgres::isUri(name))
        return std::make_unique<postgres::BulkRows>(name, password, state);
    return std::make_unique<SqliteBulkRows>(name, password, state);
}

engine::Made engines::create(const QString &name, const QString &password, const QByteArray &salt)
{
    if (postgres::isUri(name))
        return postgres::createDatabase(name, password, salt);
    createFile(name, password, salt);
    return engine::Made::Database;
}

void engines::copy(const QString &from, const QString &to, const QString &password)
{
    copyFile(from, to, password);
}

void engines::requireSound(const QString &file, const QString &password)
{
    requireSoundFile(file, password);
}
