#include "data/engines/postgres/rowedit.h"

#include "data/engines/postgres/dialect.h"
#include "data/engines/postgres/rows.h"
#include "data/engines/postgres/tables.h"

namespace postgres {

RowEdit::RowEdit(Queue &queue, Transactions &transactions, const TableDef &table, const std::vector<QString> &columns)
    : m_queue(queue), m_transactions(transactions), m_table(table), m_name(quoted(table.Name)),
      m_rowColumn(quoted(rowColumn(table))),
      m_findable(!Tables::isPrivate(table.Name) || rowColumn(table) != Tables::RowColumn)
{
    QByteArrayList names;
    for (const QString &column : columns)
        names += column.isEmpty() ? QByteArray("NULL") : quoted(column);
    m_readSql = "SELECT " + names.join(", ") + " FROM " + m_name + " WHERE " + m_rowColumn + " = $1";
}

std::unique_ptr<engine::Rows> RowEdit::read(qint64 row, bool locked, const ErrorContext &context)
{
    m_queue.release();
    makeRowsFindable(context);
    Result result =
        m_queue.ask(locked ? m_readSql + " FOR UPDATE" : m_readSql, {QByteArray::number(row)},
                    locked ? ErrorContext{ErrorContext::Writing, context.table, context.statement} : context);
    if (PQntuples(result.get()) == 0)
        return nullptr;
    return std::make_unique<SingleRow>(std::move(result));
}

/// Most tables of a session's own are filled and walked; only those whose rows are looked for one by one need this.
void RowEdit::makeRowsFindable(const ErrorContext &context)
{
    if (m_findable)
        return;
    m_queue.send("CREATE INDEX IF NOT EXISTS " + quoted("ix" + m_table.Name + "_row") + " ON " + m_name + " (" +
                     m_rowColumn + ')',
                 {}, context);
    m_findable = true;
}

qint64 RowEdit::add(const std::vector<std::optional<Value>> &values, bool tell, const ErrorContext &context)
{
    if (m_addSql.isEmpty())
        m_addSql = Tables::insertStatement(m_table.Name, m_table.columnNames());
    Parameters parameters;
    for (const std::optional<Value> &value : values)
        parameters.push_back(parameterOf(*value));
    const int number = m_table.indexOf(rowColumn(m_table));
    const auto transaction = m_transactions.begin(context);
    if (!tell || number >= 0) {
        m_queue.send(m_addSql, parameters, context);
        transaction->commit();
        return number >= 0 ? values[size_t(number)]->toLong() : 0;
    }
    // Only a number that the server draws has to be asked back for; one that is the key came in with the row.
    const Result added = m_queue.ask(m_addSql + " RETURNING " + m_rowColumn, parameters, context);
    transaction->commit();
    return cellOf(added.get(), 0, 0).integer();
}

bool RowEdit::change(qint64 row, const std::vector<std::optional<Value>> &values, const ErrorContext &context)
{
    QByteArrayList settings;
    Parameters parameters;
    for (size_t i = 0; i < values.size(); ++i) {
        if (!values[i])
            continue;
        parameters.push_back(parameterOf(*values[i]));
        settings += quoted(m_table.columns[i].name) + " = $" + QByteArray::number(qsizetype(parameters.size()));
    }
    parameters.push_back(QByteArray::number(row));
    const QByteArray sql = "UPDATE " + m_name + " SET " + settings.join(", ") + " WHERE " + m_rowColumn + " = $" +
                           QByteArray::number(qsizetype(parameters.size()));
    m_queue.release();
    if (m_transactions.holdsTransaction()) { // the row is locked, and so is there
        m_queue.send(sql, parameters, context);
        return true;
    }
    const auto transaction = m_transactions.begin(context);
    const Result changed = m_queue.ask(sql, parameters, context);
    transaction->commit();
    return qstrcmp(PQcmdTuples(changed.get()), "0") != 0;
}

} // namespace postgres
