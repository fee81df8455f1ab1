#include "reportengine/output/exports.h"
#include "reportengine/output/printing.h"
#include "reports/layouts/catalogue.h"
#include "tests/support/company.h"
#include "tests/support/samplerows.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/mainmod.h"
#include <QMessageBox>
#include <QTimer>
#include <sys/syscall.h>
#include <unistd.h>

namespace {
int syncs = 0;
}

/// Stands before the system's own, which SQLite calls for every sync.
extern "C" int fdatasync(int file)
{
    ++syncs;
    return int(syscall(SYS_fdatasync, file));
}

namespace {

using GoingOut = CompanyTest;

TEST_F(GoingOut, WhatWasWrittenOrReadIsSafeBeforeABoxADocumentOrAnExport)
{
    const QTemporaryDir folder;
    int round = 0;
    bool safe = false; // when the thing went out: synced in a file, there for others on a server
    const auto notice = [&] {
        safe = database.isOnServer()
                   ? database.plain(QString("SELECT COUNT(*) FROM \"Part\" WHERE \"Cost\" <> %1").arg(round)) == "0"
                   : syncs > 0;
    };
    Report report(newReport("crptPackingSlip"));
    MadeRows rows = sampleRows("crptPackingSlip", 3);
    report.SetDataSource(rows);
    report.ReadRecords();
    setPrintDestination([&](Report &, int) {
        notice();
        return true;
    });
    const auto box = [&](const char *button, const std::function<void()> &show) {
        boxes.expect("Title", "Prompt", button);
        QTimer::singleShot(0, qApp, notice);
        show();
    };
    const std::pair<const char *, std::function<void()>> ways[] = {
        {"box", [&] { box("OK", [] { MsgBox("Prompt", "Title"); }); }},
        {"question", [&] { box("Yes", [] { MsgBoxYesNo("Prompt", "Title"); }); }},
        {"document", [&] { PrintOut(report); }},
        {"export",
         [&] {
             EXPECT_TRUE(exportReport(report, folder.filePath("slip.csv")));
             notice();
         }},
    };
    const auto otherProcess = DBEngine::OpenDatabase(database.path(), false, false, DatabaseConnect);
    for (Database *writer : {gDatabase.get(), otherProcess.get()}) {
        for (const auto &[what, goOut] : ways) {
            SCOPED_TRACE(what);
            writer->Execute(QString("UPDATE Part SET Cost = %1").arg(++round));
            gDatabase->OpenRecordset("SELECT Cost FROM Part").Eof();
            syncs = 0;
            safe = false;
            goOut();
            EXPECT_TRUE(safe);
            goOut();
            EXPECT_TRUE(database.isOnServer() || syncs == 1) << "synced again, with nothing new";
        }
    }
    database.execute(QString("UPDATE Part SET Cost = %1").arg(++round));
    syncs = 0;
    QCoreApplication::postEvent(qApp, new QEvent(QEvent::User));
    QCoreApplication::processEvents();
    notice();
    EXPECT_TRUE(safe) << "an event routine that wrote has ended";
    setPrintDestination({});
}

} // namespace
