#include "reports/layouts/layouts.h"
#include "reports/layouts/production.h"

Layout crptProductionPartWhse()
{
    Layout layout = productionLayout("Production By Part/Whse",
                                     {.by = "{PartNo}",
                                      .heading = "\"Part \" & {PartNo}",
                                      .footing = "\"Total part \" & {PartNo}",
                                      .keepTogether = true},
                                     {.heading = "Warehouse", .source = "{Warehouse}", .width = 120});
    sectionNamed(layout, "secGroupHeader1").suppressIf = "{@SuppressPart}";
    sectionNamed(layout, "secGroupFooter1").suppressIf = "{@SuppressPart}";
    return layout;
}
