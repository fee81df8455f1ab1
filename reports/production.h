#pragma once

#include <QtGlobal>

// What the plant has to make: sales of the last full months, stock on hand and commitments by warehouse and part. The
// pointer is the dialogs' business.

namespace Reports {

/// By warehouse, then part. `Months` is the number of full months before this one that sales are averaged over; it and
/// `Req` go with each row, from which the layout works out its figure. `SuppressBlank` hides rows that need nothing.
/// Sets txtMonths and txtReq; formula 4 is the condition that hides a row.
void ReportProductionByWhsePart(qint16 Months, qint16 Req, bool SuppressBlank);

/// By part, then warehouse; formula 6 is the condition that hides a part.
void ReportProductionByPartWhse(qint16 Months, qint16 Req, bool SuppressBlank);

} // namespace Reports
