#pragma once

#include <QString>

/// The stock movements of all time up to a day, collected in the scratch table `tmpInventoryRegister`, signed, each
/// with a memo telling its document. `filter` is added to each statement's conditions as it stands.
namespace Movements {

void clear();
/// A row per line of each side of a transfer, out of the adjustments behind it.
void addTransfers(const QString &EndDate, const QString &filter = {});
/// The adjustments that belong to no transfer.
void addAdjustments(const QString &EndDate, const QString &filter = {});
/// The same, with the adjustments of transfers listed in `tmpTransferHeaderIDs` first.
void addAdjustmentsByList(const QString &EndDate);
/// Shipped quantities with their sign turned.
void addShipments(const QString &EndDate, const QString &filter = {});

} // namespace Movements
