#include "reports/layouts/document.h"
#include "reports/layouts/layouts.h"

// What the warehouse picks an order by: the lines by category with their bins, a box to tick off each, room to write
// what was picked, and who did it.

namespace {

using Kind = Section::Kind;
const TextStyle Normal{.size = 10, .color = House::Ink};
const TextStyle Strong{.size = 10, .bold = true, .color = House::Ink};

/// An order without lines comes as one row without a part.
const QString NoLine = "IsNull({PartNo})";

Section categoryHeader(double width)
{
    const QString category = "(if {Category} = \"\" then \"(no category)\" else {Category})";
    return {.kind = Kind::GroupHeader,
            .height = 20,
            .objects = {wrapping(value({0, 5, width, 0},
                                       category + " & (if InRepeatedGroupHeader then \" (continued)\")", Strong)),
                        line({0, 19}, {width, 19})},
            .suppressIf = NoLine};
}

Section pickLine(double width)
{
    return {.kind = Kind::Detail,
            .name = "secDetail",
            .height = 20,
            .objects = {box({4, 4.5, 10, 10}, {}, 0.8, House::Ink),
                        wrapping(value({26, 3.5, 86, 0}, "{BinLocation}", Strong)),
                        wrapping(value({118, 3.5, 212, 0}, "{PartNo}", Normal)),
                        value({336, 3.5, 36, 0}, "{ItemNumber}", Normal, Align::Right),
                        value({378, 3.5, 70, 0}, "{Qty}", Strong, Align::Right, Picture::Quantity),
                        line({462, 16}, {width - 4, 16}, 0.6, House::Ink), line({0, 20}, {width, 20}, 0.25)},
            .suppressIf = NoLine};
}

Section totals(double width)
{
    return {.kind = Kind::ReportFooter,
            .height = 24,
            .objects = {value({26, 6, 300, 0}, countOf("Count({PartNo})", "line"), Normal),
                        value({358, 6, 90, 0}, "Sum({Qty})", Strong, Align::Right, Picture::Quantity),
                        line({358, 3}, {448, 3}, 0.8, House::Ink), line({0, 3}, {width, 3}, 0.25)}};
}

Section signatures()
{
    Section section{.kind = Kind::ReportFooter, .height = 54, .atPageBottom = true};
    addSignature(section, {0, 36}, 150, "Picked by");
    addSignature(section, {164, 36}, 90, "Date");
    addSignature(section, {278, 36}, 150, "Checked by");
    addSignature(section, {442, 36}, 98, "Cartons");
    return section;
}

} // namespace

Layout crptPickTicket()
{
    Layout layout{.title = "Pick Ticket", .groups = {{.by = "{Category}"}}};
    const double width = layout.width();
    const QString phones = " & (if {ShipToPhone} <> \"\" then \"\nPhone \" & {ShipToPhone})"
                           " & (if {ShipToFax} <> \"\" then \"  Fax \" & {ShipToFax})";
    layout.sections = documentHead({.title = layout.title,
                                    .particulars = {{"Order number", value({}, "{OrderNumber}")},
                                                    {"Order ID", value({}, "{ID}")},
                                                    {"Order date", value({}, "{OrderDate}", {}, {}, Picture::Date)},
                                                    {"Due date", value({}, "{DueDate}", {}, {}, Picture::Date)},
                                                    {"Warehouse", value({}, "{Warehouse}")}},
                                    .windowCaption = "Ship to",
                                    .windowAddress = shipToAddress() + phones,
                                    .besideCaption = "Customer",
                                    .besideAddress = "{Customer}",
                                    .continuation = "\"Pick Ticket for order \" & {OrderNumber}"},
                                   width);
    layout.sections.push_back(documentColumns(
        {text({26, 0, 86, 0}, "Bin"), text({118, 0, 212, 0}, "Part"), text({336, 0, 36, 0}, "Line", {}, Align::Right),
         text({378, 0, 70, 0}, "Quantity", {}, Align::Right), text({462, 0, 78, 0}, "Picked")},
        width));
    for (const Section &section :
         {categoryHeader(width), pickLine(width), totals(width), signatures(), pageFooter(width, layout.title)})
        layout.sections.push_back(section);
    return layout;
}
