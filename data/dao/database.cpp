#include "data/dao/database.h"

#include "data/dao/recordsetdata.h"

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
