#include "inventory/ledger.h"

#include "data/values/numbers.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/mainmod.h"

namespace {
/// One source of movements. `sign` is what a rebuild applies to the sums of the statement, whatever the running
/// update did: it adds the outgoing halves of transfers back and subtracts shipments. The two do not agree, and are
/// meant not to.
struct Pass
{
    const char *sql;
    int sign;
};

const Pass passes[] = {
    {"SELECT Warehouse,PartNo,SUM(Qty) AS Shipped FROM AdjustmentHeader LEFT JOIN AdjustmentDetail ON "
     "AdjustmentHeader.ID = AdjustmentDetail.AdjustmentID WHERE ID NOT IN (SELECT FromID FROM TransferHeader) AND ID "
     "NOT IN (SELECT ToID FROM TransferHeader) GROUP BY Warehouse,PartNo",
     1},
    {"SELECT Warehouse,PartNo,SUM(Qty) AS Shipped FROM ((TransferHeader LEFT JOIN ADjustmentHeader ON "
     "TransferHeader.FromID = AdjustmentHeader.ID) LEFT JOIN AdjustmentDetail ON AdjustmentHeader.ID = "
     "AdjustmentDetail.AdjustmentID) GROUP BY Warehouse,PartNo",
     -1},
    {"SELECT Warehouse,PartNo,SUM(Qty) AS Shipped FROM ((TransferHeader LEFT JOIN ADjustmentHeader ON "
     "TransferHeader.ToID = AdjustmentHeader.ID) LEFT JOIN AdjustmentDetail ON AdjustmentHeader.ID = "
     "AdjustmentDetail.AdjustmentID) GROUP BY Warehouse,PartNo",
     1},
    {"SELECT Orders.Warehouse, OrderItem.PartNo, SUM(ShipmentItems.Qty) AS Shipped FROM ((ShipmentItems LEFT JOIN "
     "OrderItem ON ShipmentItems.OrderID = OrderItem.OrderID AND ShipmentItems.OrderLineItem = OrderItem.ItemNumber) "
     "LEFT JOIN Orders ON OrderItem.OrderID = Orders.ID) GROUP BY Orders.Warehouse,OrderItem.PartNo",
     -1},
};

/// Posts every group of a pass that has a warehouse, a part and a sum. The others are leftovers of the outer joins:
/// headers without lines, shipment lines whose order line is gone. Rounds once a group, where the running update
/// rounds every line: two lines of 1.5 are 4 there and 3 here.
void post(const Pass &pass)
{
    Recordset rs = gDatabase->OpenRecordset(QLatin1String(pass.sql));
    while (!rs.Eof()) {
        const QString warehouse = rs.Fields("Warehouse").joined();
        const QString part = rs.Fields("PartNo").joined();
        const QString sum = rs.Fields("Shipped").joined();
        if (!warehouse.isEmpty() && !part.isEmpty() && !sum.isEmpty())
            UpdateAvailInv(warehouse, part, CInt(Val(sum) * pass.sign));
        rs.MoveNext();
    }
    rs.Close();
}

/// The number in the column `Avail` of a statement's first row; 0 without a row.
double availOf(const QString &sql)
{
    Recordset rs = gDatabase->OpenRecordset(sql);
    const bool empty = rs.Bof() && rs.Eof();
    const double avail = empty ? 0 : rs.Fields("Avail").value().leadingNumber();
    rs.Close();
    return avail;
}
} // namespace

/// Adds and never sets, so a document saved again counts again. The keys go into the text as they stand; should a pair
/// have two rows, the first one found is the ledger.
void UpdateAvailInv(const QString &Whse, const QString &Part, qint16 Qty)
{
    Recordset rs =
        gDatabase->OpenRecordset("SELECT * FROM AvailInv WHERE Part = '" + Part + "' AND Whse = '" + Whse + "'");
    if (!(rs.Bof() && rs.Eof())) {
        rs.Edit();
        const double avail = rs.Fields("Avail").value().leadingNumber();
        rs.Fields("Avail") = avail + Qty;
        rs.Update();
    } else {
        rs.AddNew();
        rs.Fields("Whse") = Whse;
        rs.Fields("Part") = Part;
        // A quantity of 0 makes a row too.
        rs.Fields("Avail") = int(Qty);
        rs.Update();
    }
    rs.Close();
}

/// Counts orders and no shipments: what is shipped has left the figure with its order line. The ledger is not asked, so
/// a rebuild changes nothing here.
double GetAvailableQty(const QString &PartNo, const QString &Warehouse)
{
    const double adjusted = availOf("SELECT SUM(Qty) AS Avail FROM AdjustmentHeader LEFT JOIN AdjustmentDetail ON "
                                    "AdjustmentHeader.ID = AdjustmentDetail.AdjustmentID WHERE Warehouse = '" +
                                    Warehouse + "' AND PartNo = '" + PartNo + "' GROUP BY Warehouse,PartNo");
    const double ordered = availOf("SELECT SUM(OrderItem.Qty) AS Avail FROM Orders LEFT JOIN OrderItem ON Orders.ID = "
                                   "OrderItem.OrderID WHERE Warehouse = '" +
                                   Warehouse + "' AND PartNo = '" + PartNo +
                                   "' AND Orders.Status <> 'Void' GROUP BY Orders.Warehouse, OrderItem.PartNo");
    return adjusted - ordered;
}

QString GetOrderWarehouse(const QString &OrderID)
{
    Recordset rs = gDatabase->OpenRecordset("SELECT Warehouse FROM Orders WHERE ID = " + OrderID);
    QString warehouse;
    if (!(rs.Bof() && rs.Eof()))
        warehouse = rs.Fields("Warehouse").text();
    rs.Close();
    return warehouse;
}

/// Stopped half way it leaves the ledger half filled; there is no transaction, and the next rebuild repairs it.
void RebuildAvailInv()
{
    if (!MsgBoxYesNo("Are you sure you want to rebuild the Available Inventory Report?", "Rebuild Confirmation"))
        return;
    const Hourglass hourglass;
    // The passes only add.
    gDatabase->Execute("DELETE * FROM AvailInv");
    for (const Pass &pass : passes)
        post(pass);
}
