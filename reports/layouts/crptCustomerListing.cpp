#include "reports/layouts/layoutbuilder.h"
#include "reports/layouts/layouts.h"

/// The place of a ship-to address under the customer's own line.
static Section shipToSection(double width)
{
    const TextStyle style{.size = 7.5, .color = House::Faint};
    const LayoutObject address = wrapping(
        value({20, 0, width - 20, 0},
              "\"Ship to \" & {ShipTo} & (if Trim({ShipToAddress1}) <> \"\" then \", \" & {ShipToAddress1}) & "
              "(if Trim({ShipToAddress2}) <> \"\" then \", \" & {ShipToAddress2}) & (if Trim({ShipToCity}) <> \"\" "
              "then \", \" & "
              "{ShipToCity}) & (if Trim({ShipToState}) <> \"\" then \", \" & {ShipToState}) & \" \" & {ShipToZip} & "
              "(if Trim({ShipToPhone}) <> \"\" then \"     Phone \" & {ShipToPhone}) & "
              "(if Trim({ShipToFax}) <> \"\" then \"     Fax \" & {ShipToFax})",
              style));
    return {.kind = Section::Kind::Detail,
            .name = "secShipTo",
            .height = lineHeight(style.size) + 3,
            .objects = {address},
            .suppressIf = "Trim({ShipTo} & {ShipToAddress1} & {ShipToCity}) = \"\""};
}

/// All customers with terms and addresses, the active ones first; a second line for the ship-to address.
Layout crptCustomerListing()
{
    Layout layout =
        tableLayout({.title = "Customer Listing",
                     .landscape = true,
                     .groups = {{.by = "{Status}", .none = "No status", .counted = "customer"}},
                     .columns = {{.heading = "Customer", .source = "{Customer}", .width = 136},
                                 {.heading = "Address",
                                  .source = "{Address1} & (if Trim({Address2}) <> \"\" then \"\n\" & {Address2})",
                                  .width = 126},
                                 {.heading = "City", .source = "{City}", .width = 66},
                                 {.heading = "State", .source = "{State}", .width = 28},
                                 {.heading = "Zip", .source = "{Zip}", .width = 38},
                                 {.heading = "Phone", .source = "{Phone}", .width = 70},
                                 {.heading = "Fax", .source = "{Fax}", .width = 70},
                                 {.heading = "Terms", .source = "{Terms}", .width = 74},
                                 {.heading = "Days", .source = "{Days}", .width = 24, .picture = Picture::Whole},
                                 {.heading = "Price sheet", .source = "{PriceSheet}", .width = 56},
                                 {.heading = "Territory", .source = "{Territory}", .width = 56},
                                 {.heading = "Added",
                                  .source = "{DateAdded}",
                                  .width = 48,
                                  .picture = Picture::Date,
                                  .align = Align::Right}},
                     .grandTotal = "\"All: \" & " + countOf("RecordCount", "customer"),
                     .textSize = 8});
    const auto detail = std::find_if(layout.sections.begin(), layout.sections.end(),
                                     [](const Section &section) { return section.name == "secDetail"; });
    layout.sections.insert(detail + 1, shipToSection(layout.width()));
    return layout;
}
