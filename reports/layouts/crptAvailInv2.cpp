#include "reports/layouts/layoutbuilder.h"
#include "reports/layouts/layouts.h"

/// The old stock figures by warehouse, its parts below it.
Layout crptAvailInv2()
{
    return tableLayout({.title = "Available Inventory by Warehouse",
                        .groups = {{.by = "{Warehouse}",
                                    .heading = "\"Warehouse \" & {Warehouse}",
                                    .footing = "\"Total warehouse \" & {Warehouse}"}},
                        .columns = {{.heading = "Part", .source = "{Part}", .width = 240},
                                    {.heading = "Available",
                                     .source = "{AvailQty}",
                                     .width = 80,
                                     .picture = Picture::Quantity,
                                     .total = true}},
                        .width = 340,
                        .ruled = true});
}
