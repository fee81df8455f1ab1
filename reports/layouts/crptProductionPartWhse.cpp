#include "reports/layouts/layouts.h"
#include "reports/layouts/production.h"

Layout crptProductionPartWhse()
{
    return productionLayout("Production By Part/Whse",
                            {.by = "{PartNo}",
                             .heading = "\"Part \" & {PartNo}",
                             .footing = "\"Total part \" & {PartNo}",
                             .keepTogether = true},
                            {.heading = "Warehouse", .source = "{Warehouse}", .width = 120});
}
