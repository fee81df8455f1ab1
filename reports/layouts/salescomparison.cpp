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
    columns.back().blankIf = "IsNull({" + sales + "})";
}

/// Growth of sales against last year; blank where last year had none.
void addGrowth(std::vector<Column> &columns, const QString &period, const QString &sales, const QString &lastYear)
{
    columns.push_back(
        {.heading = "Growth",
         .source = QString("if IsNull({%2}) then {%2} else if {%2} = 0 then 0 else if IsNull({%1}) then -1 else "
                           "({%1} - {%2}) / {%2}")
                       .arg(sales, lastYear),
         .width = 30,
         .picture = Picture::Percent,
         .totalSource = "if Sum({" + lastYear + "}%1) = 0 then 0 else (Sum({" + sales + "}%1) - Sum({" + lastYear +
                        "}%1)) / Sum({" + lastYear + "}%1)",
         .over = period});
}

} // namespace

Layout salesComparison(const QString &title, std::vector<TableGroup> groups)
{
    std::vector<Column> columns = {{.heading = "Customer", .source = "{Customer}", .width = 104}};
    addPeriod(columns, "Period", "CPS", "CPC");
    addPeriod(columns, "Same period last year", "LPS", "LPC");
    addGrowth(columns, "", "CPS", "LPS");
    addPeriod(columns, "Year to date", "TYTDS", "TYTDC");
    addPeriod(columns, "Last year to date", "LYTDS", "LYTDC");
    addGrowth(columns, "", "TYTDS", "LYTDS");
    return tableLayout({.title = title,
                        .subtitle = salesPeriodSubtitle(),
                        .landscape = true,
                        .parameters = salesPeriodParameters(),
                        .groups = std::move(groups),
                        .columns = columns,
                        .textSize = 7,
                        .gap = 4,
                        .ruled = true});
}
