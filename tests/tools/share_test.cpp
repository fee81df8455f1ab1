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
    SharedFileTest() { done({"create", file}); }
    ~SharedFileTest() override { onNetwork = false; }

    /// Whether a program on this machine, opening the file now, keeps it with a log.
    bool usesWriteAheadLog(const QString &options = {})
    {
        const auto database = open(file, "QZV" + options);
        database->Execute("UPDATE Part SET Cost = 1");
        return QFile::exists(file + "-wal");
    }
    const QString file = path("company.db");
};

TEST_F(SharedFileTest, IsRememberedOnceAClientOfOursSawItOnTheNetworkAndTakesNoLogFromThenOn)
{
    const QByteArray before = contentOf("company.db");
    onNetwork = true;
    EXPECT_EQ(errorNumberOf([&] { open(file, "wrong"); }), 3031);
    EXPECT_EQ(contentOf("company.db"), before);
    for (const bool onServerItself : {false, true}) {
        onNetwork = !onServerItself;
        EXPECT_FALSE(usesWriteAheadLog());
        EXPECT_FALSE(usesWriteAheadLog(";journal=log"));
    }
    done({"load", file, "Warehouse", fileWith("w.csv", "Warehouse\nMain\n")});
    onNetwork = true;
    open(file);
}

TEST_F(SharedFileTest, IsRefusedOnTheNetworkWhileItIsALogUntilTheAdministratorSharesIt)
{
    EXPECT_TRUE(usesWriteAheadLog());
    onNetwork = true;
    EXPECT_EQ(errorNumberOf([&] { open(file); }), 3045);
    refusal({"share", file});
    onNetwork = false;
    {
        const auto inUse = open(file);
        EXPECT_EQ(refusal({"share", file}), "Could not use '" + file + "'; file already in use.");
        inUse->Execute("UPDATE Part SET Cost = 1");
    }
    done({"share", file});
    EXPECT_FALSE(usesWriteAheadLog());
    onNetwork = true;
    open(file);
    EXPECT_EQ(done({"check", file}), "ok\n");
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
