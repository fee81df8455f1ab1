#include "reports/layouts/layouts.h"
#include "reports/layouts/salesdetail.h"

/// What was invoiced in a period, part by part.
Layout crptSalesByPart()
{
    return tableLayout({.title = "Sales By Part",
                        .subtitle = salesPeriodSubtitle(),
                        .parameters = salesPeriodParameters(),
                        .groups = {{.by = "{PartNo}"}},
                        .columns = salesDetailColumns()});
}
