#include "app/previousinstance.h"
#include "app/startup.h"
#include "tests/support/company.h"
#include "toolkit/forms/mainmod.h"

#include <QDir>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <csignal>
#include <sqlite3.h>
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

TEST(PreviousInstanceTest, ASecondOneOfTheSameFolderSeesTheFirstUntilItIsGone)
{
    const QTemporaryDir folder, otherFolder;
    {
        const PreviousInstance first(folder.path());
        EXPECT_FALSE(first.isRunning());
        EXPECT_TRUE(PreviousInstance(folder.path()).isRunning());
        EXPECT_TRUE(PreviousInstance(folder.path() + "/.").isRunning());
        EXPECT_FALSE(PreviousInstance(otherFolder.path()).isRunning());
    }
    EXPECT_FALSE(PreviousInstance(folder.path()).isRunning());
}

TEST(PreviousInstanceTest, WhatElseStandsInTheMarksPlaceNeitherHangsNorIsTouched)
{
    const QTemporaryDir folder, marks;
    QString mark;
    {
        const PreviousInstance first(folder.path(), marks.path());
        mark = QDir(marks.path()).entryInfoList(QDir::Files).value(0).filePath();
    }
    EXPECT_FALSE(QFile::exists(mark)) << "it is taken away at the end";
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
        {
            EXPECT_FALSE(PreviousInstance(folder.path(), marks.path()).isRunning()) << what;
        }
        EXPECT_TRUE(QFileInfo(mark).isSymLink() || QFileInfo::exists(mark)) << what;
        EXPECT_EQ(QFileInfo::exists(elsewhere), QByteArray(what) == "a link to a pipe");
        QFile::remove(elsewhere);
        if (!QFile::remove(mark))
            QDir().rmdir(mark);
    }
}

/// Starts another process that holds the mark of a program's folder, and kills it.
void killOneIn(const QString &folder, const QString &marks)
{
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        const PreviousInstance mine(folder, marks);
        const char answer = mine.isRunning() ? 'y' : 'n';
        _exit(write(ready[1], &answer, 1) == 1 && pause());
    }
    char answer = 0;
    ASSERT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'n');
    EXPECT_TRUE(PreviousInstance(folder, marks).isRunning());
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
}

TEST(PreviousInstanceTest, AKilledOneLocksNobodyOutAndItsMarkGoesWithItsFolder)
{
    const QTemporaryDir folder, another, marks;
    auto gone = std::make_unique<QTemporaryDir>();
    killOneIn(gone->path(), marks.path());
    killOneIn(folder.path(), marks.path());
    QFile named(marks.filePath("tamrick-0123456789abcdef0123"));
    ASSERT_TRUE(named.open(QIODevice::WriteOnly) && named.write("/no/such/folder") > 0);
    named.close();
    const auto count = [&] { return QDir(marks.path()).entryList(QDir::Files).size(); };
    EXPECT_EQ(count(), 3);
    gone.reset();
    {
        const PreviousInstance next(another.path(), marks.path());
        EXPECT_EQ(count(), 3) << "that of the gone folder made room for this one";
    }
    EXPECT_EQ(count(), 2);
    EXPECT_TRUE(named.exists()) << "not one of its marks";
    EXPECT_FALSE(PreviousInstance(folder.path(), marks.path()).isRunning());
}

class StartupTest : public testing::Test
{
protected:
    StartupTest() { gDatabase.reset(); }
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
    boxes.expect("Application Already Running", "This application is already running.");
    EXPECT_FALSE(Main(folder.path()).window);
    EXPECT_TRUE(gDatabase) << "it was opened all the same";
    boxes.verify();
}
/// Starts a copy of the real program in a folder of its own, with somebody at its boxes.
class ProgramStart : public testing::Test
{
protected:
    struct Outcome
    {
        QString shown; ///< the box, or "window"
        int status;    ///< -1 unless it ended by itself in time
    };

    ProgramStart()
    {
        gDatabase.reset();
        const auto everybody =
            QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther;
        EXPECT_TRUE(QFile::setPermissions(folder.path(), everybody));
        EXPECT_TRUE(QFile::copy(tests + "/../app/tamrick", path("tamrick")));
        // With the program: its user may be kept from the folder that was built in.
        EXPECT_TRUE(QDir(folder.path()).mkpath("plugins/generic"));
        for (const QString &plugin : QDir(tests + "/plugins/generic").entryList(QDir::Files))
            EXPECT_TRUE(QFile::copy(tests + "/plugins/generic/" + plugin, path("plugins/generic/" + plugin)));
        EXPECT_TRUE(QFile::copy(database.path(), path("sound.db")));
    }

    QString path(const QString &name) const { return folder.filePath(name); }

    void write(const QString &name, const QByteArray &content) const { writeFile(path(name), content); }
    void configure(const QString &databasePath) const { write("config.txt", settings(databasePath)); }

    /// The database after a statement of SQLite's own.
    void alter(const char *sql) const
    {
        sqlite3 *connection = nullptr;
        ASSERT_EQ(sqlite3_open(QFile::encodeName(path("company.db")).constData(), &connection), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(connection, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(connection);
        sqlite3_close(connection);
    }

    Outcome start() const
    {
        QProcess program;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        environment.insert("QT_QPA_GENERIC_PLUGINS", "answerer");
        environment.insert("QT_PLUGIN_PATH", path("plugins"));
        program.setProcessEnvironment(environment);
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
    QTemporaryDir folder;
};

TEST_F(ProgramStart, EndsInABoxWhateverIsWrongWithSettingsOrDatabase)
{
    if (geteuid() != 0)
        QFile::setPermissions(path("sound.db"), QFile::ReadOwner | QFile::WriteOwner);
    const auto pipe = [this](const QString &name) {
        return mkfifo(QFile::encodeName(path(name)).constData(), 0666) == 0;
    };
    const auto forbid = [this](const QString &name) {
        return chmod(QFile::encodeName(path(name)).constData(), 0) == 0;
    };
    std::unique_ptr<Database> holder;
    QFile page(QStringLiteral(TAMRICK_TEST_DATA "/../docs/handbook/index.html"));
    ASSERT_TRUE(page.open(QIODevice::ReadOnly));
    const QString handbook = QString::fromUtf8(page.readAll());
    const struct
    {
        const char *what;
        std::function<void()> make; ///< on sound settings and a sound company.db
        int error;                  ///< 0: the main window
    } cases[] = {
        {"all is well", [] {}, 0},
        {"no settings", [&] { QFile::remove(path("config.txt")); }, 53},
        {"empty settings", [&] { write("config.txt", ""); }, 62},
        {"short settings", [&] { write("config.txt", "Settings\nPath,company.db\nWhse"); }, 62},
        {"settings that are a folder",
         [&] { QFile::remove(path("config.txt")), QDir(folder.path()).mkdir("config.txt"); }, 75},
        {"settings that are a pipe", [&] { QFile::remove(path("config.txt")), pipe("config.txt"); }, 75},
        {"settings that are a device",
         [&] { QFile::remove(path("config.txt")), QFile::link("/dev/zero", path("config.txt")); }, 75},
        {"settings of one endless line", [&] { write("config.txt", QByteArray(50'000'000, 'x')); }, 75},
        {"settings that may not be read", [&] { forbid("config.txt"); }, 75},
        {"a path of a million letters", [&] { configure(QString(1'000'000, 'x')); }, 3024},
        {"no path", [&] { configure({}); }, 3055},
        {"no database", [&] { configure(path("none.db")); }, 3024},
        {"no folder", [&] { configure(path("none/company.db")); }, 3044},
        {"a folder for a database", [&] { configure(folder.path()); }, 3044},
        {"a pipe for a database", [&] { configure(path("pipe")), pipe("pipe"); }, 3343},
        {"a device for a database", [&] { configure("/dev/zero"); }, 3343},
        {"a text for a database", [&] { write("company.db", "Customer,Amount\nAcme,5\n"); }, 3343},
        {"nothing in the database", [&] { write("company.db", ""); }, 3343},
        {"another program's database", [&] { write("company.db", ""), alter("CREATE TABLE t (x)"); }, 3343},
        {"another password", [&] { alter("UPDATE MSysPassword SET Hash = x'00'"); }, 3031},
        {"a password that takes years", [&] { alter("UPDATE MSysPassword SET Rounds = 9223372036854775807"); }, 3343},
        {"a password of no rounds", [&] { alter("UPDATE MSysPassword SET Rounds = -1"); }, 3343},
        {"a damaged database",
         [&] {
             QFile file(path("company.db"));
             ASSERT_TRUE(file.open(QIODevice::ReadWrite) && file.seek(100) &&
                         file.write(QByteArray(3000, '\xFF')) == 3000);
         },
         3049},
        {"a database that may not be read", [&] { forbid("company.db"); }, 3051},
        {"a database that another one has for itself",
         [&] { holder = DBEngine::OpenDatabase(path("company.db"), true, false, DatabaseConnect); }, 3045},
        {"a server that is not there", [&] { configure("postgresql://clerk@/company?host=/nowhere"); }, 3044},
    };
    for (const auto &row : cases) {
        for (const QFileInfo &info :
             QDir(folder.path()).entryInfoList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)) {
            if (info.fileName() != "tamrick" && info.fileName() != "sound.db" && !QFile::remove(info.filePath()))
                QDir().rmdir(info.filePath());
        }
        ASSERT_TRUE(QFile::copy(path("sound.db"), path("company.db")));
        configure(path("company.db"));
        for (const char *name : {"company.db", "config.txt"})
            ASSERT_EQ(chmod(QFile::encodeName(path(name)).constData(), 0666), 0);
        ASSERT_EQ(chmod(QFile::encodeName(folder.path()).constData(), 0777), 0);
        row.make();
        if (row.error == 3031 || row.error == 3343)
            chmod(QFile::encodeName(path("company.db")).constData(), 0666);
        const Outcome outcome = start();
        const QString begin = row.error ? QString("Run-time error '%1':").arg(row.error) : QString("window");
        EXPECT_TRUE(outcome.shown.startsWith(begin)) << row.what << ": " << outcome.shown.left(300).toStdString();
        EXPECT_EQ(outcome.status, row.error ? 1 : 0) << row.what;
        EXPECT_LT(outcome.shown.size(), 1100) << row.what;
        const QRegularExpression explained(QString("<tr><td>([0-9]+, )*%1(, [0-9]+)*</td>").arg(row.error));
        EXPECT_TRUE(row.error == 0 || handbook.contains(explained)) << row.error << " is not in the handbook";
    }
}

} // namespace
