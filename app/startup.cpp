#include "app/startup.h"

#include "app/formlist.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/mainmod.h"

Program Main(const QString &programFolder)
{
    ReadConfig(programFolder + "/config.txt");
    gDatabase = DBEngine::OpenDatabase(gDatabasePath, false, false, DatabaseConnect);
    // Only now: a second instance with a bad file fails on that first.
    Program program{std::make_unique<PreviousInstance>(programFolder), nullptr};
    if (program.mark->isRunning()) {
        MsgBox("This application is already running.", "Application Already Running");
        return program;
    }
    // Before the window, whose menu greys the entries of forms that nobody knows.
    registerForms();
    program.window = std::make_unique<MDI>();
    program.window->showMaximized();
    return program;
}
