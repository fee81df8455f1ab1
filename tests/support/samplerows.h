#pragma once

#include "reportengine/rows/dataset.h"
#include "reportengine/rows/rowsource.h"
#include <QStringList>
#include <vector>

/// Rows made up in memory, as a recordset would give them.
class MadeRows : public RowSource
{
public:
    explicit MadeRows(QStringList fields, std::vector<std::vector<Value>> rows = {});

    void add(std::vector<Value> row) { m_rows.push_back(std::move(row)); }
    int count() const { return int(m_rows.size()); }

    int column(const QString &field) override;
    bool next() override;
    Value value(int column) override { return m_rows[m_at - 1][column]; }

private:
    QStringList m_fields;
    std::vector<std::vector<Value>> m_rows;
    int m_at = 0;
};

/// Believable rows for any dataset of the catalogue, the same at every call: customers with long names, negative and
/// Null amounts, texts beyond ASCII. Documents belong together: rows of one order, three lines to a shipment.
MadeRows sampleRows(const QString &designer, int count);
