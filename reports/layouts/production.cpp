#include "reports/layouts/production.h"

namespace {

Column quantity(const QString &heading, const QString &source)
{
    return {.heading = heading, .source = source, .width = 66, .picture = Picture::Quantity, .total = true};
}

/// What goes into a figure. Its totals are taken over the rows that are shown, for the planner to add them up.
Column ingredient(const QString &heading, const QString &name, const QString &source)
{
    Column column = quantity(heading, source);
    column.totalSource = "Sum({@Shown" + name + "}%1)";
    return column;
}

/// The same with two decimals, for averages.
Column average(const QString &heading, const QString &name)
{
    Column column = ingredient(heading, name, "{@" + name + "}");
    column.picture = Picture::Money;
    return column;
}

} // namespace

Layout productionLayout(const QString &title, const TableGroup &group, const Column &first)
{
    Column requirement = quantity("To\nproduce", "{@Req}");
    requirement.picture = Picture::Whole;
    Layout layout = tableLayout(
        {.title = title,
         .subtitle = "{@Explanation}",
         .parameters = {{"txtMonths"}, {"txtReq"}},
         // Rounded to a millionth before it is taken up to whole units, so that 10 / 3 * 3 asks for 10 and not 11.
         .formulas = {{"Average", "if {Months} = 0 then 0 else {SumQtySold} / {Months}"},
                      {"Wanted", "if {Months} = 0 then 0 else {SumQtySold} * {Req} / {Months}"},
                      {"Req", "if {@Wanted} + {SumQtyCommitted} - {SumQtyOnHand} <= 0 then 0 else "
                              "-Int(-Round({@Wanted} + {SumQtyCommitted} - {SumQtyOnHand}, 6))"},
                      // Fourth and sixth in the list: the routine replaces these two by their place when blank
                      // requirements are to be left out.
                      {"SuppressRow", "false"},
                      {"Explanation", "\"Average of \" & {?txtMonths} & \" months' sales x \" & {?txtReq} & "
                                      "\" + committed - on hand, never below 0, in whole units\""},
                      {"SuppressPart", "false"},
                      {"Shown", "if {@SuppressRow} then 0 else 1"},
                      {"ShownSold", "if {@SuppressRow} then 0 else {SumQtySold}"},
                      {"ShownAverage", "if {@SuppressRow} then 0 else {@Average}"},
                      {"ShownWanted", "if {@SuppressRow} then 0 else {@Wanted}"},
                      {"ShownCommitted", "if {@SuppressRow} then 0 else {SumQtyCommitted}"},
                      {"ShownOnHand", "if {@SuppressRow} then 0 else {SumQtyOnHand}"}},
         .groups = {group},
         .columns = {first, ingredient("Sold", "Sold", "{SumQtySold}"), average("Average\na month", "Average"),
                     average("Average x\nrequirements", "Wanted"),
                     ingredient("Committed", "Committed", "{SumQtyCommitted}"),
                     ingredient("On hand", "OnHand", "{SumQtyOnHand}"), requirement},
         .suppressDetail = "{@SuppressRow}"});
    // A group none of whose rows is shown would be a heading over nothing.
    for (const char *section : {"secGroupHeader1", "secGroupFooter1"})
        sectionNamed(layout, section).suppressIf = "{@SuppressPart} or Sum({@Shown}, " + group.by + ") = 0";
    sectionNamed(layout, "secNothing").suppressIf = "Sum({@Shown}) > 0";
    return layout;
}
