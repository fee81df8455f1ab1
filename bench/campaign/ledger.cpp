#include "bench/campaign/ledger.h"

#include "bench/campaign/place.h"
#include "bench/campaign/worker.h"

void Ledger::expect(bool good, const QString &fault)
{
    if (!good)
        m_faults += fault;
}

void Ledger::add(const QStringList &lines)
{
    for (const QString &line : lines) {
        const QStringList words = line.split(' ');
        const int id = words.value(1).toInt();
        if (words[0] == "ready" || words[0].isEmpty())
            continue;
        ++m_statements;
        if (words[0] == "number") {
            expect(!m_numbers.contains(id), QString("number %1 was given twice").arg(id));
            m_numbers += id;
        } else if (words[0] == "order") {
            m_orders += id;
        } else if (words[0] == "line") {
            m_lines[id] = words.value(2).toInt();
        } else if (words[0] == "posting") {
            ++m_postings;
        } else if (words[0] == "parts") {
            ++m_parts;
        } else if (words[0] == "closed") {
            m_closed += id;
        } else {
            expect(false, "a worker said: " + line);
        }
    }
}

void Ledger::compare(const Place &place, int open)
{
    place.waitUntilLeft();
    const QStringList sound = place.isOnServer() ? QStringList("ok") : place.rows("PRAGMA integrity_check");
    expect(sound == QStringList("ok"), "integrity check: " + sound.join(", "));

    int unheard = 0;
    QSet<int> stored;
    for (const QString &row : place.rows(
             R"(SELECT "ID", "Status", "Total", (SELECT count(*) FROM "OrderItem" WHERE "OrderID" = "Orders"."ID"),
                           (SELECT coalesce(max("ItemNumber"), 0) FROM "OrderItem" WHERE "OrderID" = "Orders"."ID")
                       FROM "Orders")")) {
        const QStringList columns = row.split('|');
        const int id = columns[0].toInt(), lines = columns[3].toInt();
        stored += id;
        unheard += m_orders.contains(id) ? 0 : 1;
        unheard += lines - m_lines.value(id);
        expect(lines >= m_lines.value(id) && lines == columns[4].toInt(), "lines of order " + row);
        const bool closed = columns[1] == "Closed";
        unheard += closed && !m_closed.contains(id) ? 1 : 0;
        expect(closed == (columns[2].toDouble() == id), "half a statement in order " + row);
        expect(!closed || lines == Worker::LinesPerOrder, "closed before it was whole: order " + row);
        expect(closed || !m_closed.contains(id), "closing lost of order " + row);
    }
    for (const int id : m_orders)
        expect(stored.contains(id), QString("order %1 lost").arg(id));

    const QStringList parts = place.rows(R"(SELECT DISTINCT "MinOnHand" FROM "Part")");
    expect(parts.size() == 1, "half a statement in Part: " + parts.join(", "));
    unheard += int(parts.value(0).toDouble()) - m_parts;
    const int avail = place.rows(R"(SELECT sum("Avail") FROM "AvailInv")").value(0).toInt();
    expect(avail % Worker::Posting == 0, QString("AvailInv is %1").arg(avail));
    unheard += avail / Worker::Posting - m_postings;
    expect(unheard >= 0 && unheard <= open,
           QString("%1 statements there that nobody reported, of at most %2").arg(unheard).arg(open));
    // From here on they count as heard.
    m_parts = int(parts.value(0).toDouble());
    m_postings = avail / Worker::Posting;
}
