#include "data/dao/recordsetdata.h"

#include "data/dao/assignment.h"
#include "data/dao/fieldname.h"

RecordsetData::RecordsetData(std::shared_ptr<DatabaseData> database, const QString &sql, Query query)
    : m_database(std::move(database))
{
    m_reading.statement = sql;
    adopt(std::move(query));
    m_database->attach(this);
}

void RecordsetData::adopt(Query query)
{
    m_translation = std::move(query.translation);
    m_rows = std::move(query.rows);
    m_reading = DatabaseData::reading(*m_translation, m_reading.statement);
    // The row's number stands behind the columns of one that can be changed.
    m_store = ReadAheadRows(columnCount() + (m_translation->updatableTable.isEmpty() ? 0 : 1));
}

RecordsetData::~RecordsetData()
{
    m_database->takeRow(this);
    m_database->detach(this);
}

int RecordsetData::columnNamed(QAnyStringView name) const
{
    const int position = FieldName::find(m_translation->columns, name);
    if (position < 0)
        throw runtimeError(3265, {}, name.toString() + " in " + m_reading.statement);
    return position;
}

bool RecordsetData::reads(const QString &table) const
{
    return m_translation->tablesRead.contains(table, Qt::CaseInsensitive);
}

// Walking

void RecordsetData::begin()
{
    if (m_state != State::Unread)
        return;
    m_state = State::Walking;
    try {
        takeFirst();
        if (!m_rows->metOtherTables())
            return;
    } catch (const RuntimeError &) {
        if (!m_rows->metOtherTables() || m_database->catalogIsCurrent())
            throw;
    }
    if (m_database->catalogIsCurrent())
        return;
    // Another process made or dropped tables since the statement was translated.
    m_database->freshCatalog();
    adopt(m_database->prepareQuery(m_reading.statement));
    takeFirst();
}

void RecordsetData::takeFirst()
{
    take();
    m_empty = !m_hasRow;
}

void RecordsetData::take()
{
    m_hasRow = false;
    m_hasRow = m_rows->next();
}

bool RecordsetData::isEmpty()
{
    begin();
    return m_empty;
}

bool RecordsetData::atEnd()
{
    begin();
    return !m_hasRow;
}

void RecordsetData::moveNext()
{
    begin();
    if (!m_hasRow)
        throw runtimeError(3021, {}, m_reading.statement);
    dropPending();
    m_fresh.clear();
    m_deleted = false;
    if (m_state == State::Walking)
        take();
    else
        nextStored();
}

void RecordsetData::nextStored()
{
    m_hasRow = m_addedWalked == 0 && m_store.next();
    if (m_hasRow) {
        const QString &table = m_translation->updatableTable;
        if (!table.isEmpty() && m_database->writes(table) != m_seenWrites)
            refresh(currentRow());
        return;
    }
    if (m_addedWalked < m_added.size()) {
        m_hasRow = true;
        refresh(m_added[m_addedWalked++]);
    }
}

void RecordsetData::readAhead()
{
    if (m_state != State::Walking || !m_hasRow)
        return;
    do
        m_store.append(*m_rows);
    while (m_rows->next());
    m_store.next();
    m_state = State::Stored;
    if (!m_translation->updatableTable.isEmpty())
        m_seenWrites = m_database->writes(m_translation->updatableTable);
}

void RecordsetData::prepareForWrite(const QString &table, bool own)
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

void RecordsetData::refresh(qint64 row, bool locked)
{
    requireUpdatable();
    const auto fresh = m_edit->read(row, locked, m_reading);
    m_deleted = !fresh;
    m_fresh.assign(size_t(columnCount()), std::nullopt);
    for (int i = 0; i < columnCount() && fresh; ++i) {
        if (!column(i).sourceColumn.isEmpty() || m_addedWalked > 0)
            m_fresh[size_t(i)] = fresh->value(i, column(i).type);
    }
}

qint64 RecordsetData::currentRow() const
{
    if (m_addedWalked > 0)
        return m_added[m_addedWalked - 1];
    return m_state == State::Walking ? m_rows->integer(columnCount()) : m_store.cell(columnCount()).integer();
}

void RecordsetData::requireRow()
{
    begin();
    if (!m_hasRow)
        throw runtimeError(3021, {}, m_reading.statement);
    if (m_deleted)
        throw runtimeError(3167, {}, m_reading.statement);
}

Value RecordsetData::value(int position)
{
    if (m_pending) {
        const int column = tableColumn(position);
        if (column >= 0 && m_pending->values[size_t(column)])
            return *m_pending->values[size_t(column)];
        if (m_pending->adding)
            return {};
    }
    requireRow();
    if (position >= columnCount()) // the tables were made anew by another process
        throw runtimeError(3265, {}, m_reading.statement);
    if (!m_fresh.empty() && m_fresh[size_t(position)])
        return *m_fresh[size_t(position)];
    const ColumnType type = column(position).type;
    return m_state == State::Walking ? m_rows->value(position, type) : StoredValue::from(m_store.cell(position), type);
}

// Writing

void RecordsetData::requireUpdatable()
{
    if (m_table)
        return;
    const TableDef *table =
        m_translation->updatableTable.isEmpty() ? nullptr : m_database->catalog().find(m_translation->updatableTable);
    if (!table)
        throw runtimeError(3027, {}, m_reading.statement);
    m_table = *table;
    std::vector<QString> columns;
    for (const jetsql::ResultColumn &column : m_translation->columns) {
        m_tableColumns.push_back(column.sourceColumn.isEmpty() ? -1 : m_table->indexOf(column.sourceColumn));
        columns.push_back(column.sourceColumn);
    }
    m_edit = m_database->engine().edit(*m_table, columns);
}

void RecordsetData::addNew()
{
    requireUpdatable();
    dropPending();
    Pending row{true, {}};
    for (const ColumnDef &column : m_table->columns) {
        if (column.autoNumber) {
            m_database->prepareToWrite({}, this); // the numbers' own place, which no recordset reads
            row.values.emplace_back(m_database->engine().takeAutoNumber(*m_table, column.name));
        } else {
            row.values.emplace_back(column.defaultZero ? assignedTo(column, 0) : Value());
        }
    }
    m_pending = std::move(row);
}

void RecordsetData::edit()
{
    requireUpdatable();
    requireRow();
    dropPending();
    m_database->holdRow(this, {Doing::Writing, m_table->Name, "Edit of " + m_reading.statement});
    ++m_seenWrites;
    refresh(currentRow(), true);
    requireRow();
    m_pending = Pending{false, std::vector<std::optional<Value>>(m_table->columns.size())};
}

void RecordsetData::assign(int position, const Value &value)
{
    if (!m_pending)
        throw runtimeError(3020, {}, m_reading.statement);
    const int column = tableColumn(position);
    if (column < 0)
        throw runtimeError(3027, {}, m_reading.statement);
    m_pending->values[size_t(column)] = assignedTo(m_table->columns[size_t(column)], value);
}

void RecordsetData::update()
{
    if (!m_pending)
        throw runtimeError(3020, {}, m_reading.statement);
    const Doing writing{Doing::Writing, m_table->Name, "Update of " + m_reading.statement};
    m_database->prepareToWrite(m_table->Name, this);
    ++m_seenWrites;
    const std::unique_ptr<engine::Transaction> rowLock = m_database->takeRow(this);
    if (m_pending->adding)
        insertPending(writing);
    else
        updatePending(writing);
    if (rowLock)
        rowLock->commit();
    m_pending.reset();
}

void RecordsetData::dropPending()
{
    m_pending.reset();
    m_database->takeRow(this);
}

void RecordsetData::insertPending(const Doing &writing)
{
    const qint64 row = m_edit->add(m_pending->values, m_state == State::Stored, writing);
    if (m_state == State::Stored)
        m_added.push_back(row);
}

void RecordsetData::updatePending(const Doing &writing)
{
    const auto &values = m_pending->values;
    if (std::none_of(values.begin(), values.end(), [](const auto &value) { return value.has_value(); }))
        return;
    if (!m_edit->change(currentRow(), values, writing))
        throw runtimeError(3167, {}, writing.statement);

    m_fresh.resize(size_t(columnCount()));
    for (int i = 0; i < columnCount(); ++i) {
        if (tableColumn(i) >= 0 && m_pending->values[size_t(tableColumn(i))])
            m_fresh[size_t(i)] = m_pending->values[size_t(tableColumn(i))];
    }
}
