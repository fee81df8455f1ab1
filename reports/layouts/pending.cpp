// Plain tables of the dataset for reports whose own layout is still to come. A layout that gets its own file leaves
// this one; the file goes with the last of them.

#include "reports/layouts/catalogue.h"
#include "reports/layouts/layouts.h"
#include "reports/runtime/layoutbuilder.h"

#include <QStringList>

static Layout plainLayout(const QString &designer, const QStringList &texts)
{
    TableReport report{.title = designer.mid(4), .landscape = true, .grandTotal = ""};
    for (const QString &name : texts) {
        report.parameters.push_back({name});
        report.subtitle += (report.subtitle.isEmpty() ? "\"" : " & \"  ") + name + ": \" & {?" + name + "}";
    }
    for (const DatasetField &field : reportDesign(designer).dataset) {
        const Picture picture = isText(field.type)   ? Picture::General
                                : isDate(field.type) ? Picture::Date
                                                     : Picture::Quantity;
        report.columns.push_back({.heading = field.name, .source = "{" + field.name + "}", .picture = picture});
    }
    return tableLayout(report);
}

Layout crptStatementReport()
{
    return plainLayout("crptStatementReport", {"txtAsOfDate"});
}
