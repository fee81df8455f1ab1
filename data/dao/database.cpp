#include "data/dao/database.h"

#include "data/dao/recordsetdata.h"
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

/// The sessions that are open, by all that they were opened with.
QHash<QString, std::weak_ptr<DatabaseData>> &sessions()
{
    static QHash<QString, std::weak_ptr<DatabaseData>> open;
    return open;
}

} // namespace

Database::Database(std::shared_ptr<DatabaseData> data) : m_data(std::move(data)) {}
Database::~Database() = default;

void Database::Execute(const QString &sql)
{
    m_data->execute(sql);
}

Recordset Database::OpenRecordset(const QString &sql)
{
    return Recordset(std::make_unique<RecordsetData>(m_data, sql));
}

const std::vector<TableDef> &Database::TableDefs() const
{
    // As they are now and not as last read: a routine that looks for a scratch table drops it next.
    return m_data->freshCatalog().tables();
}

void Database::flush()
{
    m_data->engine().flush();
}

void Database::sync()
{
    m_data->sync();
}

void Database::syncAll()
{
    m_data->syncAll();
}

std::unique_ptr<Database> DBEngine::OpenDatabase(const QString &name, bool exclusive, bool readOnly,
                                                 const QString &connect)
{
    const QHash<QString, QString> entries = entriesOf(connect);
    // Tables that a session has for itself must be seen through every Database of this program, so that a second
    // opening gives the same session.
    const QString key = name + u'\n' + connect + (exclusive ? u'x' : u's') + (readOnly ? u'r' : u'w');
    if (engines::hasPrivateTables(name)) {
        if (auto session = sessions().value(key).lock())
            return std::make_unique<Database>(std::move(session));
    }
    auto engine = engines::open({name, entries.value("pwd"), exclusive, readOnly, entries});
    auto session = std::make_shared<DatabaseData>(std::move(engine));
    if (engines::hasPrivateTables(name))
        sessions().insert(key, session);
    return std::make_unique<Database>(std::move(session));
}
