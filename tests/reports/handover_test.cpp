// What all routines share: the pointer, the windows, and the whole catalogue.

#include "data/dao/createdatabase.h"
#include "data/schema/schema.h"
#include "reports/inventoryregisters.h"
#include "reports/layouts/catalogue.h"
#include "tests/reports/reporttest.h"
#include "tests/reports/xlsxfile.h"
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

    ProgramFolder program;
    QTemporaryDir folder;
};

TEST_F(Catalogue, EveryReportRunsOnAFullDatabaseAndOnAnEmptyOneUnderTheHourglassThatItOwns)
{
    bool hourglass = false;
    Forms::setHost([&](Form *form) {
        hourglass = QGuiApplication::overrideCursor() != nullptr;
        shown += form;
    });
    // An invoice's freight is Null without a shipment, and a transfer has no first row.
    const std::map<QString, int> errors{{"crptInvoice", 94}, {"crptInventoryTransferControlReport", 3021}};
    QSet<QString> designers;
    for (const bool full : {true, false}) {
        Forms::unloadAll();
        openDatabase(full);
        for (const ReportRun &run : reportRuns()) {
            SCOPED_TRACE(run.designer);
            const int error = errorNumberOf(run.routine);
            EXPECT_EQ(error, full || !errors.contains(run.designer) ? 0 : errors.at(run.designer));
            if (error)
                continue;
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
