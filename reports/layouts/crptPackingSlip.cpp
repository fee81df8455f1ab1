#include "reports/layouts/document.h"
#include "reports/layouts/layouts.h"

// Goes with the goods: what of the order is in this shipment, ordered beside shipped.

namespace {

using Kind = Section::Kind;
const TextStyle Normal{.size = 10, .color = House::Ink};
const TextStyle Strong{.size = 10, .bold = true, .color = House::Ink};

Section slipLine(double width)
{
    return {.kind = Kind::Detail,
            .name = "secDetail",
            .height = 17,
            .objects = {value({0, 2, 30, 0}, "{ItemNumber}", Normal, Align::Right),
                        wrapping(value({40, 2, 150, 0}, "{PartNo}", Strong)),
                        wrapping(value({196, 2, 96, 0}, "{Category}", Normal)),
                        wrapping(value({298, 2, 110, 0}, "{CustomerNumber}", Normal)),
                        value({412, 2, 60, 0}, "{OrderItem.Qty}", Normal, Align::Right, Picture::Quantity),
                        value({478, 2, 62, 0}, "{ShipmentItems.Qty}", Strong, Align::Right, Picture::Quantity),
                        line({0, 16.5}, {width, 16.5}, 0.25)}};
}

Section totals(double width)
{
    return {.kind = Kind::ReportFooter,
            .height = 24,
            .objects = {text({298, 6, 170, 0}, "Total shipped", Normal, Align::Right),
                        value({478, 6, 62, 0}, "Sum({ShipmentItems.Qty})", Strong, Align::Right, Picture::Quantity),
                        line({0, 3}, {width, 3}, 0.8, House::Ink)}};
}

Section receipt()
{
    // At the page's foot, where the driver looks for it on every slip.
    Section section{.kind = Kind::ReportFooter, .height = 66, .atPageBottom = true};
    section.objects.push_back(text({0, 4, 540, 0}, "Please check the goods against this slip when they arrive.",
                                   {.size = 9, .color = House::Faint}));
    addSignature(section, {0, 48}, 230, "Received in good order by");
    addSignature(section, {254, 48}, 110, "Date");
    return section;
}

} // namespace

Layout crptPackingSlip()
{
    Layout layout{.title = "Packing Slip"};
    const double width = layout.width();
    layout.sections = documentHead({.title = layout.title,
                                    .particulars = {{"Shipment", value({}, "{SHIPMENT.ID}")},
                                                    {"Ship date", value({}, "{Date}", {}, {}, Picture::Date)},
                                                    {"Order number", value({}, "{OrderNumber}")},
                                                    {"Order ID", value({}, "{Orders.ID}")},
                                                    {"Order date", value({}, "{OrderDate}", {}, {}, Picture::Date)}},
                                    .windowCaption = "Ship to",
                                    .windowAddress = shipToAddress(),
                                    .besideCaption = "Sold to",
                                    .besideAddress = customerAddress(),
                                    .continuation = "\"Packing Slip, shipment \" & {SHIPMENT.ID}"},
                                   width);
    layout.sections.push_back(documentColumns(
        {text({0, 0, 30, 0}, "Line", {}, Align::Right), text({40, 0, 150, 0}, "Part"),
         text({196, 0, 96, 0}, "Category"), text({298, 0, 110, 0}, "Your number"),
         text({412, 0, 60, 0}, "Ordered", {}, Align::Right), text({478, 0, 62, 0}, "Shipped", {}, Align::Right)},
        width));
    for (const Section &section : {slipLine(width), totals(width), receipt(), pageFooter(width, layout.title)})
        layout.sections.push_back(section);
    return layout;
}
