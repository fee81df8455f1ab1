#pragma once

// Reports over the spreadsheets of the earlier bookkeeping, whose paths stand in `workbooks.txt` beside the program.
// A path that is empty or leads to no workbook is error 432, a missing sheet error 9.

namespace Reports {

/// Refills `Invoice_Old` and `Customer_Old`; nothing is shown.
void ReportStatementsOld();

/// Refills the stock ledger `Inventory` but for its opening balances, counting the rows in the main window's caption,
/// and previews the sums by part and warehouse in the one window both share.
void ReportAvailInvOld();
void ReportAvailInv2Old();

} // namespace Reports
