#pragma once

#include "reports/layouts/layoutbuilder.h"

/// What the receivables listing and the statements reckon for each invoice, out of {Total}, {Adjustment}, {Received},
/// {InvoiceDate} and the text {?txtAsOfDate}: @IsOpen (1 or 0; less than half a cent is closed), @Balance and, of open
/// ones, @Invoiced, @Adjusted, @Received; @Age in days from the invoice date; and the balance by age in @Current (up to
/// 30 days), @Over30, @Over60, @Over90.
std::vector<NamedFormula> openInvoiceFormulas();
