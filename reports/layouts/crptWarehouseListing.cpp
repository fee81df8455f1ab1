#include "reports/layouts/layoutbuilder.h"
#include "reports/layouts/layouts.h"

/// All warehouses with their addresses, the active ones first.
Layout crptWarehouseListing()
{
    return tableLayout({.title = "Warehouse Listing",
                        .landscape = true,
                        .groups = {{.by = "{Status}", .none = "No status", .counted = "warehouse"}},
                        .columns = {{.heading = "Warehouse", .source = "{WareHouse}", .width = 100},
                                    {.heading = "Address",
                                     .source = "{Address1} & (if Trim({Address2}) <> \"\" then \"\n\" & {Address2})",
                                     .width = 170},
                                    {.heading = "City", .source = "{City}", .width = 84},
                                    {.heading = "State", .source = "{State}", .width = 34},
                                    {.heading = "Zip", .source = "{Zip}", .width = 46},
                                    {.heading = "Phone", .source = "{Phone}", .width = 74},
                                    {.heading = "Fax", .source = "{Fax}", .width = 74},
                                    {.heading = "Contact", .source = "{Contact}", .width = 86},
                                    {.heading = "Added",
                                     .source = "{DateAdded}",
                                     .width = 50,
                                     .picture = Picture::Date,
                                     .align = Align::Right}},
                        .grandTotal = "\"All: \" & " + countOf("RecordCount", "warehouse"),
                        .textSize = 8});
}
