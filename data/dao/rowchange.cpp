#include "data/dao/rowchange.h"

#include "data/dao/assignment.h"

RowChange::RowChange(std::shared_ptr<DatabaseData> database, RowWalk &walk)
    : m_database(std::move(database)), m_walk(walk)
{
}

void RowChange::addNew()
{
    const TableDef &table = m_walk.updatableTable().def;
    drop();
    // A row that was begun before and never stored is given up without a word, as the platform does.
    Pending row{true, {}};
    for (const ColumnDef &column : table.columns) {
        if (column.autoNumber) {
            // Drawn now and not given back, whatever becomes of the row: documents print their number before they are
            // stored.
            m_database->prepareToWrite({}, &m_walk); // the numbers' own place, which no recordset reads
            row.values.emplace_back(m_database->engine().takeAutoNumber(table, column.name));
        } else {
            row.values.emplace_back(column.defaultZero ? assignedTo(column, 0) : Value());
        }
    }
    m_pending = std::move(row);
}

void RowChange::edit()
{
    const TableDef &table = m_walk.updatableTable().def;
    m_walk.requireRow();
    drop();
    // Locked from here to Update, so that another workstation meets the lock at its own Edit and not when its user has
    // typed everything.
    m_database->holdRow(&m_walk, {ErrorContext::Writing, table.Name, "Edit of " + m_walk.statement()});
    m_walk.noteOwnWrite();
    // Read once more under the lock: what another workstation has stored since is what this change starts from.
    m_walk.refreshLocked();
    m_walk.requireRow(); // it may be gone since the walk read it
    m_pending = Pending{false, std::vector<std::optional<Value>>(table.columns.size())};
}

void RowChange::assign(int position, const Value &value)
{
    if (!m_pending)
        throw runtimeError(3020, {}, m_walk.statement());
    const int column = tableColumn(position);
    if (column < 0)
        throw runtimeError(3027, {}, m_walk.statement());
    // Converted here and not at Update: a value that does not fit fails in the line that assigns it.
    m_pending->values[size_t(column)] = assignedTo(m_walk.updatableTable().def.columns[size_t(column)], value);
}

void RowChange::update()
{
    if (!m_pending)
        throw runtimeError(3020, {}, m_walk.statement());
    const QString &table = m_walk.updatableTable().def.Name;
    const ErrorContext writing{ErrorContext::Writing, table, "Update of " + m_walk.statement()};
    m_database->prepareToWrite(table, &m_walk);
    m_walk.noteOwnWrite();
    // The lock of the Edit is a transaction that is open still; the row is written and committed inside it.
    const std::unique_ptr<engine::Transaction> rowLock = m_database->takeRow(&m_walk);
    if (m_pending->adding)
        insertPending(writing);
    else
        updatePending(writing);
    if (rowLock)
        rowLock->commit();
    m_pending.reset();
}

void RowChange::drop()
{
    m_pending.reset();
    m_database->takeRow(&m_walk);
}

std::optional<Value> RowChange::value(int position) const
{
    if (!m_pending)
        return {};
    const int column = tableColumn(position);
    if (column >= 0 && m_pending->values[size_t(column)])
        return m_pending->values[size_t(column)];
    // A column nobody assigned is Null in a new row, and the row's own in a changed one.
    return m_pending->adding ? std::optional(Value()) : std::nullopt;
}

void RowChange::insertPending(const ErrorContext &writing)
{
    engine::RowEdit &rows = *m_walk.updatableTable().rows;
    // The row at hand stays the one from before AddNew; the new one is met at the end of the walk.
    m_walk.noteAdded(rows.add(m_pending->values, m_walk.walksAddedRows(), writing));
}

void RowChange::updatePending(const ErrorContext &writing)
{
    const auto &values = m_pending->values;
    // An Edit that assigned nothing writes nothing.
    if (std::none_of(values.begin(), values.end(), [](const auto &value) { return value.has_value(); }))
        return;
    if (!m_walk.updatableTable().rows->change(m_walk.rowNumber(), values, writing))
        throw runtimeError(3167, {}, writing.statement);
    for (int i = 0; i < m_walk.columnCount(); ++i) {
        if (tableColumn(i) >= 0 && values[size_t(tableColumn(i))])
            m_walk.show(i, *values[size_t(tableColumn(i))]);
    }
}
