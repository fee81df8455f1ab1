#include "reports/layouts/document.h"
#include "reports/layouts/layouts.h"
#include "reports/layouts/openinvoices.h"

// A statement for each customer who owes something: addressed for a window envelope, the open invoices, what is due
// by age. Its heads are the customer's, not the page's, so that a page never begins with the name of one who owes
// nothing.

namespace {

using Kind = Section::Kind;
const TextStyle Normal{.size = 9.5, .color = House::Ink};
const TextStyle Strong{.size = 9.5, .bold = true, .color = House::Ink};
const QString NothingOpen = "Sum({@IsOpen}, {Customer}) = 0";
/// Who has paid too much is owed something, and must not read it as a bill.
const QString DueCaption = "if Sum({@Balance}, {Customer}) < 0 then \"Credit balance\" else \"Amount due\"";
const QString AmountDue = "Abs(Sum({@Balance}, {Customer}))";

Section statementLine()
{
    return {.kind = Kind::Detail,
            .name = "secDetail",
            .height = 15,
            .objects = {wrapping(value({0, 1.5, 60, 0}, "{Invoice}", Normal)),
                        value({66, 1.5, 62, 0}, "{InvoiceDate}", Normal, Align::Left, Picture::Date),
                        value({134, 1.5, 62, 0}, "{DueDate}", Normal, Align::Left, Picture::Date),
                        wrapping(value({202, 1.5, 70, 0}, "{Terms}", Normal)),
                        value({278, 1.5, 34, 0}, "{@Age}", Normal, Align::Right, Picture::Whole),
                        value({318, 1.5, 70, 0}, "{Total}", Normal, Align::Right, Picture::Money),
                        value({394, 1.5, 70, 0}, "{Adjustment} + {Received}", Normal, Align::Right, Picture::Money),
                        value({470, 1.5, 70, 0}, "{@Balance}", Normal, Align::Right, Picture::Money)},
            .suppressIf = "{@IsOpen} = 0"};
}

/// The ageing and the amount due, in one piece under the last line.
Section amountDue(double width)
{
    Section section{
        .kind = Kind::GroupFooter, .group = 0, .name = "secAmountDue", .height = 74, .suppressIf = NothingOpen};
    const std::vector<std::pair<QString, QString>> ages{{"0 to 30 days", "{@Current}"},
                                                        {"31 to 60 days", "{@Over30}"},
                                                        {"61 to 90 days", "{@Over60}"},
                                                        {"Over 90 days", "{@Over90}"}};
    const double column = 88;
    for (size_t i = 0; i < ages.size(); ++i) {
        const double x = double(i) * column;
        section.objects.push_back(
            text({x, 20, column - 10, 0}, ages[i].first, {.size = 8, .color = House::Faint}, Align::Right));
        section.objects.push_back(value({x, 33, column - 10, 0}, "Sum(" + ages[i].second + ", {Customer})", Normal,
                                        Align::Right, Picture::Money));
    }
    const TextStyle due{.size = 13, .bold = true, .color = House::Ink};
    section.objects.push_back(line({0, 6}, {width, 6}, 0.5));
    section.objects.push_back(box({364, 16, width - 364, 32}, House::Tint, 0.8, House::Ink));
    section.objects.push_back(value({372, 24, 90, 0}, DueCaption, {.size = 11, .bold = true, .color = House::Ink}));
    section.objects.push_back(value({462, 23, width - 470, 0}, AmountDue, due, Align::Right, Picture::Dollars));
    return section;
}

/// A section of a page's head as one of the customer's head.
Section ofCustomer(Section section, const QString &suppressIf)
{
    section.kind = Kind::GroupHeader;
    section.group = 0;
    section.suppressIf = suppressIf;
    return section;
}

} // namespace

Layout crptStatementReport()
{
    Layout layout{.title = "Statement",
                  .parameters = {{"txtAsOfDate"}},
                  .formulas = openInvoiceFormulas(),
                  .groups = {{.by = "{Customer}", .newPageBefore = true, .restartPageCount = true}}};
    const double width = layout.width();
    const std::vector<Section> head =
        documentHead({.title = layout.title,
                      .particulars = {{"As of", value({}, "{?txtAsOfDate}")},
                                      {"", value({}, AmountDue, {}, Align::Right, Picture::Dollars), DueCaption}},
                      .windowCaption = "Statement for",
                      .windowAddress = customerAddress(),
                      .continuation = "\"Statement for \" & {Customer} & \" as of \" & {?txtAsOfDate}"},
                     width);
    Section columns = documentColumns(
        {text({0, 0, 60, 0}, "Invoice"), text({66, 0, 62, 0}, "Date"), text({134, 0, 62, 0}, "Due"),
         text({202, 0, 70, 0}, "Terms"), text({278, 0, 34, 0}, "Days", {}, Align::Right),
         text({318, 0, 70, 0}, "Amount", {}, Align::Right), text({394, 0, 70, 0}, "Credits", {}, Align::Right),
         text({470, 0, 70, 0}, "Balance", {}, Align::Right)},
        width);
    Section nobody = nothingSection(width, "No customer who gets statements has an open balance.");
    nobody.suppressIf = "Sum({@IsOpen}) > 0";
    for (const Section &section :
         {ofCustomer(head[0], NothingOpen + " or InRepeatedGroupHeader"),
          ofCustomer(head[1], NothingOpen + " or not InRepeatedGroupHeader"), ofCustomer(columns, NothingOpen),
          statementLine(), amountDue(width), nobody, pageFooter(width, layout.title)})
        layout.sections.push_back(section);
    return layout;
}
