#include "tools/load.h"

#include "data/dao/bulkload.h"
#include "data/schema/schema.h"
#include "data/values/runtimeerror.h"
#include "tools/conversion.h"
#include "tools/csv.h"
#include "tools/oneline.h"
#include "tools/toolerror.h"
#include <QFile>

namespace {

/// The whole file; a load is one step, so it is taken as one.
QByteArray contentOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw ToolError{QString("cannot read '%1': %2").arg(path, file.errorString())};
    return file.readAll();
}

/// Takes the records of one file into one table.
class Loading
{
public:
    Loading(BulkLoad &load, const TableDef &table, Csv::Reader &reader) : m_load(load), m_table(table), m_reader(reader)
    {
    }

    int run()
    {
        readHeader();
        QStringList names;
        for (const ColumnDef *column : m_columns)
            names += column->name;
        BulkLoad::Inserter rows = m_load.into(m_table.Name, names);
        int count = 0;
        for (; m_reader.next(); ++count)
            insert(rows);
        return count;
    }

private:
    /// Finds the columns of the first line, in any case of their names.
    void readHeader()
    {
        if (!m_reader.next())
            throw ToolError{"line 1: no column names"};
        for (const Value &field : m_reader.fields()) {
            const QString name = field.joined().trimmed();
            // Columns the file does not name take their default, so a file need not know the whole table.
            const int position = m_table.indexOf(name);
            if (position < 0)
                refuse(name, QString("no such column in %1").arg(m_table.Name));
            const ColumnDef *column = &m_table.columns[size_t(position)];
            if (std::find(m_columns.begin(), m_columns.end(), column) != m_columns.end())
                refuse(name, "named twice");
            m_columns.push_back(column);
        }
    }

    void insert(BulkLoad::Inserter &rows)
    {
        const std::vector<Value> &fields = m_reader.fields();
        if (fields.size() > m_columns.size())
            throw ToolError{
                QString("line %1, field %2: more fields than columns").arg(m_reader.line()).arg(m_columns.size() + 1)};
        if (fields.size() < m_columns.size())
            refuse(m_columns[fields.size()]->name, "missing, the line ends before it");
        m_row.clear();
        for (size_t i = 0; i < fields.size(); ++i)
            m_row.push_back(converted(*m_columns[i], fields[i]));
        try {
            rows.add(m_row);
        } catch (const RuntimeError &error) {
            // The only key that the file itself guards is an AutoNumber.
            if (error.number() != 3022)
                throw;
            refuseKey();
        }
    }

    Value converted(const ColumnDef &column, const Value &field) const
    {
        try {
            return takenInto(column, field);
        } catch (const ToolError &error) {
            refuse(column.name, error.message);
        }
    }

    /// Names the number that another row has.
    [[noreturn]] void refuseKey() const
    {
        for (size_t i = 0; i < m_columns.size(); ++i) {
            if (m_columns[i]->autoNumber)
                refuse(m_columns[i]->name, QString("%1 is taken already").arg(m_row[i].joined()));
        }
        throw runtimeError(3022);
    }

    [[noreturn]] void refuse(const QString &column, const QString &reason) const
    {
        throw ToolError{QString("line %1, column '%2': %3").arg(m_reader.line()).arg(oneLine(column), reason)};
    }

    BulkLoad &m_load;
    const TableDef &m_table;
    Csv::Reader &m_reader;
    std::vector<const ColumnDef *> m_columns; ///< as the header names them
    std::vector<Value> m_row;
};

} // namespace

int loadTable(const QString &database, const QString &table, const QString &csv)
{
    // One transaction: a file refused in its last line leaves nothing in the table.
    BulkLoad load(database, Schema::Password, BulkLoad::File::Live);
    const TableDef *definition = load.tables().find(table);
    if (!definition)
        throw ToolError{QString("'%1' has no table '%2'").arg(database, table)};
    Csv::Reader reader(contentOf(csv));
    try {
        const int count = Loading(load, *definition, reader).run();
        load.commit();
        return count;
    } catch (const ToolError &error) {
        throw ToolError{QString("'%1' %2").arg(csv, error.message)};
    }
}
