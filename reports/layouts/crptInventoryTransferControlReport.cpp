#include "reports/layouts/controlreport.h"
#include "reports/layouts/layouts.h"

/// The printed proof of one transfer: what went from where to where, the receiving side with its address.
Layout crptInventoryTransferControlReport()
{
    Layout layout = tableLayout(
        {.title = "Transfer Control Report",
         .parameters = {{"txtFromWarehouse"}},
         .formulas = {{"Town",
                       "Trim({City} & (if {City} <> \"\" and {State} <> \"\" then \", \") & {State} & \" \" & {Zip})"}},
         .columns = {{.heading = "Part No.", .source = "{PartNo}", .width = 150},
                     {.heading = "Category", .source = "{Category}", .width = 150},
                     {.heading = "Qty", .source = "{Qty}", .width = 80, .picture = Picture::Quantity, .total = true},
                     {.heading = "Received", .source = "\"\"", .width = 60, .align = Align::Center}},
         .grandTotal = "\"Total\""});
    addFacts(layout, {{"Transfer", "{ID}"},
                      {"Date", "{Date}"},
                      {"From", "{?txtFromWarehouse}"},
                      {"To", "{Warehouse}"},
                      {"Last saved", "{DateAdded}"},
                      {"", "{Address1}"},
                      {"", "\"\""},
                      {"", "if Trim({Address2}) <> \"\" then {Address2} else {@Town}"},
                      {"", "\"\""},
                      {"", "if Trim({Address2}) <> \"\" then {@Town} else \"\""}});
    addBlanks(layout, "Received");
    addSignatures(layout, {"Sent by / date", "Received by / date", "Approved by / date"});
    return layout;
}
