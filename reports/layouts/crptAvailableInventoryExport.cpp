#include "reports/layouts/inventoryregister.h"
#include "reports/layouts/layouts.h"

/// One flat table, a line for each warehouse and part and nothing else, for a spreadsheet. Its lines are group
/// footers; the movements themselves, which the other form of the registers shows, come out only when a routine asks
/// for details, and no one does.
Layout crptAvailableInventoryExport()
{
    std::vector<Column> columns = {{.heading = "Warehouse", .source = "{Warehouse}", .width = 90}};
    for (const Column &column : registerTotalColumns("{PartNo}", "Part No."))
        columns.push_back(column);
    Layout layout =
        tableLayout({.title = "Available Inventory By Whse/Part",
                     .subtitle = "\"From \" & {?txtBeginDate} & \" to \" & {?txtEndDate} & \", value at present cost\"",
                     .landscape = true,
                     .parameters = {{"txtBeginDate"}, {"txtEndDate"}},
                     .formulas = registerFormulas(),
                     .columns = columns,
                     .grandTotal = "",
                     .exportAsTable = true});
    layout.groups = {{.by = "{Warehouse}"}, {.by = "{PartNo}"}};
    Section &line = sectionNamed(layout, "secDetail");
    line.kind = Section::Kind::GroupFooter;
    line.group = 1;
    line.name = "secTotals";
    sectionNamed(layout, "secHeads").name = "secTotalsHeads";
    return layout;
}
