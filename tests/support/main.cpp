#include "app/application.h"
#include "data/values/runtimeerror.h"
#include "tests/support/printers.h"

#include <clocale>
#include <gtest/gtest.h>
#include <iostream>

namespace {

/// Some runs are made in a country that writes 1.5 as 1,5. One that isn't there must not pass for one that is.
bool enterCountry()
{
    const QByteArray country = qgetenv("TAMRICK_TEST_LOCALE");
    if (country.isEmpty())
        return true;
    qputenv("LC_ALL", country);
    return std::setlocale(LC_ALL, "") && *std::localeconv()->decimal_point == ',';
}

} // namespace

/// Every test program is the application on the offscreen platform. A run-time error in an event routine, which would
/// end the program, goes on to the test.
int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // What the machine prints on is nobody's business here: tests that print start a server of their own.
    qputenv("CUPS_SERVER", "localhost:9");
    qputenv("CUPS_SERVERROOT", "/nowhere");
    if (!enterCountry()) {
        std::cerr << "There is no locale with a decimal comma under the name " << qgetenv("TAMRICK_TEST_LOCALE").data()
                  << std::endl;
        return EXIT_FAILURE;
    }
    testing::InitGoogleTest(&argc, argv);
    Application application(argc, argv);
    Application::setErrorHandler([](const RuntimeError &error) {
        noteUnwindingThroughQt();
        throw error;
    });
    return RUN_ALL_TESTS();
}
