#include "bench/campaign/child.h"

#include <QCoreApplication>

constexpr int Patience = 60000; // ms

std::unique_ptr<QProcess> startChild(const QStringList &arguments)
{
    auto child = std::make_unique<QProcess>();
    child->start(QCoreApplication::applicationFilePath(), arguments);
    child->waitForReadyRead(Patience);
    return child;
}

void go(QProcess &child)
{
    child.write("\n");
    child.waitForBytesWritten();
}

QByteArray heardFrom(QProcess &child, int lines)
{
    QByteArray heard;
    while (heard.count('\n') < lines && child.waitForReadyRead(Patience))
        heard += child.readAllStandardOutput();
    return heard;
}

bool crashServer(const QString &server, bool all)
{
    return QProcess::execute(TAMRICK_TEST_SERVER, {"crash", server, all ? "all" : "one"}) == 0;
}
