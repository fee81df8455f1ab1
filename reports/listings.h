#pragma once

#include <QString>

// Listings of master data and open orders, and the control reports that prove one stock document.

namespace Reports {

/// The lines of all open orders with what was shipped of each. Nobody shows an hourglass for it.
void ReportOpenOrders();

/// All parts, customers or warehouses, active and inactive ones in blocks.
void ReportPartListing();
void ReportCustomerListing();
void ReportWarehouseListing();

/// One adjustment with its lines. The ID goes into the statement as it stands: an empty one is error 3075.
void ReportAdjustmentControl(const QString &AdjustmentID);

/// One transfer: lines and address of the receiving side; txtFromWarehouse is set to the sending warehouse. An ID
/// without a row is error 3021.
void ReportTransferControl(const QString &TransferID);

} // namespace Reports
