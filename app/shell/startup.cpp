#include "app/shell/startup.h"

#include "app/shell/forms.h"
#include "app/shell/mdi.h"
#include "app/shell/previousinstance.h"
#include "app/toolkit/mainmod.h"
#include "app/toolkit/msgbox.h"
#include <QCoreApplication>

std::unique_ptr<MDI> Main()
{
    ReadConfig();
    gDatabase = DBEngine::OpenDatabase(gDatabasePath, false, false, DatabaseConnect);
    // Only now: a second instance with a bad file fails on that first.
    static const PreviousInstance previous(QCoreApplication::applicationDirPath());
    if (previous.isRunning()) {
        MsgBox(QStringLiteral("This application is already running."), QStringLiteral("Application Already Running"));
        return nullptr;
    }
    registerForms();
    auto window = std::make_unique<MDI>();
    window->show();
    return window;
}
