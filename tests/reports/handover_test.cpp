// What all routines share: the pointer, the windows, and the whole catalogue.

#include "data/dao/createdatabase.h"
#include "data/schema/schema.h"
#include "reports/layouts/catalogue.h"
#include "tests/reports/oldworkbooks.h"
#include "tests/support/reportruns.h"
#include "toolkit/forms/mainmod.h"
#include "tools/demo.h"

namespace {

using Catalogue = OldWorkbooks;

TEST_F(Catalogue, EveryReportRunsOnAFullDatabaseAndOnAnEmptyOneUnderTheHourglassThatItOwns)
{
    write("empty.xlsx", {{}});
    name({"", "", path("empty.xlsx"), path("empty.xlsx"), path("empty.xlsx")});
    bool hourglass = false; // when the window was shown
    Forms::setHost([&](Form *form) {
        hourglass = QGuiApplication::overrideCursor() != nullptr;
        form->setParent(mdi.get());
    });
    // An invoice's freight is Null without a shipment, and a transfer has no first row.
    const std::map<QString, int> errors{{"crptInvoice", 94}, {"crptInventoryTransferControlReport", 3021}};
    QSet<QString> designers;
    for (const bool full : {true, false}) {
        Forms::unloadAll();
        database.replaceBy([full](const QString &name) {
            if (full)
                createDemo(name, {1, 3, QDate(2010, 12, 31)});
            else
                createDatabase(name, Schema::Password.toString());
        });
        for (const ReportRun &run : reportRuns()) {
            SCOPED_TRACE(run.designer);
            if (!full && errors.contains(run.designer)) {
                expectRuntimeError(errors.at(run.designer), run.routine);
                continue;
            }
            run.routine();
            EXPECT_EQ(hourglass, run.ownsPointer);
            EXPECT_FALSE(QGuiApplication::overrideCursor());
            EXPECT_EQ(report().dataset().size(), reportDesign(run.designer).dataset.size());
            EXPECT_EQ(report().layout().title, reportDesign(run.designer).layout().title);
            EXPECT_TRUE(full || rows().isEmpty());
            designers += run.designer;
        }
    }
    EXPECT_EQ(designers.size(), qsizetype(reportCatalogue().size()));
}

} // namespace
