#include "reportengine/rows/rowstore.h"

#include "data/values/runtimeerror.h"
#include "reportengine/rows/rowsource.h"
#include <limits>

RowStore::RowStore(Dataset dataset) : m_dataset(std::move(dataset)), m_columns(m_dataset.size()) {}

void RowStore::clear()
{
    m_rowCount = 0;
    m_columns.assign(m_dataset.size(), {});
}

void RowStore::read(RowSource &source)
{
    clear();
    std::vector<int> bound;
    // Bound by name, in any case. Columns beyond the dataset are passed over.
    for (const DatasetField &field : m_dataset) {
        bound.push_back(source.column(field.name));
        if (bound.back() < 0)
            throw runtimeError(440, {}, "The rows have no column for the dataset field " + field.name);
    }
    while (source.next()) {
        for (size_t i = 0; i < bound.size(); ++i)
            append(m_columns[i], m_dataset[i].type, source.value(bound[i]));
        ++m_rowCount;
    }
    // Only reading looks texts up.
    for (Column &column : m_columns)
        column.ids = {};
}

void RowStore::append(Column &column, FieldType type, const Value &value)
{
    if (!isText(type)) {
        // Not-a-number takes no place of its own, and no value of the database is one.
        const double null = std::numeric_limits<double>::quiet_NaN();
        column.numbers.push_back(value.isNull() ? null : isDate(type) ? value.toDate().serial() : value.toDouble());
        return;
    }
    if (value.isNull()) {
        column.textIds.push_back(0);
        return;
    }
    const QString text = value.toText();
    // Rows come sorted: most texts are the one above.
    if (!column.textIds.empty() && column.textIds.back() != 0 && column.texts[column.textIds.back()] == text) {
        column.textIds.push_back(column.textIds.back());
        return;
    }
    const auto found = column.ids.constFind(text);
    if (found != column.ids.constEnd()) {
        column.textIds.push_back(*found);
        return;
    }
    const auto id = quint32(column.texts.size());
    column.ids.insert(text, id);
    column.texts.push_back(text);
    column.textIds.push_back(id);
}

Value RowStore::value(int row, int field) const
{
    const Column &column = m_columns[field];
    const FieldType type = m_dataset[field].type;
    if (isText(type)) {
        const quint32 id = column.textIds[row];
        return id == 0 ? Value() : Value(column.texts[id]);
    }
    const double number = column.numbers[row];
    if (std::isnan(number))
        return {};
    return isDate(type) ? Value(Date(number)) : Value(number);
}
