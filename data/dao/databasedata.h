#pragma once

#include "data/dao/translationcache.h"
#include "data/engine/connection.h"

/// A SELECT that the engine has opened, ready to be walked.
struct OpenQuery
{
    std::shared_ptr<const jetsql::Translation> translation;
    std::unique_ptr<engine::Rows> rows;
};

/// Rows being walked, as the database sees them when something is about to be written.
class OpenRows
{
public:
    virtual ~OpenRows() = default;

    virtual bool reads(const QString &table) const = 0;
    /// Called before a write on the connection; `own` when these rows' recordset is the writer.
    virtual void prepareForWrite(const QString &table, bool own) = 0;
    /// Reads what is left of a walk that has begun, and frees the locks it holds.
    virtual void readAhead() = 0;
};

/// What is behind a Database: the engine, the catalogue of its tables, the statements translated before,
/// and the recordsets open on it. Recordsets keep it alive.
class DatabaseData
{
public:
    explicit DatabaseData(std::unique_ptr<engine::Connection> engine);

    void execute(const QString &sql);
    /// The tables as they are now, also when another process changed them.
    const Catalog &freshCatalog();
    /// The tables as last read.
    const Catalog &catalog() const { return m_catalog; }
    void sync();
    void syncAll();

    OpenQuery prepareQuery(const QString &sql);
    static ErrorContext reading(const jetsql::Translation &translation, const QString &sql);
    /// False after another process made or dropped a table.
    bool catalogIsCurrent() { return m_engine->catalogIsSurelyCurrent(); }
    engine::Connection &engine() { return *m_engine; }

    /// Must be called before anything is written: open recordsets read what they still have to show, since a
    /// statement half walked would see the change, and would keep the log from being reset. `writer` are the
    /// rows of the recordset that writes, if one does.
    void prepareToWrite(const QString &table, OpenRows *writer);
    /// Locks the file against other writers until the lock is taken back or something else is written, for a row
    /// between Edit and Update: what is read in between is what the Update then replaces.
    void holdRow(OpenRows *editor, const ErrorContext &context);
    /// The lock of that recordset's Edit, to be committed or, by being dropped, given up; or nullptr.
    std::unique_ptr<engine::Transaction> takeRow(const OpenRows *editor);
    /// How often a table was written on this connection, to tell a stale row.
    quint64 writes(const QString &table) const { return m_writes.value(table.toCaseFolded()); }

    void attach(OpenRows *rows) { m_openRows.push_back(rows); }
    void detach(OpenRows *rows);

private:
    BoundTranslation translate(const QString &sql);
    void readCatalog();
    /// False when the tables turn out to be others than the statement was translated for.
    bool tryExecute(const QString &sql);
    void run(const BoundTranslation &translated, const ErrorContext &context);
    void make(const BoundTranslation &translated, const ErrorContext &context);
    void drop(const jetsql::Translation &translation, const ErrorContext &context);
    void addIndexes(const TableDef &table, const ErrorContext &context);

    std::unique_ptr<engine::Connection> m_engine;
    Catalog m_catalog;
    TranslationCache m_translationCache;
    std::vector<OpenRows *> m_openRows;
    QHash<QString, quint64> m_writes;
    QSet<QString> m_withoutIndexes;     ///< tables made here that have not got their indexes yet
    const OpenRows *m_editor = nullptr; ///< the rows whose recordset holds m_rowLock
    std::unique_ptr<engine::Transaction> m_rowLock;
    bool m_unsynced = false;
};
