#include "bench/operations/meter.h"

#include "reportengine/report.h"
#include "reportengine/rows/rowstore.h"
#include "toolkit/forms/mainmod.h"

void Meter::start()
{
    m_tripsBefore = tripsSoFar();
    m_timer.start();
}

void Meter::stop()
{
    if (!m_timer.isValid())
        return;
    m_seconds += double(m_timer.nsecsElapsed()) / 1e9;
    m_trips += tripsSoFar() - m_tripsBefore;
    m_timer.invalidate();
}

void Meter::finish()
{
    stop();
    const double before = m_seconds;
    start();
    gDatabase->sync();
    stop();
    m_syncSeconds += m_seconds - before;
}

/// A date stands for what a column of a file holds.
void Meter::note(const Report &report)
{
    if (!m_keepsRows)
        return;
    const RowStore &store = report.rows();
    m_rows.clear();
    for (int row = 0; row < store.rowCount(); ++row) {
        QStringList cells;
        for (int field = 0; field < int(store.dataset().size()); ++field) {
            const Value value = store.value(row, field);
            cells += value.type() == Value::Type::Date ? value.toDate().toIso() : value.joined();
        }
        m_rows.push_back(cells);
    }
}
