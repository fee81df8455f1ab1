#include "app/shell/application.h"
#include "app/shell/mdi.h"
#include "app/shell/startup.h"
#include "app/toolkit/mainmod.h"
#include "app/toolkit/msgbox.h"
#include "data/values/runtimeerror.h"

int main(int argc, char **argv)
{
    Application application(argc, argv);
    std::unique_ptr<MDI> window;
    try {
        window = Main();
    } catch (const RuntimeError &error) {
        showRuntimeError(error);
        Application::end(EXIT_FAILURE);
    }
    const int status = window ? Application::exec() : EXIT_SUCCESS;
    window.reset();
    gDatabase.reset();
    return status;
}
