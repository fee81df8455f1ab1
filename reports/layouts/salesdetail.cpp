#include "reports/layouts/salesdetail.h"

std::vector<Column> salesDetailColumns()
{
    return {{.heading = "Customer", .source = "{Customer}", .width = 150},
            {.heading = "Shipment", .source = "{ID}", .width = 48},
            {.heading = "Shipped", .source = "{Date}", .width = 54, .picture = Picture::Date},
            {.heading = "Qty", .source = "{Qty}", .width = 46, .picture = Picture::Quantity, .total = true},
            {.heading = "Sales", .source = "{PriceExt}", .width = 66, .picture = Picture::Money, .total = true},
            {.heading = "Cost", .source = "{CostExt}", .width = 66, .picture = Picture::Money, .total = true},
            {.heading = "Margin",
             .source = "{PriceExt} - {CostExt}",
             .width = 66,
             .picture = Picture::Money,
             .totalSource = "Sum({PriceExt}%1) - Sum({CostExt}%1)"},
            {.heading = "Margin %",
             .source = "if {PriceExt} = 0 then 0 else ({PriceExt} - {CostExt}) / {PriceExt}",
             .width = 46,
             .picture = Picture::Percent,
             // A percentage does not add up: the total's is that of the summed amounts.
             .totalSource = "if Sum({PriceExt}%1) = 0 then 0 else "
                            "(Sum({PriceExt}%1) - Sum({CostExt}%1)) / Sum({PriceExt}%1)"}};
}

QString salesPeriodSubtitle()
{
    return "\"Invoiced \" & {?txtBeginDate} & \" to \" & {?txtEndDate}";
}

std::vector<TextParameter> salesPeriodParameters()
{
    return {{"txtBeginDate"}, {"txtEndDate"}};
}
