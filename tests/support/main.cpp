#include "app/application.h"
#include "tests/support/unwinding.h"

#include <gtest/gtest.h>

/// Every test program is the application on the offscreen platform. A run-time error in an event routine, which would
/// end the program, goes on to the test.
int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    Application application(argc, argv);
    Application::setErrorHandler([](const RuntimeError &) {
        noteUnwindingThroughQt();
        throw;
    });
    return RUN_ALL_TESTS();
}
