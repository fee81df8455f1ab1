#include "reports/layouts/openinvoices.h"

/// Less than half a cent would print as 0.00, so such an invoice counts as paid. Its age is told from the day of the
/// invoice, as the limit in days is that chooses the customers.
std::vector<NamedFormula> openInvoiceFormulas()
{
    return {{"Left", "{Total} - {Adjustment} - {Received}"},
            {"IsOpen", "if {@Left} < 0.005 and {@Left} > -0.005 then 0 else 1"},
            {"Balance", "if {@IsOpen} = 0 then 0 else {@Left}"},
            {"Invoiced", "if {@IsOpen} = 0 then 0 else {Total}"},
            {"Adjusted", "if {@IsOpen} = 0 then 0 else {Adjustment}"},
            {"Received", "if {@IsOpen} = 0 then 0 else {Received}"},
            {"Age", "CDate({?txtAsOfDate}) - Date({InvoiceDate})"},
            {"Current", "if {@Age} <= 30 then {@Balance} else 0"},
            {"Over30", "if {@Age} > 30 and {@Age} <= 60 then {@Balance} else 0"},
            {"Over60", "if {@Age} > 60 and {@Age} <= 90 then {@Balance} else 0"},
            {"Over90", "if {@Age} > 90 then {@Balance} else 0"}};
}
