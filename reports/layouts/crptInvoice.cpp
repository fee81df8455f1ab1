#include "reports/layouts/document.h"
#include "reports/layouts/layouts.h"

// The bill: by order and shipment the lines that were shipped, freight and adjustment once for each shipment, and the
// total as the routine reckoned it. Every amount is printed to the cent, and what is printed adds up to that total.

namespace {

using Kind = Section::Kind;
const TextStyle Normal{.size = 9.5, .color = House::Ink};
const TextStyle Strong{.size = 9.5, .bold = true, .color = House::Ink};

/// With one shipment the recapitulation says all that could stand under the shipment.
const QString OneShipment = "Minimum({SHIPMENT.ID}) = Maximum({SHIPMENT.ID})";
const QString ShipToText =
    "{ShipTo} & {ShipToAddress1} & {ShipToAddress2} & {ShipToCity} & {ShipToState} & {ShipToZip}";

/// Where the orders went to different places the head can't name one, and each order names its own.
const QString OnePlace = "Minimum(" + ShipToText + ") = Maximum(" + ShipToText + ")";

Section orderHeader(double width)
{
    const QString order =
        "\"Order \" & {OrderNumber} & \" (ID \" & {Orders.ID} & \") of \" & ToText({OrderDate}, \"M/d/yyyy\") & "
        "(if {Warehouse} <> \"\" then \", from \" & {Warehouse}) & "
        "(if InRepeatedGroupHeader then \" (continued)\")";
    return {.kind = Kind::GroupHeader,
            .group = 0,
            .height = 19,
            .objects = {wrapping(value({0, 5, width, 0}, order, {.size = 10, .bold = true, .color = House::Ink}))}};
}

Section orderPlace(double width)
{
    const QString then = " & (if {%1} <> \"\" then \", \" & {%1})";
    const QString place = "\"Shipped to \" & {ShipTo}" + then.arg("ShipToAddress1") + then.arg("ShipToAddress2") +
                          then.arg("ShipToCity") + then.arg("ShipToState") + " & \" \" & {ShipToZip}";
    return {.kind = Kind::GroupHeader,
            .group = 0,
            .height = 13,
            .objects = {wrapping(value({0, 0, width, 0}, place, {.size = 9, .color = House::Faint}))},
            .suppressIf = OnePlace + " or InRepeatedGroupHeader"};
}

Section shipmentHeader(double width)
{
    const QString shipment = "\"Shipment \" & {SHIPMENT.ID} & \" of \" & ToText({Date}, \"M/d/yyyy\") & "
                             "(if {Via} <> \"\" then \" via \" & {Via})";
    return {.kind = Kind::GroupHeader,
            .group = 1,
            .height = 16,
            .objects = {wrapping(value({0, 2, width, 0}, shipment, {.size = 9, .color = House::Faint})),
                        line({0, 15}, {width, 15}, 0.25)}};
}

Section invoiceLine()
{
    return {.kind = Kind::Detail,
            .name = "secDetail",
            .height = 15,
            .objects = {value({0, 1.5, 24, 0}, "{ItemNumber}", Normal, Align::Right),
                        wrapping(value({30, 1.5, 104, 0}, "{PartNo}", Normal)),
                        wrapping(value({140, 1.5, 88, 0}, "{Category}", Normal)),
                        wrapping(value({232, 1.5, 76, 0}, "{CustomerNumber}", Normal)),
                        value({312, 1.5, 42, 0}, "{OrderItem.Qty}", Normal, Align::Right, Picture::Quantity),
                        value({360, 1.5, 44, 0}, "{ShipmentItems.Qty}", Normal, Align::Right, Picture::Quantity),
                        value({410, 1.5, 58, 0}, "{PriceEach}", Normal, Align::Right, Picture::Price),
                        value({474, 1.5, 66, 0}, "{@Amount}", Normal, Align::Right, Picture::Money)}};
}

/// A line of the amounts under a shipment.
Section shipmentAmount(const QString &caption, const QString &source, const QString &suppressIf)
{
    return {.kind = Kind::GroupFooter,
            .group = 1,
            .height = 14,
            .objects = {text({298, 1, 170, 0}, caption, Normal, Align::Right),
                        value({474, 1, 66, 0}, source, Normal, Align::Right, Picture::Money)},
            .suppressIf = OneShipment + suppressIf};
}

Section goods()
{
    Section section = shipmentAmount("Goods", "Sum({@Amount}, {SHIPMENT.ID})", "");
    section.height = 18;
    for (LayoutObject &object : section.objects)
        object.place.translate(0, 3);
    section.objects.push_back(line({474, 2}, {540, 2}, 0.5));
    return section;
}

/// What the total is made of. The routine's total takes in shipments that have no lines, which are not among the rows:
/// what they add is the difference that no rounding explains.
std::vector<NamedFormula> amountFormulas()
{
    return {{"Exact", "{ShipmentItems.Qty} * {PriceEach}"},
            {"Amount", "Round({@Exact}, 2)"},
            {"Freight", "Round({Freight}, 2)"},
            {"Adjustment", "Round({Adjustment}, 2)"},
            {"Charges", "{Freight} + {Adjustment}"},
            {"Listed", "Sum({@Amount}) + {#Freight} + {#Adjustment}"},
            {"Total", "if {?txtTotal} = \"\" then {@Listed} else CDbl({?txtTotal})"},
            {"Beyond", "{@Total} - Sum({@Exact}) - {#Charges}"},
            // A cent is what rounding can bring about; more than that is a shipment without lines.
            {"Unlisted", "if Abs({@Beyond}) < 0.0101 then 0 else Round({@Beyond}, 2)"},
            {"Rounding", "Round({@Total} - {@Listed} - {@Unlisted}, 2)"}};
}

Section recapLine(const QString &caption, const QString &source, bool always = false)
{
    return {.kind = Kind::ReportFooter,
            .height = 14,
            .objects = {text({198, 1, 270, 0}, caption, Strong, Align::Right),
                        value({474, 1, 66, 0}, source, Strong, Align::Right, Picture::Money)},
            .suppressIf = always ? QString() : source + " = 0"};
}

Section recapRule(double width)
{
    return {.kind = Kind::ReportFooter, .height = 10, .objects = {line({298, 6}, {width, 6}, 0.8, House::Ink)}};
}

Section total(double width)
{
    Section section{.kind = Kind::ReportFooter, .name = "secTotal", .height = 40};
    const TextStyle style{.size = 13, .bold = true, .color = House::Ink};
    section.objects = {box({298, 10, width - 298, 26}, House::Tint, 0.8, House::Ink),
                       text({308, 15, 100, 0}, "Total", style),
                       value({400, 15, width - 408, 0}, "{?txtTotal}", style, Align::Right)};
    return section;
}

} // namespace

Layout crptInvoice()
{
    Layout layout{.title = "Invoice",
                  .parameters = {{"txtInvoiceNumber"}, {"txtInvoiceDate"}, {"txtTerms"}, {"txtTotal"}},
                  .formulas = amountFormulas(),
                  .runningTotals = {{.name = "Freight", .of = "{@Freight}", .oncePer = 1},
                                    {.name = "Adjustment", .of = "{@Adjustment}", .oncePer = 1},
                                    {.name = "Charges", .of = "{@Charges}", .oncePer = 1}},
                  .groups = {{.by = "{Orders.ID}", .label = "\"Order \" & {OrderNumber}"},
                             {.by = "{SHIPMENT.ID}", .label = "\"Shipment \" & {SHIPMENT.ID}"}}};
    const double width = layout.width();
    layout.sections = documentHead(
        {.title = layout.title,
         .particulars = {{"Invoice number", value({}, "{?txtInvoiceNumber}")},
                         {"Invoice date", value({}, "{?txtInvoiceDate}")},
                         {"Terms", value({}, "{?txtTerms}")}},
         .windowCaption = "Bill to",
         .windowAddress = customerAddress(),
         .besideCaption = "Ship to",
         .besideAddress = "if " + OnePlace + " then " + shipToAddress() + " else \"As told with each order\"",
         .continuation = "\"Invoice \" & {?txtInvoiceNumber}"},
        width);
    layout.sections.push_back(documentColumns(
        {text({0, 0, 24, 0}, "Line", {}, Align::Right), text({30, 0, 104, 0}, "Part"),
         text({140, 0, 88, 0}, "Category"), text({232, 0, 76, 0}, "Your number"),
         text({312, 0, 42, 0}, "Ordered", {}, Align::Right), text({360, 0, 44, 0}, "Shipped", {}, Align::Right),
         text({410, 0, 58, 0}, "Price", {}, Align::Right), text({474, 0, 66, 0}, "Amount", {}, Align::Right)},
        width));
    for (const Section &section : {orderHeader(width), orderPlace(width), shipmentHeader(width), invoiceLine(), goods(),
                                   shipmentAmount("Freight", "{@Freight}", " or {@Freight} = 0"),
                                   shipmentAmount("Adjustment", "{@Adjustment}", " or {@Adjustment} = 0"),
                                   recapRule(width), recapLine("Goods", "Sum({@Amount})", true),
                                   recapLine("Freight", "{#Freight}"), recapLine("Adjustments", "{#Adjustment}"),
                                   recapLine("Freight and adjustments of shipments without lines", "{@Unlisted}"),
                                   recapLine("Rounding", "{@Rounding}"), total(width), pageFooter(width, layout.title)})
        layout.sections.push_back(section);
    return layout;
}
