#include "data/dao/bulkload.h"

#include "data/engines/engines.h"

BulkLoad::BulkLoad(const QString &path, const QString &password, File file)
    : m_rows(engines::bulkRows(path, password, file))
{
}

BulkLoad::Inserter BulkLoad::into(const QString &table, const QStringList &columns)
{
    return Inserter(m_rows->into(*tables().find(table), columns));
}
