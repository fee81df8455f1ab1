#include "data/dao/copydatabase.h"

#include "data/engines/engines.h"

void copyDatabase(const QString &from, const QString &to, const QString &password)
{
    engines::copy(from, to, password);
}

void requireSoundDatabase(const QString &file, const QString &password)
{
    engines::requireSound(file, password);
}
