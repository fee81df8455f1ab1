#include "reportengine/rows/recordsetrows.h"

#include "data/values/runtimeerror.h"

int RecordsetRows::column(const QString &field)
{
    try {
        m_fields.push_back(m_data.Fields(field));
    } catch (const RuntimeError &) {
        // The reader has an error of its own for this, which tells the dataset field that is missing.
        return -1;
    }
    return int(m_fields.size()) - 1;
}

bool RecordsetRows::next()
{
    // The recordset stands on its first row already.
    if (m_started && !m_data.Eof())
        m_data.MoveNext();
    m_started = true;
    return !m_data.Eof();
}
