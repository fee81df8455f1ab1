#include "reports/layouts/layouts.h"
#include "reports/layouts/salesdetail.h"

/// What was invoiced in a period, by warehouse and part. The rows come without regard to warehouse; the grouping
/// brings them together.
Layout crptSalesByWhsePart()
{
    return tableLayout({.title = "Sales By Whse/Part",
                        .subtitle = salesPeriodSubtitle(),
                        .parameters = salesPeriodParameters(),
                        .groups = {{.by = "{Warehouse}",
                                    .heading = "\"Warehouse \" & {Warehouse}",
                                    .footing = "\"Total warehouse \" & {Warehouse}"},
                                   {.by = "{PartNo}"}},
                        .columns = salesDetailColumns()});
}
