#pragma once

#include <QString>

// Stock as its movements tell it: adjustments, transfers and shipments (invoiced or not), each at the part's present
// cost. All under the routine's own hourglass. Dates are texts in month/day/year form; both ends count.

namespace Reports {

/// The movements of a period by warehouse and part, with the balance of what came before in front. `Category` is a
/// category's name or "***All Categories***". Sets txtBeginDate and txtEndDate. With `DisplayDetails` the objects of
/// the totals-only form are suppressed, without it secDetail and the other objects of the detailed form.
void ReportAvailableInventory(const QString &BeginDate, const QString &EndDate, bool DisplayDetails,
                              const QString &Category);
/// The same in a layout for spreadsheets.
void ReportAvailableInventoryExport(const QString &BeginDate, const QString &EndDate, bool DisplayDetails,
                                    const QString &Category);
/// The same by part and warehouse.
void ReportAvailableInventoryByPart(const QString &BeginDate, const QString &EndDate, bool DisplayDetails,
                                    const QString &Category);

/// What the availability ledger holds for every part under one warehouse or under each ("***All Warehouses***"); Null
/// where it has no row.
void ReportQuickAvailInv(const QString &Warehouse);

/// For each part of the stock count of 2/28/2003: the count, what was shipped since and in the period, and the stock at
/// the period's end. Sets txtBeginDate and txtEndDate.
void ReportInventorySales(const QString &BeginDate, const QString &EndDate);

} // namespace Reports
