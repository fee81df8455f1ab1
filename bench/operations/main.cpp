#include "app/shell/application.h"
#include "app/shell/forms.h"
#include "app/toolkit/mainmod.h"
#include "bench/operations/bareengine.h"
#include "bench/operations/operation.h"
#include "data/schema/schema.h"
#include "data/values/runtimeerror.h"
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <cstdio>

// bench_operations FILE [ROUNDS]: runs each operation in the program and on the bare engine, in turns, on copies of a
// database made by `tamrick-db demo`, and prints the best of the rounds as a table.

namespace {

double bareSeconds(const Operation &operation, BareEngine &engine)
{
    QElapsedTimer timer;
    timer.start();
    operation.bare(engine);
    return double(timer.nsecsElapsed()) / 1e9;
}

void measure(const std::vector<Operation> &operations, BareEngine &engine, const QString &file, int rounds)
{
    for (const Operation &operation : operations) {
        double program = 1e9, bare = 1e9;
        for (int round = 0; round < rounds; ++round) {
            if (operation.bare)
                bare = std::min(bare, bareSeconds(operation, engine));
            program = std::min(program, operation.program());
            gDatabase->settle();
        }
        const double log = double(QFileInfo(file + "-wal").size()) / 1e6;
        if (operation.bare)
            std::printf("| %s | %.3f s | %.3f s | %.2f | %.0f MB |\n", qPrintable(operation.name), bare, program,
                        program / bare, log);
        else
            std::printf("| %s | | %.3f s | | |\n", qPrintable(operation.name), program);
        std::fflush(stdout);
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 2) {
        std::fputs("usage: bench_operations FILE [ROUNDS]\n", stderr);
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    Application application(argc, argv);
    QTemporaryDir folder;
    const QString ours = folder.filePath("program.db"), theirs = folder.filePath("bare.db");
    if (!QFile::copy(argv[1], ours) || !QFile::copy(argv[1], theirs)) {
        std::fprintf(stderr, "can't copy %s\n", argv[1]);
        return 1;
    }
    const int rounds = argc > 2 ? std::max(1, atoi(argv[2])) : 3;
    try {
        gDatabasePath = ours;
        gDatabase = DBEngine::OpenDatabase(ours, false, false, DatabaseConnect);
        registerForms();
        gDefaultWarehouse =
            gDatabase->OpenRecordset("SELECT Warehouse FROM Warehouse WHERE Status = 'Active'").Fields(0).text();
        BareEngine engine(theirs);
        std::puts("| operation | bare engine | program | ratio | log |\n|---|---:|---:|---:|---:|");
        measure(dataOperations(), engine, ours, rounds);
        measure(windowOperations(), engine, ours, rounds);
    } catch (const RuntimeError &error) {
        std::fprintf(stderr, "%s\n%s\n", error.what(), qPrintable(error.detail()));
        return 1;
    }
    gDatabase.reset();
    return 0;
}
