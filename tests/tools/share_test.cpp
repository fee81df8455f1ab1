#include "tests/tools/toolstest.h"
#include <sys/syscall.h>
#include <sys/vfs.h>
#include <unistd.h>

namespace {
bool onNetwork = false;
}

/// Stands before the system's own, and lets every file lie on a server when told so.
extern "C" int statfs(const char *path, struct statfs *mount) noexcept
{
    const long result = syscall(SYS_statfs, path, mount);
    if (onNetwork)
        mount->f_type = 0x6969;
    return int(result);
}

namespace {

class SharedFileTest : public ToolsTest
{
protected:
    SharedFileTest() { run({"create", file}); }
    ~SharedFileTest() override { onNetwork = false; }

    /// Whether a program on this machine, opening the file now, keeps it with a log.
    bool usesWriteAheadLog(const QString &options = {})
    {
        const auto database = open(file, "QZV" + options);
        database->Execute("UPDATE Part SET Cost = 1");
        return QFile::exists(file + "-wal");
    }
    int openError()
    {
        return errorNumberOf([&] { open(file); });
    }

    const QString file = path("company.db");
};

TEST_F(SharedFileTest, IsRememberedOnceAClientSawItOnTheNetworkAndTakesNoLogFromThenOn)
{
    onNetwork = true;
    EXPECT_FALSE(usesWriteAheadLog());
    EXPECT_FALSE(usesWriteAheadLog(";journal=log"));
    onNetwork = false; // on the server itself
    EXPECT_FALSE(usesWriteAheadLog());
    EXPECT_FALSE(usesWriteAheadLog(";journal=log"));
    run({"load", file, "Warehouse", fileWith("w.csv", "Warehouse\nMain\n")});
    onNetwork = true;
    EXPECT_EQ(openError(), 0);
}

TEST_F(SharedFileTest, IsRefusedOnTheNetworkWhileItIsALogUntilTheAdministratorSharesIt)
{
    EXPECT_TRUE(usesWriteAheadLog());
    onNetwork = true;
    EXPECT_EQ(openError(), 3045);
    EXPECT_EQ(run({"share", file}).status, 1);
    onNetwork = false;
    {
        const auto inUse = open(file);
        EXPECT_EQ(run({"share", file}).err, "tamrick-db: Could not use '" + file + "'; file already in use.\n");
        inUse->Execute("UPDATE Part SET Cost = 1");
    }
    EXPECT_EQ(run({"share", file}).err, "");
    EXPECT_FALSE(usesWriteAheadLog());
    onNetwork = true;
    EXPECT_EQ(openError(), 0);
    EXPECT_EQ(run({"check", file}).out, "ok\n");
}

TEST_F(SharedFileTest, AFileOfSomebodyElseOnTheNetworkIsLeftAsItIs)
{
    onNetwork = true;
    const QString before = path("before.db");
    QFile::copy(file, before);
    EXPECT_EQ(errorNumberOf([&] { open(file, "wrong"); }), 3031);
    QFile now(file), then(before);
    ASSERT_TRUE(now.open(QIODevice::ReadOnly) && then.open(QIODevice::ReadOnly));
    EXPECT_EQ(now.readAll(), then.readAll());
}

TEST_F(SharedFileTest, ThatWasRemovedOrReplacedUnderAProgramIsAnErrorAtTheEndOfTheAction)
{
    for (const QString journal : {";journal=log", ";journal=rollback"}) {
        for (const bool replaced : {false, true}) {
            SCOPED_TRACE(journal.toStdString() + (replaced ? " replaced" : " removed"));
            const auto database = open(file, "QZV" + journal);
            database->Execute("UPDATE Part SET Cost = 1");
            database->sync();
            QFile::copy(file, path("copy.db"));
            QFile::remove(file);
            if (replaced)
                QFile::copy(path("copy.db"), file);
            EXPECT_EQ(errorNumberOf([&] {
                          database->Execute("UPDATE Part SET Cost = 2");
                          database->sync();
                      }),
                      3043);
            for (const char *rest : {"", "-wal", "-shm"})
                QFile::remove(file + rest);
            QFile::rename(path("copy.db"), file);
        }
    }
}

} // namespace
