#include "app/shell/appearance.h"
#include "app/shell/application.h"
#include "data/values/runtimeerror.h"
#include "tests/pictures/studio.h"
#include <cstdio>

/// tamrick-pictures FOLDER: windows as PNG, reports as PDF.
int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fputs("usage: tamrick-pictures FOLDER\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    setAppearance(application);
    try {
        Studio studio{QDir(QString::fromLocal8Bit(argv[1]))};
        takeWindows(studio);
        takeDocuments(studio);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
