#include "reports/layouts/layoutbuilder.h"
#include "reports/layouts/layouts.h"
#include "reports/layouts/openinvoices.h"

namespace {

Column money(const QString &heading, const QString &source)
{
    return {.heading = heading, .source = source, .width = 62, .picture = Picture::Money, .total = true};
}

/// Most invoices stand in one of the ages and have neither adjustment nor receipt: nothing is left blank, so that the
/// eye finds what there is.
Column seldom(const QString &heading, const QString &source)
{
    Column column = money(heading, source);
    column.blankIf = source + " = 0";
    return column;
}

std::vector<Column> columns()
{
    return {{.heading = "Invoice", .source = "{Invoice}", .width = 46},
            {.heading = "Date", .source = "{InvoiceDate}", .width = 52, .picture = Picture::Date},
            {.heading = "Due", .source = "{DueDate}", .width = 52, .picture = Picture::Date},
            {.heading = "Terms", .source = "{Terms}", .width = 62},
            money("Invoiced", "{@Invoiced}"),
            seldom("Adjusted", "{@Adjusted}"),
            seldom("Received", "{@Received}"),
            money("Balance", "{@Balance}"),
            seldom("0 to 30", "{@Current}"),
            seldom("31 to 60", "{@Over30}"),
            seldom("61 to 90", "{@Over60}"),
            seldom("Over 90", "{@Over90}")};
}

/// The total line of a customer as a row among others, for the summary.
Section summaryLine(Section section)
{
    section.name = "secSummaryLine";
    std::erase_if(section.objects, [](const LayoutObject &object) { return object.kind == LayoutObject::Kind::Line; });
    double right = 0;
    for (LayoutObject &object : section.objects) {
        object.style.bold = false;
        object.place.moveTop(1);
        right = std::max(right, object.place.right());
        if (object.content.startsWith("\"Total \""))
            object.content = "{Customer}";
        else if (!object.content.contains("@Invoiced") && !object.content.contains("@Balance"))
            object.suppressIf = object.content + " = 0";
    }
    section.height = lineHeight(section.objects.front().style.size) + 2.5;
    section.objects.push_back(line({0, section.height}, {right, section.height}, 0.3, House::Hair));
    return section;
}

/// The summary's heads: those of the amounts, with the customer in place of the invoice's own columns.
void addSummaryHeads(Layout &layout)
{
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
                                    // The routine hides this by name like a section. It is a text instead, which is
                                    // empty when hidden, so that formulas can choose between two kinds of heads and
                                    // total lines by it.
                                    {"InvoiceHeads", "shown"}},
                     .formulas = openInvoiceFormulas(),
                     .groups = {{.by = "{Customer}",
                                 .beside = "(if Trim({Phone}) <> \"\" then \"Phone \" & {Phone}) & (if Trim({Fax}) <> "
                                           "\"\" then \"     Fax \" & {Fax})",
                                 .footing = "\"Total \" & {Customer}",
                                 .keepTogether = true}},
                     .columns = columns(),
                     .suppressDetail = "{@IsOpen} = 0",
                     .textSize = 8});

    Section &detail = sectionNamed(layout, "secDetail");
    detail.name = "Details";
    Section &header = sectionNamed(layout, "secGroupHeader1");
    header.name = "CustomerHeader";
    header.suppressIf = nothingOpen;
    Section &footer = sectionNamed(layout, "secGroupFooter1");
    Section summary = summaryLine(footer);
    footer.suppressIf = nothingOpen + " or {?InvoiceHeads} = \"\"";
    summary.suppressIf = nothingOpen + " or {?InvoiceHeads} <> \"\"";
    layout.sections.push_back(summary);
    addSummaryHeads(layout);
    return layout;
}
