#include "app/previousinstance.h"
#include "app/startup.h"
#include "tests/support/company.h"
#include "toolkit/forms/mainmod.h"

#include <QDir>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

QByteArray settings(const QString &databasePath)
{
    return ("Settings\nPath,\"" + databasePath + "\"\nWhse,East\nX,0\nAuto,YES\nSeconds,2\n").toUtf8();
}

class PreviousInstanceTest : public testing::Test
{
protected:
    bool runsIn(const QTemporaryDir &folder, const char *name = "") const
    {
        return PreviousInstance(folder.path() + name, marks.path()).isRunning();
    }
    /// Starts another process that holds the mark of a program's folder, and
    /// kills it.
    void killOneIn(const QTemporaryDir &folder) const
    {
        int ready[2];
        ASSERT_EQ(pipe(ready), 0);
        const pid_t child = fork();
        if (child == 0) {
            const PreviousInstance mine(folder.path(), marks.path());
            const char answer = mine.isRunning() ? 'y' : 'n';
            _exit(write(ready[1], &answer, 1) == 1 && pause());
        }
        char answer = 0;
        ASSERT_EQ(read(ready[0], &answer, 1), 1);
        EXPECT_EQ(answer, 'n');
        EXPECT_TRUE(runsIn(folder));
        EXPECT_TRUE(runsIn(folder, "/."));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
    QFileInfoList files() const { return QDir(marks.path()).entryInfoList(QDir::Files); }

    const QTemporaryDir folder, another, marks;
};

TEST_F(PreviousInstanceTest, WhatElseStandsInTheMarksPlaceNeitherHangsNorIsTouched)
{
    QString mark;
    {
        const PreviousInstance first(folder.path(), marks.path());
        mark = files().value(0).filePath();
    }
    EXPECT_TRUE(files().isEmpty()) << "it is taken away at the end";
    const QString elsewhere = marks.filePath("elsewhere");
    const std::pair<const char *, std::function<bool()>> others[] = {
        {"a pipe", [&] { return mkfifo(QFile::encodeName(mark).constData(), 0666) == 0; }},
        {"a link to nothing", [&] { return QFile::link(elsewhere, mark); }},
        {"a link to a pipe",
         [&] { return mkfifo(QFile::encodeName(elsewhere).constData(), 0666) == 0 && QFile::link(elsewhere, mark); }},
        {"a folder", [&] { return QDir().mkdir(mark); }},
    };
    for (const auto &[what, make] : others) {
        ASSERT_TRUE(make()) << what;
        EXPECT_FALSE(runsIn(folder)) << what;
        EXPECT_TRUE(QFileInfo(mark).isSymLink() || QFileInfo::exists(mark)) << what;
        EXPECT_EQ(QFileInfo::exists(elsewhere), QByteArray(what) == "a link to a pipe");
        QFile::remove(elsewhere);
        if (!QFile::remove(mark))
            QDir().rmdir(mark);
    }
}

TEST_F(PreviousInstanceTest, AKilledOneLocksNobodyOutAndItsMarkGoesWithItsFolder)
{
    auto gone = std::make_unique<QTemporaryDir>();
    killOneIn(*gone);
    killOneIn(folder);
    writeFile(marks.filePath("tamrick-0123456789abcdef0123"),
              "/no/such/folder"); // not one of its marks
    EXPECT_EQ(files().size(), 3);
    gone.reset();
    {
        const PreviousInstance next(another.path(), marks.path());
        EXPECT_FALSE(next.isRunning()) << "in a folder of its own";
        EXPECT_EQ(files().size(), 3) << "that of the gone folder made room for this one";
    }
    EXPECT_EQ(files().size(), 2);
    EXPECT_TRUE(QFile::exists(marks.filePath("tamrick-0123456789abcdef0123")));
    EXPECT_FALSE(runsIn(folder));
}

class StartupTest : public testing::Test
{
protected:
    ~StartupTest() override { gDatabase.reset(); }
    void configure(const QString &databasePath) { writeFile(folder.filePath("config.txt"), settings(databasePath)); }
    TestDatabase database;
    QTemporaryDir folder; ///< the program's
    Boxes boxes;
};

TEST_F(StartupTest, TheMainWindowStandsEmptyOnceSettingsAndDatabaseAreThere)
{
    configure(database.path());
    const Program program = Main(folder.path());
    ASSERT_TRUE(program.window);
    EXPECT_TRUE(program.window->isVisible());
    EXPECT_TRUE(program.window->isMaximized());
    const QSize room = program.window->screen()->availableSize();
    EXPECT_EQ(program.window->normalGeometry().size().boundedTo(room), program.window->normalGeometry().size());
    EXPECT_EQ(program.window->objectName(), "MDI");
    EXPECT_EQ(program.window->windowTitle(), "Tamrick Inventory Management");
    EXPECT_FALSE(program.window->findChild<Form *>());
    EXPECT_EQ(gDefaultWarehouse, "East");
    EXPECT_EQ(database.count("Warehouse"), 3);
    EXPECT_TRUE(PreviousInstance(folder.path()).isRunning());
}

TEST_F(StartupTest, SettingsAndDatabaseFailBeforeThePreviousInstanceIsLookedFor)
{
    const PreviousInstance other(folder.path());
    EXPECT_EQ(errorNumberOf([&] { Main(folder.path()); }), 53);
    configure(database.path() + (database.isOnServer() ? "&dbname=none" : ".none"));
    EXPECT_EQ(errorNumberOf([&] { Main(folder.path()); }), 3024);
    configure(database.path());
    gDatabase.reset();
    boxes.expect("Application Already Running", "This application is already running.");
    EXPECT_FALSE(Main(folder.path()).window);
    EXPECT_TRUE(gDatabase) << "it was opened all the same";
    boxes.verify();
}

/// Starts the real program in a folder of its own, with somebody at its boxes.
class ProgramStart : public testing::Test
{
protected:
    struct Outcome
    {
        QString shown; ///< the box, or "window"
        int status;    ///< -1 unless it ended by itself in time
    };

    QString path(const QString &name) const { return folder->filePath(name); }
    QByteArray file(const char *name) const { return QFile::encodeName(path(name)); }
    bool pipe(const char *name) const { return mkfifo(file(name).constData(), 0666) == 0; }
    bool forbid(const char *name) const { return chmod(file(name).constData(), 0) == 0; }
    bool remove(const char *name) const { return QFile::remove(path(name)); }
    void write(const char *name, const QByteArray &content) const { writeFile(path(name), content); }
    void configure(const QString &databasePath) const { write("config.txt", settings(databasePath)); }
    /// Runs a statement of SQLite's own.
    void alter(const char *sql) const { PlainConnection(path("company.db")).run(sql); }

    /// A folder with the program, sound settings and a sound company.db, for a
    /// user who may do all in it.
    void prepare()
    {
        folder = std::make_unique<QTemporaryDir>();
        chmod(file("").constData(), 0777);
        // With the program: its user may be kept from the folder that was built in.
        ASSERT_TRUE(QDir(folder->path()).mkpath("plugins/generic"));
        ASSERT_TRUE(QFile::copy(tests + "/../app/tamrick", path("tamrick")));
        for (const QString &plugin : QDir(tests + "/plugins/generic").entryList(QDir::Files))
            ASSERT_TRUE(QFile::copy(tests + "/plugins/generic/" + plugin, path("plugins/generic/" + plugin)));
        ASSERT_TRUE(QFile::copy(database.path(), path("company.db")));
        configure(path("company.db"));
        chmod(file("company.db").constData(), 0666);
    }

    Outcome start() const
    {
        QProcess program;
        qputenv("QT_QPA_GENERIC_PLUGINS", "answerer");
        qputenv("QT_PLUGIN_PATH", file("plugins"));
        // Nothing is unreadable for root.
        program.setChildProcessModifier([] {
            if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0))
                _exit(99);
        });
        program.start(path("tamrick"), {});
        const bool ended = program.waitForFinished(60000) && program.exitStatus() == QProcess::NormalExit;
        return {QString::fromUtf8(program.readAllStandardOutput()).trimmed(), ended ? program.exitCode() : -1};
    }

    const QString tests = QCoreApplication::applicationDirPath();
    TestDatabase database{EngineKind::Sqlite};
    std::unique_ptr<QTemporaryDir> folder;
};

TEST_F(ProgramStart, EndsInABoxWhateverIsWrongWithSettingsOrDatabase)
{
    gDatabase.reset();
    std::unique_ptr<Database> holder;
    const struct
    {
        const char *what;
        int error; ///< 0: the main window
        std::function<void()> make = [] {};
    } cases[] = {
        {"all is well", 0},
        {"no settings", 53, [&] { remove("config.txt"); }},
        {"empty settings", 62, [&] { write("config.txt", ""); }},
        {"short settings", 62, [&] { write("config.txt", "Settings\nPath,company.db\nWhse"); }},
        {"settings that are a folder", 75, [&] { return remove("config.txt") && QDir().mkdir(path("config.txt")); }},
        {"settings that are a pipe", 75, [&] { return remove("config.txt") && pipe("config.txt"); }},
        {"settings that are a device", 75,
         [&] { return remove("config.txt") && QFile::link("/dev/zero", path("config.txt")); }},
        {"settings of one endless line", 75, [&] { write("config.txt", QByteArray(50'000'000, 'x')); }},
        {"settings that may not be read", 75, [&] { forbid("config.txt"); }},
        {"a path of a million letters", 3024, [&] { configure(QString(1'000'000, 'x')); }},
        {"no path", 3055, [&] { configure({}); }},
        {"no database", 3024, [&] { configure(path("none.db")); }},
        {"no folder", 3044, [&] { configure(path("none/company.db")); }},
        {"a folder for a database", 3044, [&] { configure(folder->path()); }},
        {"a pipe for a database", 3343, [&] { configure(path("pipe")), pipe("pipe"); }},
        {"a device for a database", 3343, [&] { configure("/dev/zero"); }},
        {"a text for a database", 3343, [&] { write("company.db", "Customer,Amount\nAcme,5\n"); }},
        {"nothing in the database", 3343, [&] { write("company.db", ""); }},
        {"another program's database", 3343, [&] { write("company.db", ""), alter("CREATE TABLE t (x)"); }},
        {"another password", 3031, [&] { alter("UPDATE MSysPassword SET Hash = x'00'"); }},
        {"a password that takes years", 3343, [&] { alter("UPDATE MSysPassword SET Rounds = 9223372036854775807"); }},
        {"a password of no rounds", 3343, [&] { alter("UPDATE MSysPassword SET Rounds = -1"); }},
        {"a damaged database", 3049,
         [&] {
             QFile broken(path("company.db"));
             return broken.open(QIODevice::ReadWrite) && broken.seek(100) && broken.write(QByteArray(3000, '\xFF'));
         }},
        {"a database that may not be read", 3051, [&] { forbid("company.db"); }},
        {"a database that another one has for itself", 3045,
         [&] { holder = DBEngine::OpenDatabase(path("company.db"), true, false, DatabaseConnect); }},
        {"a server that is not there", 3044, [&] { configure("postgresql://clerk@/company?host=/nowhere"); }},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.what);
        prepare();
        row.make();
        const Outcome outcome = start();
        const QString begin = row.error ? QString("Run-time error '%1':").arg(row.error) : QString("window");
        EXPECT_TRUE(outcome.shown.startsWith(begin)) << outcome.shown.left(300).toStdString();
        EXPECT_EQ(outcome.status, row.error ? 1 : 0);
        EXPECT_LT(outcome.shown.size(), 1100);
    }
}

} // namespace
