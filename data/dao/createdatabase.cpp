#include "data/dao/createdatabase.h"

#include "data/engines/engines.h"

engine::Made createDatabase(const QString &path, const QString &password, const QByteArray &salt)
{
    return engines::create(path, password, salt);
}

void discardDatabase(const QString &path, engine::Made made)
{
    engines::discard(path, made);
}
