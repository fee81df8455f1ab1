#include "reports/layouts/layoutbuilder.h"
#include "reports/layouts/layouts.h"

/// The invoice register: every invoice of the period with what it is made of, a total for each month.
Layout crptARTranReport()
{
    return tableLayout(
        {.title = "Invoice Register",
         .subtitle = "\"Invoices dated \" & {?txtBeginDate} & \" to \" & {?txtEndDate}",
         .landscape = true,
         .parameters = {{"txtBeginDate"}, {"txtEndDate"}},
         // A number that sorts the months of several years.
         .formulas = {{"MonthNumber", "Year({InvoiceDate}) * 100 + Month({InvoiceDate})"},
                      {"MonthText", "ToText(Month({InvoiceDate})) & \"/\" & ToText(Year({InvoiceDate}))"},
                      {"Goods", "{Total} - {Freight} - {Adjustment}"},
                      {"Margin", "{Total} - {Freight} - {Adjustment} - {Cost}"}},
         .groups = {{.by = "{@MonthNumber}", .footing = "\"Total \" & {@MonthText}", .header = false}},
         .columns =
             {{.heading = "Date", .source = "{InvoiceDate}", .width = 52, .picture = Picture::Date},
              {.heading = "Invoice", .source = "{Invoice}", .width = 44},
              {.heading = "Customer", .source = "{Customer}", .width = 140},
              {.heading = "Due", .source = "{DueDate}", .width = 52, .picture = Picture::Date},
              {.heading = "Terms", .source = "{Terms}", .width = 70},
              {.heading = "Shipments", .source = "{Shipment}", .width = 72},
              {.heading = "Goods", .source = "{@Goods}", .width = 64, .picture = Picture::Money, .total = true},
              {.heading = "Freight", .source = "{Freight}", .width = 54, .picture = Picture::Money, .total = true},
              {.heading = "Adjustment",
               .source = "{Adjustment}",
               .width = 56,
               .picture = Picture::Money,
               .total = true},
              {.heading = "Total", .source = "{Total}", .width = 66, .picture = Picture::Money, .total = true},
              {.heading = "Cost", .source = "{Cost}", .width = 64, .picture = Picture::Money, .total = true},
              {.heading = "Margin", .source = "{@Margin}", .width = 64, .picture = Picture::Money, .total = true}},
         .textSize = 8,
         .ruled = true});
}
