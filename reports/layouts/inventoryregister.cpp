#include "reports/layouts/inventoryregister.h"

namespace {

Column quantity(const QString &heading, const QString &source)
{
    return {.heading = heading, .source = source, .width = 64, .picture = Picture::Quantity};
}

std::vector<Column> detailColumns()
{
    Column balance = quantity("Balance", "{#Balance}");
    // A balance runs line by line and does not add up; its total is that of the movements.
    balance.totalSource = "Sum({Qty}%1)";
    return {{.heading = "Date", .source = "{Date}", .width = 60, .picture = Picture::Date},
            {.heading = "Movement", .source = "{@Movement}", .width = 196},
            quantity("Qty", "{Qty}"),
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
            {"Value", "{Qty} * {Cost}"},
            // An adjustment without lines comes as one row of Nulls, by the outer join.
            {"Shown", "if Trim({PartNo}) = \"\" and IsNull({Qty}) then 0 else 1"}};
}

std::vector<TextParameter> registerParameters()
{
    return {{"txtBeginDate"}, {"txtEndDate"}, {"txtCategory"}};
}

QString registerSubtitle()
{
    return "\"From \" & {?txtBeginDate} & \" to \" & {?txtEndDate} & \", value at present cost\" & "
           "(if {?txtCategory} <> \"\" then \", category \" & {?txtCategory} & \" only\")";
}

void hideBareDocuments(Layout &layout)
{
    for (Section &section : layout.sections) {
        if (section.kind == Section::Kind::Detail)
            section.suppressIf = "{@Shown} = 0";
        else if (section.kind == Section::Kind::GroupHeader || section.kind == Section::Kind::GroupFooter)
            section.suppressIf = "Sum({@Shown}, " + layout.groups[section.group].by + ") = 0";
    }
}

std::vector<Column> registerTotalColumns(const QString &innerField, const QString &innerHeading)
{
    const auto sum = [&](const QString &heading, const QString &of) {
        Column column = quantity(heading, "Sum(" + of + ", " + innerField + ")");
        column.totalSource = "Sum(" + of + "%1)";
        return column;
    };
    Column value = sum("Value", "{@Value}");
    value.width = 78;
    value.picture = Picture::Money;
    return {
        {.heading = innerHeading, .source = innerField, .width = 150},
        sum("Beginning", "{@Beginning}"),
        sum("In", "{@In}"),
        sum("Out", "{@Out}"),
        sum("Balance", "{Qty}"),
        {.heading = "Cost", .source = "Maximum({Cost}, " + innerField + ")", .width = 60, .picture = Picture::Money},
        value};
}

Layout inventoryRegister(const QString &title, const TableGroup &outer, const QString &innerField,
                         const QString &innerHeading)
{
    Layout layout =
        tableLayout({.title = title,
                     .subtitle = registerSubtitle(),
                     .parameters = registerParameters(),
                     .formulas = registerFormulas(),
                     .runningTotals = {{.name = "Balance", .of = "{Qty}", .resetAt = 1}},
                     .groups = {outer, {.by = innerField, .footing = "\"Ending balance \" & " + innerField}},
                     .columns = detailColumns()});
    sectionNamed(layout, "secGroupHeader2").name = "secPart";
    sectionNamed(layout, "secGroupFooter2").name = "secPartTotal";

    // The totals-only form has sections of its own, down to the totals: its columns stand elsewhere.
    Layout totals = tableLayout(
        {.title = title, .groups = {outer}, .columns = registerTotalColumns(innerField, innerHeading), .ruled = true});
    const auto take = [&totals](const QString &name, const QString &as) {
        Section section = sectionNamed(totals, name);
        section.name = as;
        return section;
    };
    Section line = take("secDetail", "secTotals");
    line.kind = Section::Kind::GroupFooter;
    line.group = 1;
    const auto behindHeads = std::find_if(layout.sections.begin(), layout.sections.end(),
                                          [](const Section &section) { return section.name == "secHeads"; });
    layout.sections.insert(behindHeads + 1, take("secHeads", "secTotalsHeads"));
    layout.sections.push_back(line);
    layout.sections.push_back(take("secGroupFooter1", "secTotalsOfGroup"));
    layout.sections.push_back(take("secGrandTotal", "secTotalsGrandTotal"));
    hideBareDocuments(layout);
    return layout;
}
