#include "app/application.h"
#include "app/forms.h"
#include "bench/operations/bareengine.h"
#include "bench/operations/operation.h"
#include "data/schema/schema.h"
#include "data/values/runtimeerror.h"
#include "toolkit/forms/mainmod.h"
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>

// bench_operations FILE [ROUNDS [NAME]]: runs each operation (or those whose name holds NAME) in the program and on the
// bare engine, in turns, on copies of a database made by `tamrick-db demo`, and prints the best of the rounds as a
// table, with the largest size that the write-ahead logs of both and the process's memory have had so far.

namespace {

double bareSeconds(const Operation &operation, BareEngine &engine)
{
    QElapsedTimer timer;
    timer.start();
    operation.bare(engine);
    return double(timer.nsecsElapsed()) / 1e9;
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

struct Files
{
    QString program, bare;
};

void measure(const std::vector<Operation> &operations, BareEngine &engine, const Files &files, int rounds,
             const QString &name)
{
    for (const Operation &operation : operations) {
        if (!operation.name.contains(name, Qt::CaseInsensitive))
            continue;
        double program = 1e9, bare = 1e9, memory = 0;
        for (int round = 0; round < rounds; ++round) {
            program = std::min(program, operation.program());
            gDatabase->sync();
            if (!operation.again.isEmpty())
                gDatabase->Execute(operation.again);
            if (round == 0)
                memory = peakMemory(); // before the bare engine, whose caches are in this process too, has its turn
            if (operation.bare)
                bare = std::min(bare, bareSeconds(operation, engine));
            if (operation.bare && !operation.again.isEmpty())
                engine.run(operation.again.toUtf8());
        }
        if (operation.bare)
            std::printf("| %s | %.3f s | %.3f s | %.2f | %.0f MB | %.0f MB | %.0f MB |\n", qPrintable(operation.name),
                        bare, program, program / bare, logSize(files.bare), logSize(files.program), memory);
        else
            std::printf("| %s | | %.3f s | | | | %.0f MB |\n", qPrintable(operation.name), program, memory);
        std::fflush(stdout);
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 2) {
        std::fputs("usage: bench_operations FILE [ROUNDS [NAME]]\n", stderr);
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    QTemporaryDir folder;
    const Files files{folder.filePath("program.db"), folder.filePath("bare.db")};
    if (!QFile::copy(argv[1], files.program) || !QFile::copy(argv[1], files.bare)) {
        std::fprintf(stderr, "can't copy %s\n", argv[1]);
        return 1;
    }
    const int rounds = argc > 2 ? std::max(1, atoi(argv[2])) : 3;
    try {
        gDatabasePath = files.program;
        gDatabase = DBEngine::OpenDatabase(files.program, false, false, DatabaseConnect);
        registerForms();
        gDefaultWarehouse =
            gDatabase->OpenRecordset("SELECT Warehouse FROM Warehouse WHERE Status = 'Active'").Fields(0).text();
        BareEngine engine(files.bare);
        const QString name = argc > 3 ? QString::fromLocal8Bit(argv[3]) : QString();
        std::puts("| operation | bare engine | program | ratio | its log | our log | memory |\n"
                  "|---|---:|---:|---:|---:|---:|---:|");
        measure(dataOperations(), engine, files, rounds, name);
        measure(savingOperations(), engine, files, rounds, name);
        measure(windowOperations(), engine, files, rounds, name);
    } catch (const RuntimeError &error) {
        std::fprintf(stderr, "%s\n%s\n", error.what(), qPrintable(error.detail()));
        return 1;
    }
    gDatabase.reset();
    return 0;
}
