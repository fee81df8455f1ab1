#include "bench/campaign/child.h"
#include "bench/campaign/failingdisk.h"
#include "bench/campaign/ledger.h"
#include "bench/campaign/place.h"
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
    Place place;
    QString connect, journal, server;
    int count = 0, workers = 0;
    uint seed = 0;
    int gap = 0;

    /// How many statements of each worker that was cut off may be there without its promise having been heard.
    int open() const { return place.isOnServer() ? Worker::Statements : 1; }
    QStringList names() const { return QStringList{"A", "B", "C", "D"}.mid(0, workers); }
};

/// A worker process, started and waiting for the word to go.
std::unique_ptr<QProcess> startWorker(const Settings &settings, const QString &name, int count)
{
    return startChild({"work", "--file", settings.place.name(), "--connect", settings.connect, "--name", name,
                       "--count", QString::number(count), "--gap", QString::number(settings.gap)});
}

/// All of them, started together.
std::vector<std::unique_ptr<QProcess>> startWorkers(const Settings &settings, int count)
{
    std::vector<std::unique_ptr<QProcess>> workers;
    for (const QString &name : settings.names())
        workers.push_back(startWorker(settings, name, count));
    for (const auto &worker : workers)
        go(*worker);
    return workers;
}

int finish(const char *what, const Settings &settings, const Ledger &ledger, QStringList faults)
{
    faults += ledger.faults();
    std::printf("%s, %s, count %d, seed %u: %d statements reported, %d faults\n", what, qPrintable(settings.journal),
                settings.count, settings.seed, ledger.statements(), int(faults.size()));
    for (const QString &fault : faults)
        std::printf("  %s\n", qPrintable(fault));
    return faults.isEmpty() ? 0 : 1;
}

/// Kills a saving process at random moments, again and again on one file.
int kills(const Settings &settings)
{
    QRandomGenerator random(settings.seed);
    Ledger ledger;
    QStringList faults;
    for (int kill = 0; kill < settings.count && faults.isEmpty() && ledger.faults().isEmpty(); ++kill) {
        const auto worker = startWorker(settings, "A", -1);
        go(*worker);
        QByteArray heard = heardFrom(*worker, random.bounded(1, 40));
        QThread::usleep(random.bounded(settings.journal.startsWith(u"log") ? 500 : 20000));
        worker->kill();
        worker->waitForFinished();
        heard += worker->readAllStandardOutput();
        const QByteArray errors = worker->readAllStandardError();
        if (!errors.isEmpty())
            faults += QString::fromUtf8(errors);
        ledger.add(QString::fromUtf8(heard).split('\n'));
        ledger.compare(settings.place, (kill + 1) * settings.open());
    }
    return finish("kills", settings, ledger, faults);
}

/// Lets several processes save documents at once.
int together(const Settings &settings)
{
    Ledger ledger;
    QStringList faults;
    const auto workers = startWorkers(settings, settings.count);
    for (const auto &worker : workers) {
        if (!worker->waitForFinished(-1) || worker->exitCode() != 0)
            faults += "a worker failed: " + QString::fromUtf8(worker->readAllStandardError());
        ledger.add(QString::fromUtf8(worker->readAllStandardOutput()).split('\n'));
    }
    ledger.compare(settings.place, 0);
    return finish("together", settings, ledger, faults);
}

/// Kills the server under several saving processes again and again. Each worker is to end with the error of a lost
/// session.
int crashes(const Settings &settings)
{
    QRandomGenerator random(settings.seed);
    Ledger ledger;
    QStringList faults;
    for (int crash = 0; crash < settings.count && faults.isEmpty() && ledger.faults().isEmpty(); ++crash) {
        const auto workers = startWorkers(settings, -1);
        QByteArray heard = heardFrom(*workers[0], random.bounded(1, 100));
        QThread::usleep(random.bounded(20000));
        if (!crashServer(settings.server, crash % 2 == 0))
            faults += "the server did not start again";
        for (const auto &worker : workers) {
            worker->waitForFinished();
            const QString error = QString::fromUtf8(worker->readAllStandardError());
            if (!error.startsWith(u"3043 "))
                faults += "a worker ended otherwise: " + error;
            heard += worker->readAllStandardOutput();
        }
        ledger.add(QString::fromUtf8(heard).split('\n'));
        ledger.compare(settings.place, (crash + 1) * settings.workers * settings.open());
    }
    return finish("crashes", settings, ledger, faults);
}

/// Lets four processes save documents at once for that many seconds, whose checkpoints dawdle where another process
/// may begin the log anew.
int checkpoints(const Settings &settings)
{
    Ledger ledger;
    QStringList faults;
    const auto workers = startWorkers(settings, -1);
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
    ledger.compare(settings.place, int(workers.size())); // each was cut off somewhere
    return finish("checkpoints", settings, ledger, faults);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addPositionalArgument("campaign", "kills, together, checkpoints, disk, memory, or crashes of a server");
    parser.addOptions({{"count", "how many kills, documents of each process, seconds, or allocations", "n", "10"},
                       {"gap", "microseconds by which checkpoints are slowed down", "n", "0"},
                       {"journal", "log or rollback", "mode", "log"},
                       {"server", "the link of scripts/testserver, for a database there", "path"},
                       {"workers", "how many processes at once, up to 4", "n", "2"},
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
    const QString server = parser.value("server"), journal = parser.value("journal");
    const Settings settings{server.isEmpty() ? Place(folder.filePath("company.db")) : Place::onServer(server),
                            server.isEmpty() ? ";busy=20000;journal=" + journal : QString(),
                            server.isEmpty() ? journal + " journal" : "server",
                            server,
                            count,
                            parser.value("workers").toInt(),
                            parser.value("seed").toUInt(),
                            gap};
    if (campaign == "disk") // as often as there are writes to fail
        return finish("disk", settings, {}, failingDisk(settings.place.name(), settings.connect));
    if (campaign == "memory")
        return finish("memory", settings, {}, failingMemory(settings.place.name(), settings.connect, count));
    Worker::prepare(settings.place.name(), settings.connect);
    if (campaign == "kills")
        return kills(settings);
    if (campaign == "together")
        return together(settings);
    if (campaign == "checkpoints")
        return checkpoints(settings);
    if (campaign == "crashes")
        return crashes(settings);
    parser.showHelp(2);
}
