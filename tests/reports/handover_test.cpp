// What all routines share: the pointer, the windows, and the whole catalogue.

#include "data/dao/createdatabase.h"
#include "data/schema/schema.h"
#include "reportengine/pages/page.h"
#include "reportengine/pages/reportpages.h"
#include "reportengine/viewer/crviewer.h"
#include "reportengine/viewer/viewer.h"
#include "reports/inventoryregisters.h"
#include "reports/layouts/catalogue.h"
#include "tests/reports/reporttest.h"
#include "tests/reports/xlsxfile.h"
#include "tests/support/pagefaults.h"
#include "tests/support/reportruns.h"
#include "toolkit/forms/mainmod.h"
#include "tools/demo.h"
#include <QFile>
#include <QGuiApplication>

namespace {

/// The three workbooks of the old stock reports, empty, and `workbooks.txt`.
class Catalogue : public ReportTest
{
protected:
    Catalogue()
    {
        XlsxFile::write(folder.filePath("empty.xlsx"), {{}});
        QFile file(settingsFile());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        const QByteArray line = "x," + folder.filePath("empty.xlsx").toUtf8() + "\n";
        file.write("x,\nx,\n" + line + line + line);
    }
    ~Catalogue() override { QFile::remove(settingsFile()); }

    QString settingsFile() const { return program.filePath("workbooks.txt"); }

    void openDatabase(bool full)
    {
        database.replaceBy([full](const QString &name) {
            if (full)
                createDemo(name, {1, 3, QDate(2010, 12, 31)});
            else
                createDatabase(name, Schema::Password.toString());
        });
    }

    /// The first pages and the last are as a page should be.
    void expectGoodPages(const char *designer)
    {
        ReportPages &pages = static_cast<Viewer *>(shown.last())->viewer()->reportSource()->pages();
        const int count = pages.pageCount();
        ASSERT_GE(count, 1) << designer;
        for (int page : {0, 1, count - 1}) {
            if (page >= count)
                continue;
            const auto made = pages.page(page);
            EXPECT_EQ(pageFaults(*made, report().layout().margins), QStringList()) << designer << ", page " << page;
            EXPECT_FALSE(made->texts().isEmpty()) << designer;
        }
    }

    ProgramFolder program;
    QTemporaryDir folder;
};

TEST_F(Catalogue, EveryReportRunsOnAFullDatabaseAndTheHourglassStandsWhereItsRoutineOwnsThePointer)
{
    openDatabase(true);
    bool hourglass = false;
    Forms::setHost([&](Form *form) {
        hourglass = QGuiApplication::overrideCursor() != nullptr;
        shown += form;
    });
    QStringList designers;
    for (const ReportRun &run : reportRuns()) {
        run.routine();
        EXPECT_EQ(hourglass, run.ownsPointer) << run.designer;
        EXPECT_FALSE(QGuiApplication::overrideCursor()) << run.designer;
        EXPECT_EQ(report().dataset().size(), reportDesign(run.designer).dataset.size()) << run.designer;
        EXPECT_EQ(report().layout().title, reportDesign(run.designer).layout().title) << run.designer;
        expectGoodPages(run.designer);
        designers += run.designer;
    }
    for (const ReportDesign &design : reportCatalogue())
        EXPECT_TRUE(designers.contains(design.designer)) << design.designer.toStdString();
}

TEST_F(Catalogue, EveryReportRunsOnAnEmptyDatabase)
{
    openDatabase(false);
    for (const ReportRun &run : reportRuns()) {
        const QString designer = run.designer;
        if (designer == "crptInvoice") {
            EXPECT_EQ(errorNumberOf(run.routine), 94) << "no shipment has any freight";
        } else if (designer == "crptInventoryTransferControlReport") {
            EXPECT_EQ(errorNumberOf(run.routine), 3021);
        } else {
            run.routine();
            EXPECT_EQ(rows(), QStringList()) << run.designer;
            expectGoodPages(run.designer);
        }
    }
}

TEST_F(Catalogue, AWindowKeepsItsDataWhenTheScratchTablesAreFilledAnew)
{
    addAdjustment("Main", "2/1/2010", "A-100", 5);
    Reports::ReportAvailableInventory("1/1/2010", "12/31/2010", true, "***All Categories***");
    const QStringList before = rows();
    Form *first = shown.last();
    Reports::ReportAvailableInventory("1/1/2011", "12/31/2011", true, "***All Categories***");
    EXPECT_NE(shown.last(), first);
    EXPECT_NE(rows(), before);
    shown += first;
    EXPECT_EQ(rows(), before);
}

} // namespace
