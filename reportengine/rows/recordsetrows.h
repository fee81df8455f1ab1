#pragma once

#include "data/dao/recordset.h"
#include "reportengine/rows/rowsource.h"

/// The rows of an open recordset, from where it stands to its end.
class RecordsetRows : public RowSource
{
public:
    explicit RecordsetRows(Recordset &data) : m_data(data) {}
    int column(const QString &field) override;
    bool next() override;
    Value value(int column) override { return m_fields[column].value(); }

private:
    Recordset &m_data;
    std::vector<Field> m_fields;
    bool m_started = false;
};
