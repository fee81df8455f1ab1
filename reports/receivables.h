#pragma once

#include <QString>

// The reports over invoices and payments, all previewed, all under the routine's own hourglass. Dates are texts as a
// date picker gives them ("3/30/2011"); both ends of a range count.

namespace Reports {

/// The state of all accounts at the end of a day: invoices and payments up to it. With days given (`OverDays` not
/// empty), customers stay only if an invoice older than that many days still has a balance; an empty set of invoices
/// is then error 3021. Sets txtAsOfDate, txtOverDays; suppresses txtOver and txtDays without days, and for
/// `SummaryOnly` Details, InvoiceHeads and CustomerHeader.
void ShowOpenInvoicesReport(const QString &AsOfDate, bool SummaryOnly, const QString &OverDays);

/// The same accounts for the customers that get statements. Sets txtAsOfDate.
void ShowStatementReport(const QString &AsOfDate);

/// The invoices of a period with the freight and adjustments of their shipments. Sets txtBeginDate, txtEndDate.
void ShowInvoiceRegister(const QString &BeginDate, const QString &EndDate);

/// The payments of a period. Sets txtBeginDate, txtEndDate.
void ShowCashReceipts(const QString &BeginDate, const QString &EndDate);

/// Invoices, payments and adjustments of one customer in a period, amounts as stored: `TranType` tells what adds and
/// what takes away. Sets txtCustomer, txtBeginDate, txtEndDate.
void ShowCustomerRegister(const QString &Customer, const QString &BeginDate, const QString &EndDate);

} // namespace Reports
