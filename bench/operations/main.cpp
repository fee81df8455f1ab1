#include "app/application.h"
#include "app/formlist.h"
#include "bench/bare/engine.h"
#include "bench/operations/meter.h"
#include "bench/operations/operation.h"
#include "bench/operations/proxy.h"
#include "bench/operations/twins.h"
#include "data/values/runtimeerror.h"
#include "toolkit/forms/mainmod.h"
#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>

// Runs each operation of the program several times and prints the best of the rounds as a table.
//
//   bench_operations FILE       beside the bare engine, in turns, on copies of a database made by `tamrick-db demo`
//   bench_operations FILE URI   beside the same company on a server, straight and over a line that takes a while, with
//                               the round trips. The company on the server is worked in: it should be a copy.
//   bench_operations URI        on the server alone, for the memory it takes
//   bench_operations --check FILE   nothing is measured: compares what the program and the bare engine do

namespace {

/// One database that takes its turn as the program's.
struct Side
{
    QString name;
    std::unique_ptr<Database> database;
    std::function<qint64()> trips = {};

    static Side of(const QString &name, const QString &connect, std::function<qint64()> trips = {})
    {
        return {name, DBEngine::OpenDatabase(name, false, false, connect), std::move(trips)};
    }
    /// Makes it the program's, or ends that.
    void swap()
    {
        gDatabase.swap(database);
        gDatabasePath = name;
    }
};

/// What the command line asks for.
struct Task
{
    QString file, uri, only, connect = DatabaseConnect;
    int rounds = 3;
    double millisecondsOfTrip = 1;
    bool check = false;
};

Task taskFrom(const QApplication &application)
{
    QCommandLineParser parser;
    const QCommandLineOption rounds("rounds", "How often each is run.", "N", "3"),
        only("only", "Only operations whose name holds this.", "TEXT"),
        journal("journal", "log or rollback; by the disk otherwise.", "KIND"),
        trip("trip", "What the line adds to a round trip.", "MILLISECONDS", "1"),
        check("check", "Compare the program and the bare engine.");
    parser.addOptions({rounds, only, journal, trip, check});
    parser.addHelpOption();
    parser.addPositionalArgument("database", "A file, a file and a URI, or a URI.", "FILE [URI] | URI");
    parser.process(application);
    Task task;
    task.only = parser.value(only);
    task.rounds = std::max(1, parser.value(rounds).toInt());
    task.millisecondsOfTrip = parser.value(trip).toDouble();
    task.check = parser.isSet(check);
    if (parser.isSet(journal))
        task.connect += ";journal=" + parser.value(journal);
    for (const QString &name : parser.positionalArguments())
        (name.contains("://") ? task.uri : task.file) = name;
    if (task.file.isEmpty() && (task.uri.isEmpty() || task.check))
        parser.showHelp(2);
    return task;
}

std::vector<Operation> operations(const Task &task)
{
    std::vector<Operation> all = dataOperations();
    for (const auto &more : {savingOperations(), windowOperations()})
        all.insert(all.end(), more.begin(), more.end());
    std::erase_if(all,
                  [&](const Operation &operation) { return !operation.name.contains(task.only, Qt::CaseInsensitive); });
    return all;
}

/// Runs something as an event does it: the program syncs what was written when the outermost event has ended, so that
/// the windows which come and go meanwhile are to be inner ones.
void asEvent(const std::function<void()> &routine)
{
    struct Receiver : QObject
    {
        std::function<void()> routine;
        bool event(QEvent *) override
        {
            routine();
            return true;
        }
    } receiver;
    receiver.routine = routine;
    QEvent event(QEvent::User);
    QCoreApplication::sendEvent(&receiver, &event);
}

Meter run(const Operation &operation, const std::function<qint64()> &trips = {})
{
    Meter meter(trips);
    asEvent([&] {
        operation.program(meter);
        meter.finish();
    });
    if (!operation.again.isEmpty())
        gDatabase->Execute(operation.again);
    gDatabase->sync();
    return meter;
}

double bareSeconds(const Operation &operation, BareEngine &engine)
{
    QElapsedTimer timer;
    timer.start();
    operation.bare(engine);
    const double seconds = double(timer.nsecsElapsed()) / 1e9;
    if (!operation.again.isEmpty())
        engine.run(operation.again.toUtf8());
    return seconds;
}

/// The most memory this process has held, in megabytes; 0 where the system doesn't tell.
double peakMemory()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray text = status.readAll();
    const qsizetype at = text.indexOf("VmHWM:");
    return at < 0 ? 0 : text.mid(at + 6, 16).trimmed().split(' ').first().toDouble() / 1024;
}

double logSize(const QString &file)
{
    return double(QFileInfo(file + "-wal").size()) / 1e6;
}

void print(const char *head, int columns)
{
    std::printf("| operation | %s |\n|---|", head);
    for (int column = 0; column < columns; ++column)
        std::fputs("---:|", stdout);
    std::fputs("\n", stdout);
}

template <class... Cells> void printRow(const Operation &operation, const char *format, Cells... cells)
{
    std::printf("| %s | ", qPrintable(operation.name));
    std::printf(format, cells...);
    std::fputs(" |\n", stdout);
    std::fflush(stdout);
}

void besideBareEngine(const std::vector<Operation> &operations, BareEngine &engine, const QString &bareFile, int rounds)
{
    print("bare engine | program | ratio | its sync | its log | our log | memory", 7);
    for (const Operation &operation : operations) {
        double program = 1e9, sync = 1e9, bare = 1e9, memory = 0;
        for (int round = 0; round < rounds; ++round) {
            const Meter meter = run(operation);
            program = std::min(program, meter.seconds() - meter.syncSeconds());
            sync = std::min(sync, meter.syncSeconds());
            if (round == 0)
                memory = peakMemory(); // before the bare engine, whose caches are in this process too, has its turn
            if (operation.bare)
                bare = std::min(bare, bareSeconds(operation, engine));
        }
        if (operation.bare)
            printRow(operation, "%.3f s | %.3f s | %.2f | %.3f s | %.0f MB | %.0f MB | %.0f MB", bare, program,
                     program / bare, sync, logSize(bareFile), logSize(gDatabasePath), memory);
        else
            printRow(operation, "| %.3f s | | %.3f s | | | %.0f MB", program, sync, memory);
    }
}

void besideServer(const std::vector<Operation> &operations, Side &file, Side &server, Side &distant, int rounds)
{
    print("file | server | ratio | far server | round trips | a document", 6);
    for (const Operation &operation : operations) {
        double seconds[] = {1e9, 1e9, 1e9};
        qint64 trips = 0;
        for (int round = 0; round < rounds; ++round) {
            double *best = seconds;
            for (Side *side : {&file, &server, &distant}) {
                side->swap();
                const Meter meter = run(operation, side->trips);
                side->swap();
                *best = std::min(*best, meter.seconds());
                ++best;
                trips = meter.trips();
            }
        }
        const QByteArray each =
            operation.documents > 1 ? QByteArray::number(double(trips) / operation.documents, 'f', 1) : QByteArray();
        printRow(operation, "%.3f s | %.3f s | %.2f | %.3f s | %lld | %s", seconds[0], seconds[1],
                 seconds[1] / seconds[0], seconds[2], qlonglong(trips), each.constData());
    }
}

void serverAlone(const std::vector<Operation> &operations, int rounds)
{
    print("server | memory", 2);
    for (const Operation &operation : operations) {
        double seconds = 1e9;
        for (int round = 0; round < rounds; ++round)
            seconds = std::min(seconds, run(operation).seconds());
        printRow(operation, "%.3f s | %.0f MB", seconds, peakMemory());
    }
}

/// The exit status.
int check(const std::vector<Operation> &operations, BareEngine &engine)
{
    int different = 0;
    for (const Operation &operation : operations) {
        const QString difference = operation.bare ? differenceOfTwins(operation, engine, gDatabasePath) : QString();
        different += !difference.isEmpty();
        std::printf("%s: %s\n", qPrintable(operation.name),
                    operation.bare ? difference.isEmpty() ? "same" : qPrintable(difference) : "no twin");
    }
    return different > 0;
}

QString copyOf(const QString &file, const QString &copy)
{
    if (!QFile::copy(file, copy)) {
        std::fprintf(stderr, "can't copy %s\n", qPrintable(file));
        std::exit(1);
    }
    return copy;
}

int runTask(const Task &task)
{
    const QTemporaryDir folder;
    Side main =
        Side::of(task.file.isEmpty() ? task.uri : copyOf(task.file, folder.filePath("program.db")), task.connect);
    main.swap();
    gDefaultWarehouse =
        gDatabase->OpenRecordset("SELECT Warehouse FROM Warehouse WHERE Status = 'Active'").Fields(0).text();
    const std::vector<Operation> all = operations(task);
    if (task.file.isEmpty()) {
        serverAlone(all, task.rounds);
    } else if (task.uri.isEmpty()) {
        const QString bareFile = copyOf(task.file, folder.filePath("bare.db"));
        BareEngine engine(bareFile);
        if (task.check)
            return check(all, engine);
        besideBareEngine(all, engine, bareFile, task.rounds);
    } else {
        main.swap();
        const Proxy line(task.uri, std::chrono::microseconds(int(task.millisecondsOfTrip * 500)));
        Side server = Side::of(task.uri, task.connect);
        Side distant = Side::of(line.uri(), task.connect, [&line] { return line.trips(); });
        besideServer(all, main, server, distant, task.rounds);
    }
    gDatabase.reset();
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    registerForms();
    try {
        return runTask(taskFrom(application));
    } catch (const RuntimeError &error) {
        std::fprintf(stderr, "%s\n%s\n", error.what(), qPrintable(error.detail()));
        return 1;
    }
}
