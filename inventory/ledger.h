#pragma once

#include <QString>

// The two stock figures: the availability of the order desk, computed from the movement tables at each call, and the
// running ledger AvailInv, one row per warehouse and part, which the stock documents post to and a rebuild recomputes.

/// Adds `Qty` to the ledger's row of the pair, or makes that row (also for 0). Never sets and never takes back: a
/// document saved twice counts twice until the next rebuild. Error 94 when the row's `Avail` is Null.
void UpdateAvailInv(const QString &Whse, const QString &Part, qint16 Qty);

/// All adjustment lines of the part in the warehouse (halves of transfers included) minus the lines of all orders
/// that are not "Void", shipped or not. The ledger is not read. 0 for unknown keys.
double GetAvailableQty(const QString &PartNo, const QString &Warehouse);

/// The order's warehouse; the empty text when there is no such order. Error 94 when the warehouse is Null.
QString GetOrderWarehouse(const QString &OrderID);

/// Asks, empties the ledger and fills it from the movement tables under the hourglass. A total of one pair outside
/// 16 bits is error 6 and leaves the ledger half filled.
void RebuildAvailInv();
