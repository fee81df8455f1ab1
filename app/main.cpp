#include "app/application.h"
#include "app/startup.h"
#include "data/values/runtimeerror.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/mainmod.h"

int main(int argc, char **argv)
{
    Application application(argc, argv);
    Program program;
    try {
        program = Main(Application::applicationDirPath());
    } catch (const RuntimeError &error) {
        showRuntimeError(error);
        Application::end(EXIT_FAILURE);
    } catch (const std::bad_alloc &) {
        showRuntimeError(runtimeError(7));
        Application::end(EXIT_FAILURE);
    }
    const int status = program.window ? Application::exec() : EXIT_SUCCESS;
    // The window before the database, which what goes with it may still need.
    program.window.reset();
    gDatabase.reset();
    return status;
}
