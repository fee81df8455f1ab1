#include "reports/layouts/layoutbuilder.h"
#include "reports/layouts/layouts.h"

/// The ledger's figures, every part under every warehouse. A pair that never moved has no figure and shows none.
Layout crptNewAvailInv()
{
    return tableLayout(
        {.title = "Quick Available Inventory",
         .groups = {{.by = "{Warehouse}",
                     .heading = "\"Warehouse \" & {Warehouse}",
                     .footing = "\"Total warehouse \" & {Warehouse}"}},
         .columns =
             {{.heading = "Part No.", .source = "{PartNo}", .width = 240},
              {.heading = "Available", .source = "{Avail}", .width = 80, .picture = Picture::Whole, .total = true}},
         .width = 340,
         .ruled = true});
}
