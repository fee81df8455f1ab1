#include "reports/layouts/inventoryregister.h"
#include "reports/layouts/layouts.h"

namespace {

TableReport flatTable(std::vector<Column> columns)
{
    columns.insert(columns.begin(), {.heading = "Warehouse", .source = "{Warehouse}", .width = 90});
    return {.title = "Available Inventory By Whse/Part",
            .subtitle = registerSubtitle(),
            .landscape = true,
            .parameters = registerParameters(),
            .formulas = registerFormulas(),
            .columns = std::move(columns),
            .grandTotal = "",
            .ruled = true,
            .exportAsTable = true};
}

} // namespace

/// The register as one flat table for a spreadsheet: a line for each warehouse and part or, should a routine ask for
/// details, for each movement. It takes the switches of the other registers, so it has their sections, the empty ones
/// included.
Layout crptAvailableInventoryExport()
{
    Layout layout =
        tableLayout(flatTable({{.heading = "Part No.", .source = "{PartNo}", .width = 90},
                               {.heading = "Date", .source = "{Date}", .width = 60, .picture = Picture::Date},
                               {.heading = "Movement", .source = "{@Movement}", .width = 140},
                               {.heading = "Qty", .source = "{Qty}", .width = 64, .picture = Picture::Quantity},
                               {.heading = "Cost", .source = "{Cost}", .width = 60, .picture = Picture::Money},
                               {.heading = "Value", .source = "{@Value}", .width = 78, .picture = Picture::Money}}));
    layout.groups = {{.by = "{Warehouse}"}, {.by = "{PartNo}"}};

    Layout totals = tableLayout(flatTable(registerTotalColumns("{PartNo}", "Part No.")));
    Section heads = sectionNamed(totals, "secHeads");
    heads.name = "secTotalsHeads";
    Section line = sectionNamed(totals, "secDetail");
    line.kind = Section::Kind::GroupFooter;
    line.group = 1;
    line.name = "secTotals";
    layout.sections.insert(layout.sections.begin() + 2, heads);
    layout.sections.push_back(line);
    layout.sections.push_back({.kind = Section::Kind::GroupHeader, .group = 1, .name = "secPart"});
    layout.sections.push_back({.kind = Section::Kind::GroupFooter, .group = 1, .name = "secPartTotal"});
    for (const char *name : {"secGroupFooter1", "secTotalsOfGroup"})
        layout.sections.push_back({.kind = Section::Kind::GroupFooter, .group = 0, .name = name});
    for (const char *name : {"secGrandTotal", "secTotalsGrandTotal"})
        layout.sections.push_back({.kind = Section::Kind::ReportFooter, .name = name});
    hideBareDocuments(layout);
    return layout;
}
