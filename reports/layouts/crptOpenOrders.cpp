#include "reports/layouts/layoutbuilder.h"
#include "reports/layouts/layouts.h"

namespace {

/// "Ship to Name, Address, City, State Zip" without the parts that are empty.
QString addressLine(const QString &caption, const QString &name, const QString &prefix)
{
    QString line = "\"" + caption + " \" & {" + name + "}";
    for (const char *part : {"Address1", "Address2", "City", "State"})
        line += QString(" & (if Trim({%1}) <> \"\" then \", \" & {%1})").arg(prefix + part);
    return line + " & \" \" & {" + prefix + "Zip}";
}

/// An order without lines comes as one row without an item.
const QString NoLine = "IsNull({ItemNumber})";

} // namespace

/// All open orders with ordered, shipped and remaining quantity of each line, grouped by order.
Layout crptOpenOrders()
{
    Layout layout = tableLayout(
        {.title = "Open Orders",
         .formulas = {{"Remaining", "{Qty} - {Shipped}"}},
         .groups =
             {{.by = "{ID}",
               .heading =
                   "\"Order \" & {OrderNumber} & \" (ID \" & {ID} & \")     \" & {Customer} & \"     ordered \" & "
                   "ToText({OrderDate}) & (if " +
                   NoLine + " then \"     no lines\")",
               .footing = "\"Total order \" & {OrderNumber}",
               .label = "{OrderNumber} & \", \" & {Customer}",
               .keepTogether = true}},
         .columns = {
             {.heading = "Item", .source = "{ItemNumber}", .width = 30, .picture = Picture::Whole},
             {.heading = "Part No.", .source = "{PartNo}", .width = 86},
             {.heading = "Category", .source = "{Category}", .width = 112},
             {.heading = "Customer's No.", .source = "{CustomerNumber}", .width = 88},
             {.heading = "Ordered", .source = "{Qty}", .width = 54, .picture = Picture::Quantity, .total = true},
             {.heading = "Shipped", .source = "{Shipped}", .width = 54, .picture = Picture::Quantity, .total = true},
             {.heading = "Remaining",
              .source = "{@Remaining}",
              .width = 58,
              .picture = Picture::Quantity,
              .total = true}}});
    sectionNamed(layout, "secDetail").suppressIf = sectionNamed(layout, "secGroupFooter1").suppressIf = NoLine;
    const TextStyle small{.size = 8, .color = House::Faint};
    const double high = lineHeight(small.size);
    Section &header = sectionNamed(layout, "secGroupHeader1");
    header.objects.push_back(
        wrapping(value({0, header.height, layout.width(), 0}, addressLine("Bill to", "Customer", ""), small)));
    header.objects.push_back(wrapping(
        value({0, header.height + high, layout.width(), 0}, addressLine("Ship to", "ShipTo", "ShipTo"), small)));
    header.height += 2 * high + 2;
    return layout;
}
