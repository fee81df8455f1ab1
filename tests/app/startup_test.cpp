#include "app/previousinstance.h"
#include "app/startup.h"
#include "tests/support/desk.h"
#include "toolkit/forms/mainmod.h"

#include <QFile>
#include <QScreen>
#include <QTemporaryDir>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace {
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

TEST(PreviousInstanceTest, AKilledProcessDoesNotLockTheNextOneOut)
{
    const QTemporaryDir folder;
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        const PreviousInstance mine(folder.path());
        const char answer = mine.isRunning() ? 'y' : 'n';
        _exit(write(ready[1], &answer, 1) == 1 && pause());
    }
    char answer = 0;
    ASSERT_EQ(read(ready[0], &answer, 1), 1);
    EXPECT_EQ(answer, 'n');
    EXPECT_TRUE(PreviousInstance(folder.path()).isRunning());
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_FALSE(PreviousInstance(folder.path()).isRunning());
}

class StartupTest : public testing::Test
{
protected:
    StartupTest() { gDatabase.reset(); }
    ~StartupTest() override { gDatabase.reset(); }
    void configure(const QString &databasePath)
    {
        QFile file(folder.filePath("config.txt"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(("Settings\nPath,\"" + databasePath + "\"\nWhse,East\nX,0\nAuto,YES\nSeconds,2\n").toUtf8());
    }
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
    configure(database.path() + ".none");
    EXPECT_EQ(errorNumberOf([&] { Main(folder.path()); }), 3024);
    configure(database.path());
    boxes.expect("Application Already Running", "This application is already running.");
    EXPECT_FALSE(Main(folder.path()).window);
    EXPECT_TRUE(gDatabase) << "it was opened all the same";
    boxes.verify();
}
} // namespace
