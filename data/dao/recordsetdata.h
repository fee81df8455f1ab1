#pragma once

#include "data/dao/databasedata.h"
#include "data/engine/readaheadrows.h"

/// What stands behind a Recordset: the rows being walked, or read ahead, and the row being
/// added or changed.
class RecordsetData
{
public:
    RecordsetData(std::shared_ptr<DatabaseData> database, const QString &sql, Query query);
    RecordsetData(const RecordsetData &) = delete;
    RecordsetData &operator=(const RecordsetData &) = delete;
    ~RecordsetData();

    bool isEmpty();
    bool atEnd();
    void moveNext();

    int columnCount() const { return int(m_translation->columns.size()); }
    const jetsql::ResultColumn &column(int position) const { return m_translation->columns[size_t(position)]; }
    /// The position of a column by its name, or error 3265.
    int columnNamed(QAnyStringView name) const;

    Value value(int column);
    void assign(int column, const Value &value);
    void addNew();
    void edit();
    void update();

    bool reads(const QString &table) const;
    /// Called before a write on the connection; `own` when this recordset is the writer.
    void prepareForWrite(const QString &table, bool own);
    /// Reads what is left of a walk that has begun, and frees the locks it holds.
    void readAhead();

private:
    /// Unread: nothing was asked yet, and nothing read. Walking: rows come from the engine. Stored: from memory.
    enum class State { Unread, Walking, Stored };
    /// The row between AddNew or Edit and Update, by column of the table.
    struct Pending
    {
        bool adding = false;
        std::vector<std::optional<Value>> values;
    };

    void adopt(Query query);
    void begin();
    void take();
    void takeFirst();
    void nextStored();
    void refresh(qint64 row, bool locked = false);
    void requireRow();
    void requireUpdatable();
    qint64 currentRow() const;
    void dropPending();
    int tableColumn(int column) const { return m_tableColumns[size_t(column)]; }
    void insertPending(const Doing &writing);
    void updatePending(const Doing &writing);

    std::shared_ptr<DatabaseData> m_database;
    std::shared_ptr<const jetsql::Translation> m_translation;
    std::unique_ptr<engine::Rows> m_rows;
    Doing m_reading;

    State m_state = State::Unread;
    bool m_empty = false;
    bool m_hasRow = false;
    bool m_deleted = false; ///< the current row was deleted before the walk came to it
    ReadAheadRows m_store{0};

    std::optional<TableDef> m_table; ///< the table that AddNew and Edit write, known from the first of them on
    std::vector<int> m_tableColumns; ///< its column for each result column, or -1
    std::unique_ptr<engine::RowEdit> m_edit;
    std::optional<Pending> m_pending;
    std::vector<std::optional<Value>> m_fresh; ///< of the current row, what is newer than the walk; may be empty
    quint64 m_seenWrites = 0;                  ///< writes to the table that the stored rows take account of
    std::vector<qint64> m_added;               ///< rows added during the walk
    size_t m_addedWalked = 0;
};
