#include "bench/campaign/ledger.h"

#include "bench/campaign/worker.h"
#include <sqlite3.h>

namespace {

/// The rows of a query over a connection of its own that knows nothing of the program, columns joined by "|".
QStringList rows(const QString &file, const char *sql)
{
    sqlite3 *connection = nullptr;
    sqlite3_stmt *statement = nullptr;
    QStringList result;
    sqlite3_open(file.toUtf8().constData(), &connection);
    sqlite3_busy_timeout(connection, 5000);
    if (sqlite3_prepare_v2(connection, sql, -1, &statement, nullptr) != SQLITE_OK)
        result += QString::fromUtf8(sqlite3_errmsg(connection));
    while (statement && sqlite3_step(statement) == SQLITE_ROW) {
        QStringList columns;
        for (int i = 0; i < sqlite3_column_count(statement); ++i)
            columns += QString::fromUtf8(reinterpret_cast<const char *>(sqlite3_column_text(statement, i)));
        result += columns.join('|');
    }
    sqlite3_finalize(statement);
    sqlite3_close(connection);
    return result;
}

} // namespace

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

void Ledger::compare(const QString &file, int open)
{
    const QStringList sound = rows(file, "PRAGMA integrity_check");
    expect(sound == QStringList("ok"), "integrity check: " + sound.join(", "));

    int unheard = 0;
    QSet<int> stored;
    for (const QString &row :
         rows(file, "SELECT ID, Status, Total, (SELECT count(*) FROM OrderItem WHERE OrderID = Orders.ID),"
                    " (SELECT coalesce(max(ItemNumber), 0) FROM OrderItem WHERE OrderID = Orders.ID) FROM Orders")) {
        const QStringList columns = row.split('|');
        const int id = columns[0].toInt(), lines = columns[3].toInt();
        stored += id;
        unheard += m_orders.contains(id) ? 0 : 1;
        unheard += lines - m_lines.value(id);
        expect(lines >= m_lines.value(id) && lines == columns[4].toInt(), "lines of order " + row);
        const bool closed = columns[1] == "Closed";
        unheard += closed && !m_closed.contains(id) ? 1 : 0;
        expect(closed == (columns[2].toDouble() == id), "half a statement in order " + row);
        expect(closed || !m_closed.contains(id), "closing lost of order " + row);
    }
    for (const int id : m_orders)
        expect(stored.contains(id), QString("order %1 lost").arg(id));

    const QStringList parts = rows(file, "SELECT DISTINCT MinOnHand FROM Part");
    expect(parts.size() == 1, "half a statement in Part: " + parts.join(", "));
    unheard += int(parts.value(0).toDouble()) - m_parts;
    const int avail = rows(file, "SELECT sum(Avail) FROM AvailInv").value(0).toInt();
    expect(avail % Worker::Posting == 0, QString("AvailInv is %1").arg(avail));
    unheard += avail / Worker::Posting - m_postings;
    expect(unheard >= 0 && unheard <= open,
           QString("%1 statements in the file that nobody reported, of at most %2").arg(unheard).arg(open));
    // From here on they count as heard.
    m_parts = int(parts.value(0).toDouble());
    m_postings = avail / Worker::Posting;
}
