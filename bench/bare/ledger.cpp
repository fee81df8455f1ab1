#include "bench/bare/ledger.h"
#include "bench/bare/joins.h"
#include "bench/bare/operations.h"

#include <cmath>

Bare::Ledger::Ledger(BareEngine &engine)
    : m_find(engine, "SELECT rowid,Avail FROM AvailInv WHERE Part = ? AND Whse = ?"),
      m_update(engine, "UPDATE AvailInv SET Avail = ? WHERE rowid = ?"),
      m_insert(engine, "INSERT INTO AvailInv (Whse,Part,Avail) VALUES (?,?,?)")
{
}

void Bare::Ledger::post(const QByteArray &warehouse, const QByteArray &part, double quantity)
{
    m_find.bind(1, part).bind(2, warehouse);
    if (m_find.step()) {
        m_update.bind(1, m_find.number(1) + quantity).bind(2, qint64(m_find.number(0)));
        m_find.reset();
        m_update.step();
        m_update.reset();
    } else {
        m_find.reset();
        m_insert.bind(1, warehouse).bind(2, part).bind(3, quantity).step();
        m_insert.reset();
    }
}

namespace {

/// One pass of the rebuild: the sums, then one posting each, every one committed.
void post(BareEngine &engine, Bare::Ledger &ledger, const QByteArray &head, const QByteArray &from, double sign)
{
    struct Group
    {
        QByteArray warehouse, part;
        double quantity;
    };
    std::vector<Group> groups;
    BareEngine::Statement sums(engine, "SELECT " + head + from + " GROUP BY 1,2");
    while (sums.step()) {
        if (!sums.isNull(0) && !sums.isNull(1) && !sums.isNull(2))
            groups.push_back({sums.text(0), sums.text(1), std::nearbyint(sums.number(2) * sign)});
    }
    for (const Group &group : groups)
        ledger.post(group.warehouse, group.part, group.quantity);
}

} // namespace

void Bare::rebuildAvailInv(BareEngine &engine)
{
    Ledger ledger(engine);
    const QByteArray adjusted = "H.Warehouse,D.PartNo,SUM(D.Qty)";
    engine.run("DELETE FROM AvailInv");
    post(engine, ledger, adjusted, Joins::FromAdjustments + Joins::WhereNoTransfer, 1);
    post(engine, ledger, adjusted, Joins::fromTransfers("FromID"), -1);
    post(engine, ledger, adjusted, Joins::fromTransfers("ToID"), 1);
    post(engine, ledger, "O.Warehouse,I.PartNo,SUM(S.Qty)",
         " FROM ShipmentItems S LEFT JOIN OrderItem I ON S.OrderID = I.OrderID AND S.OrderLineItem = I.ItemNumber "
         "LEFT JOIN Orders O ON I.OrderID = O.ID",
         -1);
}
