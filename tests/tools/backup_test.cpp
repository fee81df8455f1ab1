#include "tests/tools/toolstest.h"

#include "tests/support/testclock.h"
#include <QDir>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

class BackupTest : public ToolsTest
{
protected:
    BackupTest()
    {
        done({"create", path("company.db")});
        EXPECT_TRUE(QDir(m_folder.path()).mkdir("kept"));
    }

    QStringList kept() const { return QDir(path("kept")).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

    TestClock clock{"2011-03-30 14:05:09"};
};

TEST_F(BackupTest, ABackupHoldsWhatOthersHaveCommittedAndLeavesTheirLogAlone)
{
    const auto database = open(path("company.db"));
    database->Execute("INSERT INTO Warehouse (Warehouse) VALUES ('Main')");
    const QByteArray file = contentOf("company.db"), log = contentOf("company.db-wal");
    const QString made = path("kept/company-2011-03-30-140509.db");
    EXPECT_EQ(done({"backup", path("company.db"), path("kept")}), made + '\n');
    EXPECT_TRUE(contentOf("company.db") == file && contentOf("company.db-wal") == log);
    database->Execute("INSERT INTO Warehouse (Warehouse) VALUES ('East')");

    done({"restore", made, path("again.db")});
    EXPECT_EQ(kept(), QStringList{"company-2011-03-30-140509.db"});
    EXPECT_TRUE(rowsOf(path("again.db"), "Warehouse").startsWith("Main,"));
    EXPECT_EQ(rowsOf(path("again.db"), "Warehouse").count('\n'), 1);
    EXPECT_EQ(done({"check", path("again.db")}), "ok\n");
    EXPECT_EQ(contentOf("again.db").at(18), 1) << "a copy that would look for a log beside it";
}

TEST_F(BackupTest, OlderOnesOfTheSamePatternGoOnlyBehindASoundNewOne)
{
    const QStringList strangers{"company-2010-01-01-000000.db.bak", "company-2010-01-01.db", "company.db",
                                "other-2010-01-01-000000.db", "xcompany-2010-01-01-000000.db"};
    const QStringList older{"company-2011-03-27-000000.db", "company-2011-03-28-000000.db",
                            "company-2011-03-29-000000.db"};
    const QString later = "company-2026-01-01-000000.db"; // of a clock that was wrong
    for (const QString &name : strangers + older + QStringList{later})
        fileWith("kept/" + name, "x");
    fileWith("kept/company-2011-03-26-000000.db.part", "killed");

    refusal({"backup", fileWith("company.bad", "x"), path("kept"), "--keep", "1"});
    EXPECT_EQ(kept().filter(QRegularExpression("^company-2011.*db$")), older);
    done({"backup", path("company.db"), path("kept"), "--keep=3"});
    QStringList expected = strangers + older.mid(1) + QStringList{"company-2011-03-30-140509.db", later};
    expected.sort();
    EXPECT_EQ(kept(), expected);
    clock.advance(3600);
    done({"backup", path("company.db"), path("kept")});
    EXPECT_EQ(kept().size(), expected.size() + 1);
}

TEST_F(BackupTest, ADiskThatTakesNoMoreLeavesNothingHalf)
{
    rlimit before = {};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = signal(SIGXFSZ, SIG_IGN);
    for (const QStringList &call : {QStringList{"backup", path("company.db"), path("kept"), "--keep=1"},
                                    {"restore", path("company.db"), path("kept/new.db")},
                                    {"copy", path("company.db"), path("kept/new.db")},
                                    {"create", path("kept/new.db")},
                                    {"demo", path("kept/new.db")}}) {
        fileWith("kept/company-2010-01-01-000000.db", "an older one");
        const rlimit small{50'000, before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &small);
        refusal(call);
        setrlimit(RLIMIT_FSIZE, &before);
        EXPECT_EQ(kept(), QStringList{"company-2010-01-01-000000.db"}) << call[0].toStdString();
    }
    signal(SIGXFSZ, handler);
}

TEST_F(BackupTest, RightsFollowTheDataAndTheGroupWorksOnOneFile)
{
    const auto mode = [&](const QString &name) {
        struct stat found = {};
        EXPECT_EQ(stat(path(name).toUtf8(), &found), 0);
        return int(found.st_mode & 07777);
    };
    chmod(path("company.db").toUtf8(), 0640);
    done({"backup", path("company.db"), path("kept")});
    EXPECT_EQ(mode("kept/company-2011-03-30-140509.db"), 0640);

    const mode_t umaskBefore = umask(022);
    done({"create", path("kept/alone.db")});
    chmod(path("kept").toUtf8(), 02770);
    done({"create", path("kept/shared.db")});
    done({"demo", path("kept/demo.db")});
    done({"restore", path("company.db"), path("kept/back.db")});
    umask(umaskBefore);
    EXPECT_EQ(mode("kept/alone.db"), 0644);
    for (const char *name : {"kept/shared.db", "kept/demo.db", "kept/back.db"})
        EXPECT_EQ(mode(name), 0664) << name;
}

} // namespace
