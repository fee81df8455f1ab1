#include "reports/layouts/layouts.h"
#include "reports/layouts/production.h"

Layout crptProductionWhsePart()
{
    return productionLayout("Production By Whse/Part",
                            {.by = "{Warehouse}",
                             .heading = "\"Warehouse \" & {Warehouse}",
                             .footing = "\"Total warehouse \" & {Warehouse}"},
                            {.heading = "Part No.", .source = "{PartNo}", .width = 120});
}
