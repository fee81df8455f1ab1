#include "data/dao/rowwalk.h"

#include "data/dao/fieldname.h"

RowWalk::RowWalk(std::shared_ptr<DatabaseData> database, const QString &sql) : m_database(std::move(database))
{
    m_reading.statement = sql;
    adopt(m_database->prepareQuery(sql));
    m_database->attach(this);
}

void RowWalk::adopt(OpenQuery query)
{
    m_translation = std::move(query.translation);
    m_rows = std::move(query.rows);
    m_reading = DatabaseData::reading(*m_translation, statement());
    // The row's number is an extra column behind those of a result that can be changed.
    m_store = ReadAheadRows(columnCount() + (m_translation->updatableTable.isEmpty() ? 0 : 1));
}

RowWalk::~RowWalk()
{
    // A recordset that goes between Edit and Update takes its lock along, or nobody could write any more.
    m_database->takeRow(this);
    m_database->detach(this);
}

int RowWalk::columnNamed(QAnyStringView name) const
{
    const int position = FieldName::find(m_translation->columns, name);
    if (position < 0)
        throw runtimeError(3265, {}, name.toString() + " in " + statement());
    return position;
}

bool RowWalk::reads(const QString &table) const
{
    return m_translation->tablesRead.contains(table, Qt::CaseInsensitive);
}

/// Nothing is asked of the engine before somebody asks for a row, so that a recordset opened to add rows walks none.
void RowWalk::begin()
{
    if (m_state != State::Unread)
        return;
    m_state = State::Walking;
    try {
        takeFirst();
        if (!m_rows->metOtherTables())
            return;
    } catch (const RuntimeError &) {
        // A statement is to blame for its failure only where its tables are still those it was translated for.
        if (!m_rows->metOtherTables() || m_database->catalogIsCurrent())
            throw;
    }
    if (m_database->catalogIsCurrent())
        return;
    // Another process made or dropped tables since the statement was translated.
    m_database->freshCatalog();
    adopt(m_database->prepareQuery(statement()));
    takeFirst();
}

void RowWalk::takeFirst()
{
    take();
    m_empty = !m_hasRow;
}

void RowWalk::take()
{
    // Stays so when the step fails: behind an error no row is at hand.
    m_hasRow = false;
    m_hasRow = m_rows->next();
}

bool RowWalk::isEmpty()
{
    begin();
    return m_empty;
}

bool RowWalk::atEnd()
{
    begin();
    return !m_hasRow;
}

void RowWalk::moveNext()
{
    begin();
    if (!m_hasRow)
        throw runtimeError(3021, {}, statement());
    // What was read anew or written belongs to the row that is left.
    m_fresh.clear();
    m_deleted = false;
    if (m_state == State::Walking)
        take();
    else
        nextStored();
}

void RowWalk::nextStored()
{
    // Rows added through this recordset come behind all others.
    m_hasRow = m_addedWalked == 0 && m_store.next();
    if (m_hasRow) {
        const QString &table = m_translation->updatableTable;
        // Kept rows may have been changed since by other statements; which rows there are stays as it was at the
        // opening.
        if (!table.isEmpty() && m_database->writes(table) != m_seenWrites)
            refresh(rowNumber());
        return;
    }
    if (m_addedWalked < m_added.size()) {
        m_hasRow = true;
        refresh(m_added[m_addedWalked++]);
    }
}

void RowWalk::readAhead()
{
    if (m_state != State::Walking || !m_hasRow)
        return;
    do
        // The row at hand goes first into the store and is the current one there, so that the walk stands where it
        // stood.
        m_store.append(*m_rows);
    while (m_rows->next());
    m_store.next();
    m_state = State::Stored;
    if (!m_translation->updatableTable.isEmpty())
        m_seenWrites = m_database->writes(m_translation->updatableTable);
}

void RowWalk::prepareForWrite(const QString &table, bool own)
{
    // Nothing read yet and nothing to lose: a recordset that was opened to add rows costs nothing, however
    // large its table is.
    if (m_state == State::Unread) {
        if (own || !reads(table))
            return;
        begin();
    }
    readAhead();
}

void RowWalk::refresh(qint64 row, bool locked)
{
    const auto fresh = updatableTable().rows->read(row, locked, m_reading);
    m_deleted = !fresh;
    m_fresh.assign(size_t(columnCount()), std::nullopt);
    for (int i = 0; i < columnCount() && fresh; ++i) {
        // A computed column keeps what the walk read; a row added behind the walk has nothing else to show.
        if (!column(i).sourceColumn.isEmpty() || m_addedWalked > 0)
            m_fresh[size_t(i)] = fresh->value(i, column(i).type);
    }
}

qint64 RowWalk::rowNumber() const
{
    if (m_addedWalked > 0)
        return m_added[m_addedWalked - 1];
    return m_state == State::Walking ? m_rows->integer(columnCount()) : m_store.cell(columnCount()).integer();
}

void RowWalk::requireRow()
{
    begin();
    if (!m_hasRow)
        throw runtimeError(3021, {}, statement());
    if (m_deleted)
        throw runtimeError(3167, {}, statement());
}

Value RowWalk::value(int position)
{
    requireRow();
    if (position >= columnCount()) // the tables were made anew by another process
        throw runtimeError(3265, {}, statement());
    if (!m_fresh.empty() && m_fresh[size_t(position)])
        return *m_fresh[size_t(position)];
    const ColumnType type = column(position).type;
    return m_state == State::Walking ? m_rows->value(position, type) : StoredValue::from(m_store.cell(position), type);
}

UpdatableTable &RowWalk::updatableTable()
{
    // Made for the first change: most recordsets are only read.
    if (m_table)
        return *m_table;
    const TableDef *table =
        m_translation->updatableTable.isEmpty() ? nullptr : m_database->catalog().find(m_translation->updatableTable);
    if (!table)
        throw runtimeError(3027, {}, statement());
    m_table = UpdatableTable{*table, {}, {}};
    // A computed column has no place in the table and is never written.
    std::vector<QString> columns;
    for (const jetsql::ResultColumn &column : m_translation->columns) {
        m_table->columns.push_back(column.sourceColumn.isEmpty() ? -1 : table->indexOf(column.sourceColumn));
        columns.push_back(column.sourceColumn);
    }
    m_table->rows = m_database->engine().edit(m_table->def, columns);
    return *m_table;
}

void RowWalk::show(int column, const Value &value)
{
    m_fresh.resize(size_t(columnCount()));
    m_fresh[size_t(column)] = value;
}

void RowWalk::noteAdded(qint64 row)
{
    if (walksAddedRows())
        m_added.push_back(row);
}
