#include "reports/layouts/layouts.h"
#include "reports/layouts/salesdetail.h"

/// The same rows as one flat table with a heading row, for a spreadsheet.
Layout crptSalesByWhsePartExport()
{
    std::vector<Column> columns = {{.heading = "Warehouse", .source = "{Warehouse}", .width = 90},
                                   {.heading = "Part No.", .source = "{PartNo}", .width = 90}};
    for (const Column &column : salesDetailColumns())
        columns.push_back(column);
    return tableLayout({.title = "Sales By Whse/Part",
                        .subtitle = salesPeriodSubtitle(),
                        .landscape = true,
                        .parameters = salesPeriodParameters(),
                        .columns = columns,
                        .grandTotal = "",
                        .ruled = true,
                        .exportAsTable = true});
}
