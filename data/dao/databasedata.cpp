#include "data/dao/databasedata.h"

#include "data/dao/recordsetdata.h"
#include "data/engines/sqlite/passwordgate.h"
#include "data/engines/sqlite/tables.h"

using jetsql::StatementKind;

DatabaseData::DatabaseData(const ConnectionOptions &options, const QString &password) : m_connection(options)
{
    PasswordGate::check(m_connection, password, options.file);
}

const Catalog &DatabaseData::catalog()
{
    const qint64 version = m_connection.schemaVersion();
    if (version != m_catalogVersion) {
        forgetTables();
        m_catalog = Tables::readCatalog(m_connection);
        m_catalogVersion = version;
    }
    return m_catalog;
}

void DatabaseData::forgetTables()
{
    m_translations.clear();
    m_connection.forgetStatements();
}

DatabaseData::Translated DatabaseData::translate(const QString &sql)
{
    const Catalog &tables = catalog();
    if (const Translated *known = m_translations.find(sql))
        return *known;
    return m_translations.insert(sql, std::make_shared<jetsql::Translation>(jetsql::translate(sql, tables)));
}

void DatabaseData::execute(const QString &sql)
{
    const Translated translation = translate(sql);
    Doing doing{Doing::Writing, translation->targetTable, sql};
    switch (translation->kind) {
    case StatementKind::Select:
        throw RuntimeError(3065, QStringLiteral("Cannot execute a select query."), sql);
    case StatementKind::Insert:
    case StatementKind::Update:
    case StatementKind::Delete:
        return change(*translation, doing);
    case StatementKind::SelectInto:
    case StatementKind::CreateTable:
        doing.kind = Doing::Defining;
        return make(*translation, doing);
    case StatementKind::DropTable:
        doing.kind = Doing::Defining;
        return drop(*translation, doing);
    }
}

void DatabaseData::change(const jetsql::Translation &translation, const Doing &doing)
{
    Statement statement = m_connection.prepare(translation.sql, doing);
    prepareToWrite(translation.targetTable, nullptr);
    m_connection.finish(statement, doing);
    m_connection.giveBack(std::move(statement));
}

void DatabaseData::make(const jetsql::Translation &translation, const Doing &doing)
{
    const TableDef &table = translation.newTable;
    if (m_catalog.find(table.Name))
        throw runtimeError(3010, {table.Name}, doing.statement);
    const bool filled = translation.kind == StatementKind::SelectInto;
    prepareToWrite(table.Name, nullptr);
    Transaction transaction(m_connection, doing);
    m_connection.run(Tables::createStatement(table, filled ? Tables::Key::None : Tables::Key::AutoNumberIsKey), doing);
    if (filled) {
        Statement fill = m_connection.prepare(translation.sql, doing);
        m_connection.finish(fill, doing);
    }
    for (const Schema::Index &index : Schema::indexes()) {
        if (index.table.compare(table.Name, Qt::CaseInsensitive) == 0)
            m_connection.run(Tables::createStatement(index), doing);
    }
    transaction.commit();
}

void DatabaseData::drop(const jetsql::Translation &translation, const Doing &doing)
{
    const TableDef *table = m_catalog.find(translation.targetTable);
    if (!table)
        throw runtimeError(3376, {translation.targetTable}, doing.statement);
    for (const RecordsetData *recordset : m_recordsets) {
        if (recordset->reads(table->Name))
            throw runtimeError(3211, {table->Name}, doing.statement);
    }
    prepareToWrite(table->Name, nullptr);
    m_connection.run("DROP TABLE " + Tables::quoted(table->Name), doing);
}

std::unique_ptr<RecordsetData> DatabaseData::open(const QString &sql)
{
    Translated translation = translate(sql);
    if (translation->kind != StatementKind::Select)
        throw RuntimeError(3219, QStringLiteral("Invalid operation."), sql);
    const Doing reading{Doing::Reading, translation->columns.empty() ? QString() : translation->columns[0].sourceTable,
                        sql};
    Statement statement = m_connection.prepare(translation->sql, reading);
    return std::make_unique<RecordsetData>(shared_from_this(), std::move(translation), std::move(statement), reading);
}

void DatabaseData::prepareToWrite(const QString &table, RecordsetData *writer)
{
    for (RecordsetData *recordset : m_recordsets)
        recordset->prepareForWrite(table, recordset == writer);
    ++m_writes[table.toCaseFolded()];
    m_unsettled = true;
}

void DatabaseData::detach(RecordsetData *recordset)
{
    std::erase(m_recordsets, recordset);
}

void DatabaseData::settle()
{
    if (!m_unsettled)
        return;
    // A recordset left half walked would hold other processes up in the rollback journal's mode.
    for (RecordsetData *recordset : m_recordsets)
        recordset->readAhead();
    if (m_connection.usesLog())
        m_connection.syncLog();
    m_unsettled = false;
}
