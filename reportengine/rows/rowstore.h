#pragma once

#include "data/values/value.h"
#include "reportengine/rows/dataset.h"
#include <QHash>

class RowSource;

/// The rows of one report run, column by column: numbers and dates as doubles, texts as numbers into a pool that holds
/// each different text once.
class RowStore
{
public:
    explicit RowStore(Dataset dataset);

    /// Takes all rows of the source; error 440 when it lacks a column.
    void read(RowSource &source);
    void clear();

    const Dataset &dataset() const { return m_dataset; }
    int rowCount() const { return m_rowCount; }

    /// Null, a Double, a Date or a text, by the field's type.
    Value value(int row, int field) const;

    /// All of a number or date field, a date as days; not-a-number stands for Null.
    const std::vector<double> &numbers(int field) const { return m_columns[field].numbers; }
    /// The number of a row's text in texts(field), where 0 stands for Null. Of text fields only.
    quint32 textId(int row, int field) const { return m_columns[field].textIds[row]; }
    /// The different texts of a field, from 1 on.
    const std::vector<QString> &texts(int field) const { return m_columns[field].texts; }

private:
    struct Column
    {
        std::vector<double> numbers; // not-a-number stands for Null
        std::vector<quint32> textIds;
        std::vector<QString> texts{QString()};
        QHash<QString, quint32> ids;
    };
    void append(Column &column, FieldType type, const Value &value);

    Dataset m_dataset;
    std::vector<Column> m_columns;
    int m_rowCount = 0;
};
