#include "reports/layouts/openinvoices.h"

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
