#include "reports/layouts/layouts.h"
#include "reports/layouts/openinvoices.h"
#include "reports/runtime/layoutbuilder.h"

namespace {

Column money(const QString &heading, const QString &source)
{
    return {.heading = heading, .source = source, .width = 62, .picture = Picture::Money, .total = true};
}

std::vector<Column> columns()
{
    return {{.heading = "Invoice", .source = "{Invoice}", .width = 46},
            {.heading = "Date", .source = "{InvoiceDate}", .width = 52, .picture = Picture::Date},
            {.heading = "Due", .source = "{DueDate}", .width = 52, .picture = Picture::Date},
            {.heading = "Terms", .source = "{Terms}", .width = 62},
            money("Invoiced", "{@Invoiced}"),
            money("Adjusted", "{@Adjusted}"),
            money("Received", "{@Received}"),
            money("Balance", "{@Balance}"),
            money("0 to 30", "{@Current}"),
            money("31 to 60", "{@Over30}"),
            money("61 to 90", "{@Over60}"),
            money("Over 90", "{@Over90}")};
}

} // namespace

/// The accounts receivable listing: open invoices by customer, aged by the days from the invoice date to the as-of
/// date. An invoice with less than half a cent open takes no line, nor does a customer who owes nothing. Without the
/// detail sections it is one line a customer, with heads of its own.
Layout crptOpenInvoicesReport()
{
    const QString nothingOpen = "Sum({@IsOpen}, {Customer}) = 0";
    Layout layout =
        tableLayout({.title = "Accounts Receivable Listing",
                     .subtitle = "\"As of \" & {?txtAsOfDate} & {?txtOver} & {?txtOverDays} & {?txtDays}",
                     .landscape = true,
                     .parameters = {{"txtAsOfDate"},
                                    {"txtOver", "     Only customers with an open invoice over "},
                                    {"txtOverDays"},
                                    {"txtDays", " days"},
                                    {"InvoiceHeads", "shown"}},
                     .formulas = openInvoiceFormulas(),
                     .groups = {{.by = "{Customer}",
                                 .heading = "{Customer} & (if Trim({Phone}) <> \"\" then \"     Phone \" & {Phone}) & "
                                            "(if Trim({Fax}) <> \"\" then \"     Fax \" & {Fax})",
                                 .footing = "if {?InvoiceHeads} = \"\" then {Customer} else \"Total \" & {Customer}",
                                 .keepTogether = true}},
                     .columns = columns(),
                     .suppressDetail = "{@IsOpen} = 0",
                     .textSize = 8});

    Section &detail = sectionNamed(layout, "secDetail");
    detail.name = "Details";
    Section &header = sectionNamed(layout, "secGroupHeader1");
    header.name = "CustomerHeader";
    header.suppressIf = nothingOpen;
    sectionNamed(layout, "secGroupFooter1").suppressIf = nothingOpen;

    // The summary's heads: those of the amounts, with the customer in place of the invoice's own columns.
    Section &heads = sectionNamed(layout, "secHeads");
    Section summaryHeads = heads;
    heads.suppressIf = "{?InvoiceHeads} = \"\"";
    summaryHeads.name = "secSummaryHeads";
    summaryHeads.suppressIf = "{?InvoiceHeads} <> \"\"";
    for (LayoutObject &object : summaryHeads.objects) {
        if (object.content == "Invoice")
            object.content = "Customer";
        else if (object.content == "Date" || object.content == "Due" || object.content == "Terms")
            object.content.clear();
    }
    const auto behindHeads = std::find_if(layout.sections.begin(), layout.sections.end(),
                                          [](const Section &section) { return section.name == "secHeads"; });
    layout.sections.insert(behindHeads + 1, summaryHeads);
    return layout;
}
