#include "reports/layouts/layoutbuilder.h"
#include "reports/layouts/layouts.h"

/// The cash receipts register: what came in, day by day, with a total to compare with the day's deposit.
Layout crptCashReceiptsReport()
{
    return tableLayout(
        {.title = "Cash Receipts Register",
         .subtitle = "\"Received \" & {?txtBeginDate} & \" to \" & {?txtEndDate}",
         .parameters = {{"txtBeginDate"}, {"txtEndDate"}},
         // A payment taken over from elsewhere may carry the time of day, and belongs to its day all the same.
         .formulas = {{"Settled", "{Amount} + {Adjustment}"}, {"Day", "Date({Date})"}},
         .groups = {{.by = "{@Day}", .footing = "\"Total \" & ToText({@Day})", .header = false}},
         .columns = {
             {.heading = "Date", .source = "{Date}", .width = 56, .picture = Picture::Date},
             {.heading = "Receipt", .source = "{ID}", .width = 44},
             {.heading = "Invoice", .source = "{Invoice}", .width = 48},
             {.heading = "Customer", .source = "{Customer}", .width = 150},
             {.heading = "Invoice\ntotal", .source = "{Total}", .width = 66, .picture = Picture::Money},
             {.heading = "Amount\nreceived",
              .source = "{Amount}",
              .width = 66,
              .picture = Picture::Money,
              .total = true},
             {.heading = "Adjustment", .source = "{Adjustment}", .width = 60, .picture = Picture::Money, .total = true},
             {.heading = "Settled", .source = "{@Settled}", .width = 66, .picture = Picture::Money, .total = true}}});
}
