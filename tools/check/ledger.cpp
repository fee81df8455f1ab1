#include "tools/check/findings.h"

#include "data/engines/sqlite/connection.h"

namespace check {

namespace {

/// What moves a warehouse and part, in the order of the pairs and then of the shipments. The kinds: 0 the ledger's
/// figure, 1 adjustments and the incoming halves of transfers, 2 outgoing halves, 3 shipments, 4 drop shipments, which
/// carry no carrier and are not posted when they are saved.
constexpr const char *Movements =
    "SELECT Whse, Part, 0, 0, Avail FROM AvailInv UNION ALL "
    "SELECT h.Warehouse, d.PartNo, CASE WHEN h.ID IN (SELECT FromID FROM TransferHeader) THEN 2 ELSE 1 END, h.ID, "
    "d.Qty FROM AdjustmentHeader AS h JOIN AdjustmentDetail AS d ON d.AdjustmentID = h.ID UNION ALL "
    "SELECT o.Warehouse, i.PartNo, CASE WHEN s.Via IS NULL THEN 4 ELSE 3 END, s.ID, l.Qty FROM ShipmentItems AS l "
    "JOIN OrderItem AS i ON i.OrderID = l.OrderID AND i.ItemNumber = l.OrderLineItem JOIN Orders AS o ON o.ID = "
    "i.OrderID JOIN Shipment AS s ON s.ID = l.ShipmentID ORDER BY 1, 2, 4";

struct Movement
{
    int shipment;
    double qty;
    bool posted;
};

/// A ledger row with the documents behind it. A rebuild counts outgoing halves and shipments with the other sign than
/// the postings do; both ways are meant, so a ledger is in order if it is rebuilt up to some moment and posted since.
class Pair
{
public:
    void add(int kind, int id, double qty)
    {
        if (qty != std::floor(qty))
            m_doubt += 0.5; // a posting rounds each line, a rebuild the sum
        if (kind == 0) {
            m_ledger += qty;
            return;
        }
        (kind >= 3 ? m_shipmentIDs : m_adjustmentIDs) += QString::number(id);
        if (kind == 1)
            m_fixed += qty;
        else if (kind == 2)
            m_outgoing.push_back(qty);
        else
            m_shipments.push_back({id, qty, kind == 3});
    }

    /// For which last rebuilt shipments the figure is what a rebuild and the postings since make: calls `use` with each
    /// first ID of such a range and the first one behind it.
    void ranges(const std::function<void(int first, int behind)> &use) const
    {
        double sum = 0;
        for (const Movement &movement : m_shipments)
            sum += movement.posted ? movement.qty : 0;
        int first = 0;
        for (size_t rebuilt = 0; rebuilt <= m_shipments.size(); ++rebuilt) {
            const int behind = rebuilt < m_shipments.size() ? m_shipments[rebuilt].shipment : INT_MAX;
            // What is left once everything else is accounted for must come from the outgoing halves of transfers.
            if (isOutgoing(m_ledger - m_fixed - sum))
                use(first, behind);
            if (rebuilt < m_shipments.size())
                // A rebuild counts a shipment the other way round from its posting, twice the quantity apart; a drop
                // shipment had none.
                sum -= m_shipments[rebuilt].qty * (m_shipments[rebuilt].posted ? 2 : 1);
            first = behind;
        }
    }

    QString text(const QString &name) const
    {
        double rebuilt = m_fixed;
        for (double qty : m_outgoing)
            rebuilt -= qty;
        for (const Movement &movement : m_shipments)
            rebuilt -= movement.qty;
        QString text = QString("%1 has %2, a rebuild gives %3").arg(name).arg(m_ledger).arg(rebuilt);
        if (!m_adjustmentIDs.isEmpty())
            text += ", adjustments " + m_adjustmentIDs.join(", ");
        if (!m_shipmentIDs.isEmpty())
            text += ", shipments " + m_shipmentIDs.join(", ");
        return text;
    }

private:
    /// Whether outgoing halves can come to that sum, the first of them rebuilt and the others posted.
    bool isOutgoing(double wanted) const
    {
        double sum = std::accumulate(m_outgoing.begin(), m_outgoing.end(), 0.0);
        for (size_t rebuilt = 0; rebuilt <= m_outgoing.size(); ++rebuilt) {
            if (std::abs(sum - wanted) < m_doubt + 0.001)
                return true;
            if (rebuilt < m_outgoing.size())
                sum -= 2 * m_outgoing[rebuilt];
        }
        return false;
    }

    double m_ledger = 0, m_fixed = 0, m_doubt = 0;
    std::vector<double> m_outgoing;
    std::vector<Movement> m_shipments;
    QStringList m_adjustmentIDs, m_shipmentIDs;
};

/// Goes through the pairs with their names, one after the other.
void forEachPair(Connection &connection, const std::function<void(const QString &name, const Pair &pair)> &use)
{
    const ErrorContext reading{ErrorContext::Reading, "AvailInv", QString::fromLatin1(Movements)};
    PreparedStatement rows = connection.prepare(Movements, reading);
    QString warehouse, part;
    std::optional<Pair> pair;
    const auto end = [&] {
        if (pair && !warehouse.isEmpty() && !part.isEmpty())
            use(warehouse + u' ' + part, *pair);
    };
    const auto same = [](const QString &a, const QString &b) { return a.compare(b, Qt::CaseInsensitive) == 0; };
    while (rows.next()) {
        if (!pair || !same(rows.text(0), warehouse) || !same(rows.text(1), part)) {
            end();
            warehouse = rows.text(0);
            part = rows.text(1);
            pair.emplace();
        }
        const Value qty = rows.value(4, ColumnType::Double);
        pair->add(int(rows.integer(2)), int(rows.integer(3)), qty.isNull() ? 0 : qty.toDouble());
    }
    end();
}

} // namespace

void checkLedger(Connection &connection, Findings &findings)
{
    // The moment of the last rebuild is not kept: it is the one that most pairs agree with, the latest of several.
    std::map<int, int> changes;
    forEachPair(connection, [&](const QString &, const Pair &pair) {
        pair.ranges([&](int first, int behind) {
            // Each pair agrees with ranges of moments; counted up where one begins and down behind it, the sums tell
            // how many agree.
            ++changes[first];
            --changes[behind];
        });
    });
    int agreeing = 0, most = 0, rebuilt = 0;
    for (const auto &[shipment, change] : changes) {
        agreeing += change;
        if (agreeing >= most && shipment != INT_MAX) {
            most = agreeing;
            rebuilt = shipment;
        }
    }
    forEachPair(connection, [&](const QString &name, const Pair &pair) {
        bool agrees = false;
        pair.ranges([&](int first, int behind) { agrees = agrees || (first <= rebuilt && rebuilt < behind); });
        if (!agrees)
            findings.add("AvailInv", "figures that documents do not account for, until a rebuild", pair.text(name));
    });
}

} // namespace check
