#pragma once

#include "data/dao/databasedata.h"
#include "data/engine/readaheadrows.h"

/// The stored table that a result can be changed through.
struct UpdatableTable
{
    TableDef def;
    std::vector<int> columns; ///< its column for each result column, or -1
    std::unique_ptr<engine::RowEdit> rows;
};

/// The rows of a recordset, walked forward: they come from the engine, or from memory once a write on the connection
/// has made the rest be read first.
class RowWalk : public OpenRows
{
public:
    RowWalk(std::shared_ptr<DatabaseData> database, const QString &sql);
    RowWalk(const RowWalk &) = delete;
    RowWalk &operator=(const RowWalk &) = delete;
    ~RowWalk() override;

    bool isEmpty();
    bool atEnd();
    /// Error 3021 at the end already.
    void moveNext();

    int columnCount() const { return int(m_translation->columns.size()); }
    const jetsql::ResultColumn &column(int position) const { return m_translation->columns[size_t(position)]; }
    /// The position of a column by its name, or error 3265.
    int columnNamed(QAnyStringView name) const;
    /// A column of the current row. Errors 3021 without one, 3167 for one deleted before the walk came to it.
    Value value(int column);
    const QString &statement() const { return m_reading.statement; }

    bool reads(const QString &table) const override;
    void prepareForWrite(const QString &table, bool own) override;
    void readAhead() override;

    // For the change of a row

    /// Error 3027 for a result that can only be read.
    UpdatableTable &updatableTable();
    void requireRow();
    /// The number of the current row in its table.
    qint64 rowNumber() const;
    /// Reads the current row anew, locked against others.
    void refreshLocked() { refresh(rowNumber(), true); }
    /// The recordset itself wrote its table, which does not make the rows in memory stale.
    void noteOwnWrite() { ++m_seenWrites; }
    /// From now on the current row has that value.
    void show(int column, const Value &value);
    /// Whether the walk comes to rows that are added from now on.
    bool walksAddedRows() const { return m_state == State::Stored; }
    void noteAdded(qint64 row);

private:
    /// Unread: nothing was asked yet, and nothing read. Walking: rows come from the engine. Stored: from memory.
    enum class State { Unread, Walking, Stored };

    void adopt(OpenQuery query);
    void begin();
    void take();
    void takeFirst();
    void nextStored();
    void refresh(qint64 row, bool locked = false);

    std::shared_ptr<DatabaseData> m_database;
    std::shared_ptr<const jetsql::Translation> m_translation;
    std::unique_ptr<engine::Rows> m_rows;
    ErrorContext m_reading;

    State m_state = State::Unread;
    bool m_empty = false;
    bool m_hasRow = false;
    bool m_deleted = false; ///< the current row was deleted before the walk came to it
    ReadAheadRows m_store{0};

    std::optional<UpdatableTable> m_table;     ///< known from the first change on
    std::vector<std::optional<Value>> m_fresh; ///< of the current row, what is newer than the walk; may be empty
    quint64 m_seenWrites = 0;                  ///< writes to the table that the stored rows take account of
    std::vector<qint64> m_added;               ///< rows added during the walk
    size_t m_addedWalked = 0;
};
