#include "app/appearance.h"
#include "app/application.h"
#include "bench/pictures/studio.h"
#include "data/values/runtimeerror.h"
#include <cstdio>

/// tamrick-pictures FOLDER [SCALE]: windows as PNG, reports as PDF, of a demo company of that scale. From 10 on the
/// reports are long enough to judge their later pages.
int main(int argc, char **argv)
{
    if (argc != 2 && argc != 3) {
        std::fputs("usage: tamrick-pictures FOLDER [SCALE]\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    setAppearance(application);
    // A caret that blinks would be in a picture or not, as the machine is busy or not.
    QApplication::setCursorFlashTime(0);
    try {
        Studio studio(QDir(QString::fromLocal8Bit(argv[1])), argc == 3 ? std::atoi(argv[2]) : 1);
        takeWindows(studio);
        takeDocuments(studio);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
    return 0;
}
