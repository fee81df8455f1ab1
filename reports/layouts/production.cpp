#include "reports/layouts/production.h"

namespace {

Column quantity(const QString &heading, const QString &source)
{
    return {.heading = heading, .source = source, .width = 66, .picture = Picture::Quantity, .total = true};
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
                      {"SuppressRow", "false"},
                      {"Explanation", "\"Average of \" & {?txtMonths} & \" months' sales x \" & {?txtReq} & "
                                      "\" + committed - on hand, never below 0, in whole units\""},
                      {"SuppressPart", "false"}},
         .groups = {group},
         .columns = {first, quantity("Sold", "{SumQtySold}"), quantity("Average\na month", "{@Average}"),
                     quantity("Average x\nrequirements", "{@Wanted}"), quantity("Committed", "{SumQtyCommitted}"),
                     quantity("On hand", "{SumQtyOnHand}"), requirement},
         .suppressDetail = "{@SuppressRow}"});
    return layout;
}
