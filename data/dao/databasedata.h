#pragma once

#include "data/dao/database.h"
#include "data/dao/translations.h"
#include "data/engine/connection.h"

class RecordsetData;

/// A SELECT ready to be walked.
struct Query
{
    std::shared_ptr<const jetsql::Translation> translation;
    std::unique_ptr<engine::Rows> rows;
};

/// What stands behind a Database: the engine, the catalogue of its tables, the statements translated before,
/// and the recordsets open on it. Recordsets keep it alive.
class DatabaseData : public std::enable_shared_from_this<DatabaseData>
{
public:
    explicit DatabaseData(std::unique_ptr<engine::Connection> engine);

    void execute(const QString &sql);
    std::unique_ptr<RecordsetData> open(const QString &sql);
    /// The tables as they are now, also when another process changed them.
    const Catalog &freshCatalog();
    /// The tables as last read.
    const Catalog &catalog() const { return m_catalog; }
    void settle();
    void settleAll();

    Query prepareQuery(const QString &sql);
    static Doing reading(const jetsql::Translation &translation, const QString &sql);
    /// False after another process made or dropped a table.
    bool catalogIsCurrent() { return m_engine->catalogIsSurelyCurrent(); }
    engine::Connection &engine() { return *m_engine; }

    /// Must be called before anything is written: open recordsets read what they still have to show, since a
    /// statement half walked would see the change, and would keep the log from being reset. `writer` is the
    /// recordset that writes, if one does.
    void prepareToWrite(const QString &table, RecordsetData *writer);
    /// Locks the file against other writers until the lock is taken back or something else is written, for a row
    /// between Edit and Update: what is read in between is what the Update then replaces.
    void holdRow(RecordsetData *editor, const Doing &doing);
    /// The lock of that recordset's Edit, to be committed or, by being dropped, given up; or nullptr.
    std::unique_ptr<engine::Transaction> takeRow(const RecordsetData *editor);
    /// How often a table was written on this connection, to tell a stale row.
    quint64 writes(const QString &table) const { return m_writes.value(table.toCaseFolded()); }

    void attach(RecordsetData *recordset) { m_recordsets.push_back(recordset); }
    void detach(RecordsetData *recordset);

private:
    Translated translate(const QString &sql);
    void readCatalog();
    /// False when the tables turn out to be others than the statement was translated for.
    bool tryExecute(const QString &sql);
    void run(const Translated &translated, const Doing &doing);
    void make(const Translated &translated, const Doing &doing);
    void drop(const jetsql::Translation &translation, const Doing &doing);
    void addIndexes(const TableDef &table, const Doing &doing);

    std::unique_ptr<engine::Connection> m_engine;
    Catalog m_catalog;
    Translations m_translations;
    std::vector<RecordsetData *> m_recordsets;
    QHash<QString, quint64> m_writes;
    QSet<QString> m_withoutIndexes;          ///< tables made here that have not got their indexes yet
    const RecordsetData *m_editor = nullptr; ///< the recordset that holds m_rowLock
    std::unique_ptr<engine::Transaction> m_rowLock;
    bool m_unsettled = false;
};
