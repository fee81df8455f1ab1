#include "reports/layouts/layoutbuilder.h"
#include "reports/layouts/layouts.h"

/// The amounts of one type of document, blank beside the others.
static Column amountOf(const QString &type, const QString &heading)
{
    return {.heading = heading,
            .source = "{@" + heading + "}",
            .width = 72,
            .picture = Picture::Money,
            .totalSource = "Sum({@" + heading + "}%1)",
            .blankIf = "{TranType} <> \"" + type + "\""};
}

/// The customer register: one customer's invoices, payments and adjustments in the order of their dates, with the
/// balance they leave. All amounts come positive; the type tells which way they count.
Layout crptCustomerRegister()
{
    return tableLayout({.title = "Customer Register",
                        .subtitle = "{?txtCustomer} & \"     \" & {?txtBeginDate} & \" to \" & {?txtEndDate}",
                        .parameters = {{"txtCustomer"}, {"txtBeginDate"}, {"txtEndDate"}},
                        .formulas = {{"Invoiced", "if {TranType} = \"Invoice\" then {Amount} else 0"},
                                     {"Paid", "if {TranType} = \"Payment\" then {Amount} else 0"},
                                     {"Adjusted", "if {TranType} = \"Adjustment\" then {Amount} else 0"},
                                     {"Change", "if {TranType} = \"Invoice\" then {Amount} else -{Amount}"}},
                        .runningTotals = {{.name = "Balance", .of = "{@Change}"}},
                        .columns = {{.heading = "Date", .source = "{TranDate}", .width = 58, .picture = Picture::Date},
                                    {.heading = "Type", .source = "{TranType}", .width = 64},
                                    {.heading = "Invoice", .source = "{InvoiceNumber}", .width = 52},
                                    {.heading = "Document", .source = "{ID}", .width = 52},
                                    amountOf("Invoice", "Invoiced"),
                                    amountOf("Payment", "Paid"),
                                    amountOf("Adjustment", "Adjusted"),
                                    {.heading = "Balance\nof the period",
                                     .source = "{#Balance}",
                                     .width = 80,
                                     .picture = Picture::Money,
                                     .totalSource = "Sum({@Change}%1)"}},
                        .grandTotal = "\"Total of the period\""});
}
