#include "data/dao/createdatabase.h"

#include "data/engines/engines.h"

void createDatabase(const QString &path, const QString &password, const QByteArray &salt)
{
    engines::create(path, password, salt);
}

void discardDatabase(const QString &path)
{
    engines::discard(path);
}
