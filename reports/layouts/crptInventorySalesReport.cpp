#include "reports/layouts/layoutbuilder.h"
#include "reports/layouts/layouts.h"

namespace {

Column quantity(const QString &heading, const QString &source)
{
    return {.heading = heading, .source = source, .width = 62, .picture = Picture::Quantity, .total = true};
}

} // namespace

/// The count of 2/28/2003 against what was shipped since, beside the stock that the movements add up to.
Layout crptInventorySalesReport()
{
    return tableLayout(
        {.title = "Inventory Sales Report",
         .subtitle = "\"Sales from \" & {?txtBeginDate} & \" to \" & {?txtEndDate}",
         .landscape = true,
         .parameters = {{"txtBeginDate"}, {"txtEndDate"}},
         .formulas = {{"Left", "{Qty} - {PrevSalesQty} - {MonthSalesQty}"}, {"Value", "{CurrentInventory} * {Cost}"}},
         .columns = {{.heading = "Part No.", .source = "{Part}", .width = 130},
                     quantity("Count\n2/28/2003", "{Qty}"),
                     quantity("Sold before\nperiod", "{PrevSalesQty}"),
                     quantity("Sold in\nperiod", "{MonthSalesQty}"),
                     quantity("Count\nless sold", "{@Left}"),
                     quantity("Current\ninventory", "{CurrentInventory}"),
                     {.heading = "Cost", .source = "{Cost}", .width = 60, .picture = Picture::Money},
                     {.heading = "Inventory\nvalue",
                      .source = "{@Value}",
                      .width = 80,
                      .picture = Picture::Money,
                      .total = true}},
         .ruled = true});
}
