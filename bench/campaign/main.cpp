#include "bench/campaign/ledger.h"
#include "bench/campaign/worker.h"
#include "tests/support/checkpointgap.h"
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>
#include <cstdio>

namespace {

struct Settings
{
    QString journal;
    int count = 0;
    uint seed = 0;
    int gap = 0;
};

/// A worker process, started and waiting for the word to go.
std::unique_ptr<QProcess> startWorker(const QString &file, const QString &connect, const QString &name, int count,
                                      int gap = 0)
{
    auto worker = std::make_unique<QProcess>();
    worker->start(QCoreApplication::applicationFilePath(),
                  {"work", "--file", file, "--connect", connect, "--name", name, "--count", QString::number(count),
                   "--gap", QString::number(gap)});
    worker->waitForReadyRead(30000);
    return worker;
}

void go(QProcess &worker)
{
    worker.write("\n");
    worker.waitForBytesWritten();
}

int finish(const char *what, const Settings &settings, const Ledger &ledger, QStringList faults)
{
    faults += ledger.faults();
    std::printf("%s, %s journal, count %d, seed %u: %d statements reported, %d faults\n", what,
                qPrintable(settings.journal), settings.count, settings.seed, ledger.statements(), int(faults.size()));
    for (const QString &fault : faults)
        std::printf("  %s\n", qPrintable(fault));
    return faults.isEmpty() ? 0 : 1;
}

/// Kills a saving process at random moments, again and again on one file.
int kills(const Settings &settings, const QString &file, const QString &connect)
{
    QRandomGenerator random(settings.seed);
    Ledger ledger;
    QStringList faults;
    for (int kill = 0; kill < settings.count && faults.isEmpty() && ledger.faults().isEmpty(); ++kill) {
        const auto worker = startWorker(file, connect, "A", -1);
        go(*worker);
        // Counted in statements and not in time, so that a busy machine kills as deep into the saves.
        QByteArray heard;
        for (const int enough = random.bounded(1, 40); heard.count('\n') < enough && worker->waitForReadyRead(30000);)
            heard += worker->readAllStandardOutput();
        QThread::usleep(random.bounded(settings.journal == "log" ? 500 : 20000));
        worker->kill();
        worker->waitForFinished();
        heard += worker->readAllStandardOutput();
        const QByteArray errors = worker->readAllStandardError();
        if (!errors.isEmpty())
            faults += QString::fromUtf8(errors);
        ledger.add(QString::fromUtf8(heard).split('\n'));
        ledger.compare(file, kill + 1); // each kill may have cut off one promise
    }
    return finish("kills", settings, ledger, faults);
}

/// Lets two processes save documents at once.
int pair(const Settings &settings, const QString &file, const QString &connect)
{
    Ledger ledger;
    QStringList faults;
    const auto a = startWorker(file, connect, "A", settings.count);
    const auto b = startWorker(file, connect, "B", settings.count);
    for (const auto *worker : {&a, &b})
        go(**worker);
    for (const auto *worker : {&a, &b}) {
        if (!(*worker)->waitForFinished(-1) || (*worker)->exitCode() != 0)
            faults += "a worker failed: " + QString::fromUtf8((*worker)->readAllStandardError());
        ledger.add(QString::fromUtf8((*worker)->readAllStandardOutput()).split('\n'));
    }
    ledger.compare(file, 0);
    return finish("pair", settings, ledger, faults);
}

/// Lets four processes save documents at once for that many seconds, whose checkpoints dawdle where another process
/// may begin the log anew.
int checkpoints(const Settings &settings, const QString &file, const QString &connect)
{
    Ledger ledger;
    QStringList faults;
    std::vector<std::unique_ptr<QProcess>> workers;
    for (const char *name : {"A", "B", "C", "D"})
        workers.push_back(startWorker(file, connect, name, -1, settings.gap));
    for (const auto &worker : workers)
        go(*worker);
    QByteArrayList heard(qsizetype(workers.size()));
    const auto listen = [&](qsizetype i) { heard[i] += workers[size_t(i)]->readAllStandardOutput(); };
    QElapsedTimer timer;
    for (timer.start(); faults.isEmpty() && !timer.hasExpired(settings.count * 1000);) {
        for (qsizetype i = 0; i < heard.size(); ++i) {
            workers[size_t(i)]->waitForReadyRead(50);
            listen(i);
            if (workers[size_t(i)]->state() == QProcess::NotRunning)
                faults += "a worker failed: " + QString::fromUtf8(workers[size_t(i)]->readAllStandardError());
        }
    }
    for (qsizetype i = 0; i < heard.size(); ++i) {
        workers[size_t(i)]->kill();
        workers[size_t(i)]->waitForFinished();
        listen(i);
        ledger.add(QString::fromUtf8(heard[i]).split('\n'));
    }
    ledger.compare(file, int(workers.size())); // each was cut off somewhere
    return finish("checkpoints", settings, ledger, faults);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addPositionalArgument("campaign", "kills, pair or checkpoints");
    parser.addOptions({{"count", "how many kills, documents of each process, or seconds", "n", "10"},
                       {"gap", "microseconds by which checkpoints are slowed down", "n", "0"},
                       {"journal", "log or rollback", "mode", "log"},
                       {"seed", "of the moments of the kills", "n", "1"},
                       {"folder", "where the file is made", "path", QDir::tempPath()},
                       {"file", "for a worker", "path"},
                       {"connect", "for a worker", "text"},
                       {"name", "for a worker", "text"}});
    parser.addHelpOption();
    parser.process(application);
    const QString campaign = parser.positionalArguments().value(0);
    const int count = parser.value("count").toInt();
    const int gap = parser.value("gap").toInt();
    if (campaign == "work" && gap > 0)
        atCheckpoints([gap](CheckpointMoment) { QThread::usleep(ulong(gap)); });
    if (campaign == "work")
        return Worker::run(parser.value("file"), parser.value("connect"), parser.value("name"), count);

    const QTemporaryDir folder(parser.value("folder") + "/campaign-XXXXXX");
    const QString file = folder.filePath("company.db");
    const Settings settings{parser.value("journal"), count, parser.value("seed").toUInt(), gap};
    const QString connect = ";busy=20000;journal=" + settings.journal;
    Worker::prepare(file, connect);
    if (campaign == "kills")
        return kills(settings, file, connect);
    if (campaign == "pair")
        return pair(settings, file, connect);
    if (campaign == "checkpoints")
        return checkpoints(settings, file, connect);
    parser.showHelp(2);
}
