#include "reports/layouts/layoutbuilder.h"
#include "reports/layouts/layouts.h"

/// All parts with what their records hold, the active ones first.
Layout crptPartListing()
{
    return tableLayout(
        {.title = "Part Listing",
         .landscape = true,
         .groups = {{.by = "{Status}", .none = "No status", .counted = "part"}},
         .columns = {{.heading = "Part No.", .source = "{PartNo}", .width = 84},
                     {.heading = "Category", .source = "{Category}", .width = 118},
                     {.heading = "Vendor", .source = "{Vendor}", .width = 88},
                     {.heading = "Lead time", .source = "{LeadTime}", .width = 46},
                     {.heading = "Superceded", .source = "{Superceded}", .width = 66},
                     {.heading = "Bin", .source = "{BinLocation}", .width = 46},
                     {.heading = "Min on\nhand", .source = "{MinOnHand}", .width = 40, .picture = Picture::Quantity},
                     {.heading = "Re-order\nqty", .source = "{ReorderQty}", .width = 42, .picture = Picture::Quantity},
                     {.heading = "Qty per\npack", .source = "{QtyPerPack}", .width = 40, .picture = Picture::Quantity},
                     {.heading = "Cost", .source = "{Cost}", .width = 52, .picture = Picture::Money},
                     {.heading = "Sale price", .source = "{SalePrice}", .width = 52, .picture = Picture::Money},
                     {.heading = "Added",
                      .source = "{DateAdded}",
                      .width = 52,
                      .picture = Picture::Date,
                      .align = Align::Right}},
         .grandTotal = "\"All: \" & " + countOf("RecordCount", "part"),
         .textSize = 8,
         .ruled = true});
}
