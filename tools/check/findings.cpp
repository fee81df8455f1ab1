#include "tools/check/findings.h"

#include "data/engines/sqlite/connection.h"
#include "tools/oneline.h"

namespace check {

void Findings::add(const QString &table, const QString &fault, const QString &row)
{
    // Enough to find them by; the count tells the rest.
    constexpr int Shown = 3;
    // Faults of one kind mostly come one after the other, so the kind in hand stands last.
    if (m_kinds.empty() || m_kinds.back().table != table || m_kinds.back().fault != fault) {
        const auto known = std::find_if(m_kinds.begin(), m_kinds.end(),
                                        [&](const Kind &kind) { return kind.table == table && kind.fault == fault; });
        if (known == m_kinds.end())
            m_kinds.push_back({table, fault, {}, 0});
        else
            std::rotate(known, known + 1, m_kinds.end());
    }
    Kind &kind = m_kinds.back();
    if (++kind.count <= Shown && !row.isEmpty())
        kind.rows += oneLine(row, 200);
}

QStringList Findings::lines() const
{
    QStringList lines;
    for (const Kind &kind : m_kinds) {
        QString line = kind.table + ": " + kind.fault;
        if (!kind.rows.isEmpty())
            line += ": " + kind.rows.join("; ");
        if (kind.count > kind.rows.size() && !kind.rows.isEmpty())
            line += QString(" and %1 more").arg(kind.count - kind.rows.size());
        lines += line;
    }
    return lines;
}

void reportRows(Connection &connection, Findings &findings, const QString &table, const QString &fault,
                const QByteArray &sql)
{
    const ErrorContext reading{ErrorContext::Reading, table, QString::fromUtf8(sql)};
    PreparedStatement rows = connection.prepare(sql, reading);
    while (rows.next())
        findings.add(table, fault, rows.text(0));
}

} // namespace check
