#include "data/dao/database.h"
#include "data/dao/databasedata.h"
#include "data/engines/engines.h"

namespace {

/// The entries of a connect string, "pwd" of ";pwd=abc;journal=log", by lower-case name.
QHash<QString, QString> entriesOf(const QString &connect)
{
    QHash<QString, QString> entries;
    for (const QString &entry : connect.split(u';', Qt::SkipEmptyParts)) {
        const qsizetype equals = entry.indexOf(u'=');
        if (equals >= 0)
            entries.insert(entry.first(equals).trimmed().toLower(), entry.sliced(equals + 1));
    }
    return entries;
}

} // namespace

std::unique_ptr<Database> DBEngine::OpenDatabase(const QString &name, bool exclusive, bool readOnly,
                                                 const QString &connect)
{
    const QHash<QString, QString> entries = entriesOf(connect);
    auto engine = engines::open({name, entries.value(QStringLiteral("pwd")), exclusive, readOnly, entries});
    return std::make_unique<Database>(std::make_shared<DatabaseData>(std::move(engine)));
}
