#include "tools/commandline.h"
#include <QCoreApplication>

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QTextStream out(stdout), err(stderr);
    return runCommand(application.arguments().mid(1), out, err);
}
