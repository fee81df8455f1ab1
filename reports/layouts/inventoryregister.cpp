#include "reports/layouts/inventoryregister.h"

namespace {

Column quantity(const QString &heading, const QString &source)
{
    return {.heading = heading, .source = source, .width = 64, .picture = Picture::Quantity};
}

std::vector<Column> detailColumns()
{
    Column qty = quantity("Qty", "{Qty}");
    qty.total = true;
    Column balance = quantity("Balance", "{#Balance}");
    balance.totalSource = "Sum({Qty}%1)";
    return {{.heading = "Date", .source = "{Date}", .width = 60, .picture = Picture::Date},
            {.heading = "Movement", .source = "{@Movement}", .width = 196},
            qty,
            balance,
            {.heading = "Cost", .source = "{Cost}", .width = 60, .picture = Picture::Money},
            {.heading = "Value",
             .source = "{#Balance} * {Cost}",
             .width = 78,
             .picture = Picture::Money,
             .totalSource = "Sum({@Value}%1)"}};
}

} // namespace

std::vector<NamedFormula> registerFormulas()
{
    return {{"Movement", "if {Memo} = \"*Beginning Balance\" then \"Beginning balance\" else {Memo}"},
            {"Beginning", "if {Memo} = \"*Beginning Balance\" then {Qty} else 0"},
            {"In", "if {Memo} <> \"*Beginning Balance\" and {Qty} > 0 then {Qty} else 0"},
            {"Out", "if {Memo} <> \"*Beginning Balance\" and {Qty} < 0 then -{Qty} else 0"},
            {"Value", "{Qty} * {Cost}"}};
}

std::vector<Column> registerTotalColumns(const QString &innerField, const QString &innerHeading)
{
    const auto sum = [&](const QString &of) { return "Sum(" + of + ", " + innerField + ")"; };
    return {
        {.heading = innerHeading, .source = innerField, .width = 150},
        quantity("Beginning", sum("{@Beginning}")),
        quantity("In", sum("{@In}")),
        quantity("Out", sum("{@Out}")),
        quantity("Balance", sum("{Qty}")),
        {.heading = "Cost", .source = "Maximum({Cost}, " + innerField + ")", .width = 60, .picture = Picture::Money},
        {.heading = "Value", .source = sum("{@Value}"), .width = 78, .picture = Picture::Money}};
}

Layout inventoryRegister(const QString &title, const TableGroup &outer, const QString &innerField,
                         const QString &innerHeading)
{
    const QString subtitle = "\"From \" & {?txtBeginDate} & \" to \" & {?txtEndDate} & \", value at present cost\"";
    Layout layout =
        tableLayout({.title = title,
                     .subtitle = subtitle,
                     .parameters = {{"txtBeginDate"}, {"txtEndDate"}},
                     .formulas = registerFormulas(),
                     .runningTotals = {{.name = "Balance", .of = "{Qty}", .resetAt = 1}},
                     .groups = {outer, {.by = innerField, .footing = "\"Ending balance \" & " + innerField}},
                     .columns = detailColumns()});
    sectionNamed(layout, "secGroupHeader2").name = "secPart";
    sectionNamed(layout, "secGroupFooter2").name = "secPartTotal";

    Layout totals =
        tableLayout({.title = title, .columns = registerTotalColumns(innerField, innerHeading), .grandTotal = ""});
    Section heads = sectionNamed(totals, "secHeads");
    heads.name = "secTotalsHeads";
    Section line = sectionNamed(totals, "secDetail");
    line.kind = Section::Kind::GroupFooter;
    line.group = 1;
    line.name = "secTotals";
    const auto behindHeads = std::find_if(layout.sections.begin(), layout.sections.end(),
                                          [](const Section &section) { return section.name == "secHeads"; });
    layout.sections.insert(behindHeads + 1, heads);
    layout.sections.push_back(line);
    return layout;
}
