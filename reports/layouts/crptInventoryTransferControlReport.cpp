#include "reports/layouts/controlreport.h"
#include "reports/layouts/layouts.h"

/// The printed proof of one transfer: what went from where to where, the receiving side with its address.
Layout crptInventoryTransferControlReport()
{
    Layout layout = tableLayout(
        {.title = "Transfer Control Report",
         .parameters = {{"txtFromWarehouse"}},
         .columns = {{.heading = "Part No.", .source = "{PartNo}", .width = 150},
                     {.heading = "Category", .source = "{Category}", .width = 150},
                     {.heading = "Qty", .source = "{Qty}", .width = 80, .picture = Picture::Quantity, .total = true},
                     {.heading = "Received", .source = "\"\"", .width = 60, .align = Align::Center}},
         .grandTotal = "Total"});
    addFacts(layout,
             {{"Transfer", "{ID}"},
              {"Date", "ToText({Date})"},
              {"From", "{?txtFromWarehouse}"},
              {"To", "{Warehouse}"},
              {"", "\"\""},
              {"", "{Address1}"},
              {"Last saved", "ToText({DateAdded})"},
              {"", "if Trim({Address2}) <> \"\" then {Address2} else {City} & \", \" & {State} & \" \" & {Zip}"},
              {"", "\"\""},
              {"", "if Trim({Address2}) <> \"\" then {City} & \", \" & {State} & \" \" & {Zip} else \"\""}});
    addSignatures(layout);
    return layout;
}
