#include "reports/layouts/layouts.h"
#include "reports/runtime/layoutbuilder.h"

/// The old stock figures by part, its warehouses below it.
Layout crptAvailInv()
{
    return tableLayout({.title = "Available Inventory by Part",
                        .groups = {{.by = "{Part}"}},
                        .columns = {{.heading = "Warehouse", .source = "{Warehouse}", .width = 240},
                                    {.heading = "Available",
                                     .source = "{AvailQty}",
                                     .width = 80,
                                     .picture = Picture::Quantity,
                                     .total = true}}});
}
