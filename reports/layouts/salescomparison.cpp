#include "reports/layouts/salescomparison.h"
#include "reports/layouts/salesdetail.h"

namespace {

/// Sales, cost and margin of one period out of its two dataset fields.
void addPeriod(std::vector<Column> &columns, const QString &period, const QString &sales, const QString &costs)
{
    const auto column = [&](const QString &heading, const QString &source) {
        return Column{.heading = heading,
                      .source = source,
                      .width = 42,
                      .picture = Picture::Money,
                      .total = true,
                      .over = period};
    };
    columns.push_back(column("Sales", "{" + sales + "}"));
    columns.push_back(column("Cost", "{" + costs + "}"));
    columns.push_back(column("Margin", "{" + sales + "} - {" + costs + "}"));
    columns.back().totalSource = "Sum({" + sales + "}%1) - Sum({" + costs + "}%1)";
    // A customer without sales in that period has no margin, which is something else than one of 0.
    columns.back().blankIf = "IsNull({" + sales + "})";
}

/// Growth of sales against last year; blank where last year sold nothing or took goods back, for then no percentage
/// tells anything.
void addGrowth(std::vector<Column> &columns, const QString &sales, const QString &lastYear)
{
    const auto of = [&](const char *formula, const QString &open, const QString &close) {
        return QString(formula).replace("now", open + sales + close).replace("before", open + lastYear + close);
    };
    const char *const growth = "if before < 0.005 then 0 else (now - before) / before";
    const char *const none = "before < 0.005";
    columns.push_back({.heading = "Growth",
                       .source = of(growth, "{", "}"),
                       .width = 30,
                       .picture = Picture::Percent,
                       .totalSource = of(growth, "Sum({", "}%1)"),
                       .blankIf = of(none, "{", "}"),
                       .blankTotalIf = of(none, "Sum({", "}%1)")});
}

/// The periods under comparison, as the routine takes them from the two dates: last year is the year before the end's,
/// and a 29 February that it lacks becomes the 28th.
std::vector<NamedFormula> periodFormulas()
{
    const QString lastYears = "Month(CDate(%1)) & \"/\" & "
                              "(if Day(CDate(%1)) = 29 and Month(CDate(%1)) = 2 and {@LastYear} / 4 <> "
                              "Int({@LastYear} / 4) then 28 else Day(CDate(%1))) & \"/\" & {@LastYear}";
    return {{"LastYear", "Year(CDate({?txtEndDate})) - 1"},
            {"LastBegin", lastYears.arg("{?txtBeginDate}")},
            {"LastEnd", lastYears.arg("{?txtEndDate}")},
            {"Periods",
             "\"Period \" & {?txtBeginDate} & \" to \" & {?txtEndDate} & \", against the same period last year, \" & "
             "{@LastBegin} & \" to \" & {@LastEnd} & "
             "(if CDate({@LastBegin}) > CDate({@LastEnd}) then \" (no day: it ends before it begins)\") & "
             "\"\nYear to date 1/1/\" & ({@LastYear} + 1) & \" to \" & {?txtEndDate} & "
             "\", against last year to date, 1/1/\" & {@LastYear} & \" to \" & {@LastEnd}"}};
}

} // namespace

Layout salesComparison(const QString &title, std::vector<TableGroup> groups)
{
    std::vector<Column> columns = {{.heading = "Customer", .source = "{Customer}", .width = 104}};
    addPeriod(columns, "Period", "CPS", "CPC");
    addPeriod(columns, "Same period last year", "LPS", "LPC");
    addGrowth(columns, "CPS", "LPS");
    addPeriod(columns, "Year to date", "TYTDS", "TYTDC");
    addPeriod(columns, "Last year to date", "LYTDS", "LYTDC");
    addGrowth(columns, "TYTDS", "LYTDS");
    return tableLayout({.title = title,
                        .subtitle = "{@Periods}",
                        .landscape = true,
                        .parameters = salesPeriodParameters(),
                        .formulas = periodFormulas(),
                        .groups = std::move(groups),
                        .columns = columns,
                        .textSize = 7,
                        .gap = 4,
                        .ruled = true});
}
