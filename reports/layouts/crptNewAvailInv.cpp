#include "reports/layouts/layoutbuilder.h"
#include "reports/layouts/layouts.h"

/// The ledger's figures, every part under every warehouse: long and narrow, so two columns to the page. A pair that
/// never moved has no figure and shows none.
Layout crptNewAvailInv()
{
    return tableLayout(
        {.title = "Quick Available Inventory",
         .groups = {{.by = "{Warehouse}",
                     .heading = "\"Warehouse \" & {Warehouse}",
                     .footing = "\"Total warehouse \" & {Warehouse}"}},
         .columns =
             {{.heading = "Part No.", .source = "{PartNo}", .width = 190},
              {.heading = "Available", .source = "{Avail}", .width = 62, .picture = Picture::Whole, .total = true}},
         .across = 2,
         .ruled = true});
}
