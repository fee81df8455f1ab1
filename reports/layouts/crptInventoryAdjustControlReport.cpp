#include "reports/layouts/controlreport.h"
#include "reports/layouts/layouts.h"

/// The printed proof of one stock adjustment, to be signed.
Layout crptInventoryAdjustControlReport()
{
    Layout layout = tableLayout(
        {.title = "Adjustment Control Report",
         .columns =
             {{.heading = "Part No.", .source = "{PartNo}", .width = 150},
              {.heading = "Category", .source = "{Category}", .width = 150},
              {.heading = "Adj. Qty", .source = "{Qty}", .width = 80, .picture = Picture::Quantity, .total = true},
              {.heading = "Checked", .source = "\"\"", .width = 60, .align = Align::Center}},
         .grandTotal = "\"Total\""});
    addFacts(layout,
             {{"Adjustment", "{ID}"}, {"Date", "{Date}"}, {"Warehouse", "{Warehouse}"}, {"Last saved", "{DateAdded}"}});
    addBlanks(layout, "Checked");
    addSignatures(layout, {"Counted by / date", "Entered by / date", "Approved by / date"});
    return layout;
}
