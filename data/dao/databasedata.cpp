#include "data/dao/databasedata.h"

using jetsql::StatementKind;

DatabaseData::DatabaseData(std::unique_ptr<engine::Connection> engine)
    : m_engine(std::move(engine)), m_translationCache(m_engine->dialect())
{
    // A statement sent and not yet answered may meet tables that were changed meanwhile; the engine then asks for it in
    // today's words.
    m_engine->setRewrite([this](const QString &sql) {
        const BoundTranslation current = m_translationCache.of(sql, freshCatalog());
        return engine::Written{current->sqlWithParameters, current.values};
    });
    readCatalog();
}

const Catalog &DatabaseData::freshCatalog()
{
    if (!catalogIsCurrent())
        readCatalog();
    return m_catalog;
}

void DatabaseData::readCatalog()
{
    // Translations speak of columns by their places and types, and perhaps of tables that are gone.
    m_translationCache.clear();
    m_catalog = m_engine->readCatalog();
}

BoundTranslation DatabaseData::translate(const QString &sql)
{
    try {
        return m_translationCache.of(sql, m_catalog);
    } catch (const RuntimeError &) {
        // Another process may have made the table meanwhile.
        if (catalogIsCurrent())
            throw;
    }
    readCatalog();
    return m_translationCache.of(sql, m_catalog);
}

void DatabaseData::execute(const QString &sql)
{
    // Tables that another process made or dropped make the translation worthless; it is done again with what stands
    // there now.
    while (!tryExecute(sql))
        readCatalog();
}

bool DatabaseData::tryExecute(const QString &sql)
{
    const BoundTranslation translation = translate(sql);
    if (translation->kind == StatementKind::Select)
        throw runtimeError(3065, {}, sql);
    const bool defines = !translation->newTable.Name.isEmpty() || translation->kind == StatementKind::DropTable;
    const ErrorContext context{defines ? ErrorContext::Defining : ErrorContext::Writing, translation->targetTable, sql};
    // Before the transaction begins: neither rows that are still to be read nor a checkpoint belong inside it.
    prepareToWrite(translation->targetTable, nullptr);
    // Reports copy whole tables. The engine may want to make room for one first.
    if (translation->copies)
        m_engine->prepareToCopyRows();
    const auto transaction = m_engine->begin(context);
    // With a file's write lock held the tables stay as they are.
    if (!m_engine->catalogIsCurrent())
        return false;
    run(translation, context);
    transaction->commit();
    if (defines)
        readCatalog();
    return true;
}

void DatabaseData::run(const BoundTranslation &translated, const ErrorContext &context)
{
    switch (translated->kind) {
    case StatementKind::SelectInto:
    case StatementKind::CreateTable:
        return make(translated, context);
    case StatementKind::DropTable:
        return drop(*translated.translation, context);
    case StatementKind::Delete:
        // Many reports make a table and walk it once; its indexes pay where rows are looked for one by one.
        if (m_withoutIndexes.remove(translated->targetTable.toCaseFolded()))
            addIndexes(*m_catalog.find(translated->targetTable), context);
        [[fallthrough]];
    default:
        m_engine->execute(translated->sqlWithParameters, translated.values, context);
    }
}

void DatabaseData::make(const BoundTranslation &translated, const ErrorContext &context)
{
    const TableDef &table = translated->newTable;
    const bool filled = translated->kind == StatementKind::SelectInto;
    // A copy is made without a key, since the numbers copied need not be unique; a table made empty numbers its rows
    // itself.
    m_engine->createTable(table, filled ? engine::Key::None : engine::Key::AutoNumberIsKey, context);
    if (filled)
        m_engine->execute(translated->sqlWithParameters, translated.values, context);
    m_withoutIndexes.insert(table.Name.toCaseFolded());
}

void DatabaseData::addIndexes(const TableDef &table, const ErrorContext &context)
{
    for (const Schema::Index &index : Schema::indexes()) {
        const bool fits = std::all_of(index.columns.begin(), index.columns.end(),
                                      [&](const QString &column) { return table.indexOf(column) >= 0; });
        if (fits && index.table.compare(table.Name, Qt::CaseInsensitive) == 0)
            m_engine->createIndex(index, context);
    }
}

void DatabaseData::drop(const jetsql::Translation &translation, const ErrorContext &context)
{
    const TableDef *table = m_catalog.find(translation.targetTable);
    if (!table)
        throw runtimeError(3376, {translation.targetTable}, context.statement);
    for (const OpenRows *rows : m_openRows) {
        // The engine underneath minds only rows that are still being read from it.
        if (rows->reads(table->Name))
            throw runtimeError(3211, {table->Name}, context.statement);
    }
    m_engine->dropTable(*table, context);
}

OpenQuery DatabaseData::prepareQuery(const QString &sql)
{
    BoundTranslation translated = translate(sql);
    if (translated->kind != StatementKind::Select)
        throw runtimeError(3219, {}, sql);
    try {
        auto rows =
            m_engine->open(translated->sqlWithParameters, translated.values, reading(*translated.translation, sql));
        return {std::move(translated.translation), std::move(rows)};
    } catch (const RuntimeError &) {
        if (catalogIsCurrent())
            throw;
    }
    readCatalog();
    // Once more with what stands there now. Each round was begun by a change of the tables, so this comes to an end.
    return prepareQuery(sql);
}

ErrorContext DatabaseData::reading(const jetsql::Translation &translation, const QString &sql)
{
    return {ErrorContext::Reading, translation.columns.empty() ? QString() : translation.columns[0].sourceTable, sql};
}

void DatabaseData::prepareToWrite(const QString &table, OpenRows *writer)
{
    if (m_editor != writer)
        takeRow(m_editor); // each statement is committed for itself, so that the lock ends before it
    for (OpenRows *rows : m_openRows)
        rows->prepareForWrite(table, rows == writer);
    m_engine->prepareToWrite();
    ++m_writes[table.toCaseFolded()];
    m_unsynced = true;
}

void DatabaseData::holdRow(OpenRows *editor, const ErrorContext &context)
{
    // Of all recordsets one row at a time is between Edit and Update; the lock of another one's Edit ends here.
    takeRow(m_editor);
    prepareToWrite(context.table, editor);
    m_rowLock = m_engine->begin(context);
    m_editor = editor;
}

std::unique_ptr<engine::Transaction> DatabaseData::takeRow(const OpenRows *editor)
{
    if (!editor || editor != m_editor)
        return {};
    m_editor = nullptr;
    return std::move(m_rowLock);
}

void DatabaseData::detach(OpenRows *rows)
{
    std::erase(m_openRows, rows);
}

void DatabaseData::sync()
{
    if (m_unsynced)
        syncAll();
}

void DatabaseData::syncAll()
{
    // A recordset left half walked would hold other processes up in the rollback journal's mode.
    for (OpenRows *rows : m_openRows)
        rows->readAhead();
    m_engine->sync();
    m_unsynced = false;
}
