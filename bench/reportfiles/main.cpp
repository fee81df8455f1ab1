#include "app/application.h"
#include "data/dao/database.h"
#include "data/values/runtimeerror.h"
#include "reportengine/output/exports.h"
#include "reportengine/viewer/crviewer.h"
#include "reportengine/viewer/viewer.h"
#include "reports/dialogs/reportforms.h"
#include "tests/support/reportruns.h"
#include "tests/support/testclock.h"
#include "tests/support/xlsxfile.h"
#include "toolkit/forms/mainmod.h"
#include <QFile>
#include <cstdio>

namespace {

/// Empty workbooks for the reports that read spreadsheets.
void writeWorkbooks(const QString &folder)
{
    const QString empty = folder + "/empty.xlsx";
    writeXlsx(empty, {{}});
    QFile settings(QCoreApplication::applicationDirPath() + "/workbooks.txt");
    if (!settings.open(QIODevice::WriteOnly))
        qFatal("cannot write %s", qPrintable(settings.fileName()));
    for (int line = 0; line < 5; ++line)
        settings.write("x," + empty.toUtf8() + "\n");
}

/// Runs the routine and writes what it shows as `name`.pdf, .xlsx and .csv; an error as `name`.error.
void write(const std::function<void()> &routine, const QString &name)
{
    Form *shown = nullptr;
    Forms::setHost([&shown](Form *form) { shown = form; });
    try {
        routine();
        Report &report = *static_cast<Viewer *>(shown)->viewer()->reportSource();
        for (const char *kind : {".pdf", ".xlsx", ".csv"}) {
            if (!exportReport(report, name + kind))
                qFatal("cannot write %s%s", qPrintable(name), kind);
        }
    } catch (const RuntimeError &error) {
        QFile file(name + ".error");
        if (file.open(QIODevice::WriteOnly))
            file.write(QString("%1 %2\n").arg(error.number()).arg(error.description()).toUtf8());
    }
    Forms::unloadAll();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

/// reportfiles DATABASE FOLDER
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    const QStringList arguments = Application::arguments();
    if (arguments.size() != 3) {
        std::fputs("usage: reportfiles DATABASE FOLDER\n", stderr);
        return 2;
    }
    const TestClock clock("2011-03-30 14:05:09");
    gDatabasePath = arguments[1];
    gDatabase = DBEngine::OpenDatabase(gDatabasePath, false, false, DatabaseConnect);
    for (const auto &[name, factory] : reportForms())
        Forms::add(name, factory);
    writeWorkbooks(arguments[2]);
    int number = 0;
    for (const ReportRun &run : reportRuns())
        write(run.routine, QString("%1/%2-%3").arg(arguments[2]).arg(++number, 2, 10, QChar('0')).arg(run.designer));
    gDatabase.reset();
    return 0;
}
