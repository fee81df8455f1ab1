#include "reports/layouts/layoutbuilder.h"
#include "reports/layouts/layouts.h"

/// The old stock figures by part, its warehouses below one another. Most parts lie in one or two of them, so that the
/// part stands in its rows and takes no heading line.
Layout crptAvailInv()
{
    return tableLayout({.title = "Available Inventory by Part",
                        .groups = {{.by = "{Part}", .header = false}},
                        .columns = {{.heading = "Part", .source = "{Part}", .width = 160},
                                    {.heading = "Warehouse", .source = "{Warehouse}", .width = 140},
                                    {.heading = "Available",
                                     .source = "{AvailQty}",
                                     .width = 80,
                                     .picture = Picture::Quantity,
                                     .total = true}},
                        .width = 400});
}
