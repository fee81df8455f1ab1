#pragma once

#include <QString>

// What was sold in a period, by the date of the invoice; goods shipped and not invoiced are not sold. Dates are texts
// in month/day/year form; both ends count. The pointer is the dialogs' business. Costs are the parts' present costs.
// All set txtBeginDate and txtEndDate.

namespace Reports {

/// The shipped lines with extended price and cost, by part.
void ReportSalesByPart(const QString &BeginDate, const QString &EndDate);
/// The same with the warehouse; grouping by it is the layout's.
void ReportSalesByWhsePart(const QString &BeginDate, const QString &EndDate);
/// The same in a flat layout for spreadsheets.
void ReportSalesByWhsePartExport(const QString &BeginDate, const QString &EndDate);

/// A line per customer with sales and costs in four periods: the one chosen, the same last year, this year to date and
/// last year to date.
void ReportSalesByCustomer(const QString &BeginDate, const QString &EndDate);
/// The same per category and customer.
void ReportSalesByCategoryCustomer(const QString &BeginDate, const QString &EndDate);
/// The same per territory and customer. Also rewrites the field definition file of its rows in the folder `ttx` beside
/// the program; that it can't be written is no error.
void ReportSalesByTerritoryCustomer(const QString &BeginDate, const QString &EndDate);

} // namespace Reports
