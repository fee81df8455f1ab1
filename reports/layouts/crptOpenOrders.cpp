#include "reports/layouts/layoutbuilder.h"
#include "reports/layouts/layouts.h"

/// All open orders with ordered, shipped and remaining quantity of each line, grouped by order.
Layout crptOpenOrders()
{
    Layout layout = tableLayout(
        {.title = "Open Orders",
         .formulas = {{"Remaining", "{Qty} - {Shipped}"}},
         .groups = {{.by = "{ID}",
                     .heading = "\"Order \" & {OrderNumber} & \"     \" & {Customer} & \"     ordered \" & "
                                "ToText({OrderDate})",
                     .footing = "\"Total order \" & {OrderNumber}",
                     .keepTogether = true}},
         .columns = {
             {.heading = "Item", .source = "{ItemNumber}", .width = 30, .picture = Picture::Whole},
             {.heading = "Part No.", .source = "{PartNo}", .width = 86},
             {.heading = "Category", .source = "{Category}", .width = 112},
             {.heading = "Customer's No.", .source = "{CustomerNumber}", .width = 88},
             {.heading = "Ordered", .source = "{Qty}", .width = 54, .picture = Picture::Quantity, .total = true},
             {.heading = "Shipped", .source = "{Shipped}", .width = 54, .picture = Picture::Quantity, .total = true},
             {.heading = "Remaining",
              .source = "{@Remaining}",
              .width = 58,
              .picture = Picture::Quantity,
              .total = true}}});
    Section &header = sectionNamed(layout, "secGroupHeader1");
    header.objects.push_back(
        value({0, header.height, layout.width(), 0},
              "\"Ship to \" & {ShipTo} & (if Trim({ShipToAddress1}) <> \"\" then \", \" & {ShipToAddress1}) & "
              "(if Trim({ShipToAddress2}) <> \"\" then \", \" & {ShipToAddress2}) & (if Trim({ShipToCity}) <> \"\" "
              "then \", \" & "
              "{ShipToCity}) & (if Trim({ShipToState}) <> \"\" then \", \" & {ShipToState}) & \" \" & {ShipToZip}",
              {.size = 8, .color = House::Faint}));
    header.height += lineHeight(8) + 2;
    return layout;
}
