#include "bench/operations/bareengine.h"
#include "bench/operations/bareoperations.h"

#include <cmath>
#include <vector>

namespace {

/// One pass of the rebuild: the sums, then one posting each, every one committed.
void post(BareEngine &engine, const QByteArray &sums, double sign)
{
    struct Group
    {
        QByteArray warehouse, part;
        double quantity;
    };
    std::vector<Group> groups;
    BareEngine::Statement statement(engine, sums);
    while (statement.step()) {
        if (!statement.isNull(0) && !statement.isNull(1) && !statement.isNull(2))
            groups.push_back({statement.text(0), statement.text(1), std::nearbyint(statement.number(2) * sign)});
    }
    BareEngine::Statement find(engine, "SELECT rowid,Avail FROM AvailInv WHERE Part = ? AND Whse = ?");
    BareEngine::Statement update(engine, "UPDATE AvailInv SET Avail = ? WHERE rowid = ?");
    BareEngine::Statement insert(engine, "INSERT INTO AvailInv (Whse,Part,Avail) VALUES (?,?,?)");
    for (const Group &group : groups) {
        find.bind(1, group.part).bind(2, group.warehouse);
        if (find.step()) {
            update.bind(1, find.number(1) + group.quantity).bind(2, qint64(find.number(0)));
            find.reset();
            update.step();
            update.reset();
        } else {
            find.reset();
            insert.bind(1, group.warehouse).bind(2, group.part).bind(3, group.quantity);
            insert.step();
            insert.reset();
        }
    }
}

} // namespace

void Bare::rebuildAvailInv(BareEngine &engine)
{
    const QByteArray sums = "SELECT H.Warehouse,D.PartNo,SUM(D.Qty) FROM ";
    const QByteArray tail = " GROUP BY H.Warehouse,D.PartNo";
    engine.run("DELETE FROM AvailInv");
    post(engine,
         sums +
             "AdjustmentHeader H LEFT JOIN AdjustmentDetail D ON D.AdjustmentID = H.ID WHERE H.ID NOT IN (SELECT "
             "FromID FROM "
             "TransferHeader) AND H.ID NOT IN (SELECT ToID FROM TransferHeader)" +
             tail,
         1);
    const QByteArray halves = " = H.ID LEFT JOIN AdjustmentDetail D ON D.AdjustmentID = H.ID" + tail;
    post(engine, sums + "TransferHeader T LEFT JOIN AdjustmentHeader H ON T.FromID" + halves, -1);
    post(engine, sums + "TransferHeader T LEFT JOIN AdjustmentHeader H ON T.ToID" + halves, 1);
    post(engine,
         "SELECT O.Warehouse,I.PartNo,SUM(S.Qty) FROM ShipmentItems S LEFT JOIN OrderItem I ON S.OrderID = I.OrderID "
         "AND "
         "S.OrderLineItem = I.ItemNumber LEFT JOIN Orders O ON I.OrderID = O.ID GROUP BY O.Warehouse,I.PartNo",
         -1);
}

void Bare::orderNavigator(BareEngine &engine)
{
    engine.run("SELECT * FROM Orders ORDER BY Customer,OrderNumber");
}

void Bare::shipmentNavigator(BareEngine &engine)
{
    engine.run("SELECT "
               "S.ID,S.Date,O.ID,O.Customer,O.OrderNumber,O.ShipTo,O.ShipToAddress1,O.ShipToAddress2,O.ShipToCity,O."
               "ShipToState,"
               "O.ShipToZip,S.Invoiced FROM Shipment S LEFT JOIN Orders O ON S.OrderID = O.ID ORDER BY "
               "O.Customer,O.OrderNumber");
}
