#include "tests/tools/toolstest.h"

#include "data/values/clock.h"
#include <QLockFile>
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

class BackupTest : public ToolsTest
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(run({"create", path("company.db")}).status, 0);
        ASSERT_TRUE(QDir(m_folder.path()).mkdir("kept"));
        at(QTime(14, 5, 9));
    }
    void TearDown() override { Clock::setSource({}); }

    static void at(QTime time)
    {
        Clock::setSource([=] { return QDateTime(QDate(2011, 3, 30), time); });
    }
    QStringList kept() const { return QDir(path("kept")).entryList(QDir::Files | QDir::Hidden, QDir::Name); }
    QString warehouses(const QString &file) const { return run({"export", file, "Warehouse"}).out; }
    QByteArray bytes(const QString &name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }
};

TEST_F(BackupTest, ABackupHoldsWhatOthersHaveCommittedAndLeavesTheirLogAlone)
{
    const auto database = open(path("company.db"));
    database->Execute("INSERT INTO Warehouse (Warehouse) VALUES ('Main')");
    const QByteArray file = bytes("company.db"), log = bytes("company.db-wal");
    const Outcome outcome = run({"backup", path("company.db"), path("kept")});
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out, path("kept/company-2011-03-30-140509.db\n"));
    EXPECT_TRUE(bytes("company.db") == file && bytes("company.db-wal") == log);
    database->Execute("INSERT INTO Warehouse (Warehouse) VALUES ('East')");

    ASSERT_EQ(run({"restore", path("kept/company-2011-03-30-140509.db"), path("again.db")}).err, "");
    EXPECT_EQ(kept(), QStringList{"company-2011-03-30-140509.db"});
    EXPECT_TRUE(warehouses(path("again.db")).contains("Main") && !warehouses(path("again.db")).contains("East"));
    EXPECT_EQ(run({"check", path("again.db")}).out, "ok\n");
    EXPECT_EQ(bytes("again.db").at(18), 1) << "a copy that would look for a log beside it";
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

    EXPECT_EQ(run({"backup", fileWith("company.bad", "x"), path("kept"), "--keep", "1"}).status, 1);
    EXPECT_EQ(kept().filter(QRegularExpression("^company-2011.*db$")), older);
    EXPECT_EQ(run({"backup", path("company.db"), path("kept"), "--keep=3"}).err, "");
    QStringList expected = strangers + older.mid(1) + QStringList{"company-2011-03-30-140509.db", later};
    expected.sort();
    EXPECT_EQ(kept(), expected);
    at(QTime(15, 0));
    EXPECT_EQ(run({"backup", path("company.db"), path("kept")}).err, "");
    EXPECT_EQ(kept().size(), expected.size() + 1);
}

TEST_F(BackupTest, WhatCannotBeDoneIsOneLineAndLeavesNothing)
{
    const auto database = open(path("company.db"));
    for (int part = 0; part < 2000; ++part)
        database->Execute(QString("INSERT INTO Part (PartNo) VALUES ('%1')").arg(part));
    run({"backup", path("company.db"), path(".")});
    QByteArray damaged = bytes("company-2011-03-30-140509.db");
    damaged.replace(damaged.size() - 20000, 16000, QByteArray(16000, 'x'));
    fileWith("damaged.db", damaged);
    fileWith("cut.db", damaged.first(damaged.size() / 2));
    fileWith("taken.db", "x");
    fileWith("log.db-wal", "x");
    fileWith("half.db.part", "x");
    ASSERT_TRUE(QDir(m_folder.path()).mkdir("busy"));
    QLockFile busy(path("busy/company-backup.lock"));
    ASSERT_TRUE(busy.lock());
    const QString good = path("company.db"), to = path("new.db"), folder = path("kept");
    const QStringList before = QDir(m_folder.path()).entryList(QDir::Files);
    const struct
    {
        QStringList arguments;
        const char *says;
    } rows[] = {
        {{"backup", good}, "backup takes FROM and FOLDER"},
        {{"backup", good, folder, "--keep", "0"}, "--keep takes a whole number from 1 to 100000, not '0'"},
        {{"backup", good, path("nowhere")}, "/nowhere' is no folder"},
        {{"backup", good, path("busy")}, "another backup into"},
        {{"backup", path("missing.db"), folder}, "Could not find file"},
        {{"backup", path("taken.db"), folder}, "Unrecognized database format"},
        {{"backup", path("damaged.db"), folder, "--keep=1"}, "/damaged.db' is damaged: "},
        {{"backup", path("cut.db"), folder}, "Cannot open database"},
        {{"restore", path("damaged.db"), to}, "/damaged.db' is damaged: "},
        {{"restore", path("missing.db"), to}, "Could not find file"},
        {{"restore", good, path("taken.db")}, "/taken.db' is there already"},
        {{"restore", good, path("log.db")}, "/log.db-wal' is there already"},
        {{"restore", good, path("half.db")}, "if nothing is running, remove it"},
        {{"restore", good, path("nowhere/new.db")}, "is not a valid path"},
        {{"create", path("half.db")}, "if nothing is running, remove it"},
        {{"demo", path("half.db")}, "if nothing is running, remove it"},
        {{"copy", good, path("half.db")}, "if nothing is running, remove it"},
    };
    for (const auto &row : rows) {
        const Outcome outcome = run(row.arguments);
        EXPECT_EQ(outcome.status, 1) << row.says;
        EXPECT_TRUE(outcome.err.startsWith("tamrick-db: ") && outcome.err.contains(row.says))
            << outcome.err.toStdString();
        EXPECT_EQ(outcome.err.count('\n'), 1) << outcome.err.toStdString();
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(kept(), QStringList());
    }
    EXPECT_EQ(QDir(m_folder.path()).entryList(QDir::Files), before);
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
        const Outcome outcome = run(call);
        setrlimit(RLIMIT_FSIZE, &before);
        EXPECT_EQ(outcome.status, 1) << call[0].toStdString();
        EXPECT_EQ(outcome.err.count('\n'), 1) << outcome.err.toStdString();
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
    ASSERT_EQ(run({"backup", path("company.db"), path("kept")}).err, "");
    EXPECT_EQ(mode("kept/company-2011-03-30-140509.db"), 0640);

    const mode_t umaskBefore = umask(022);
    run({"create", path("kept/alone.db")});
    chmod(path("kept").toUtf8(), 02770);
    run({"create", path("kept/shared.db")});
    run({"demo", path("kept/demo.db")});
    run({"restore", path("company.db"), path("kept/back.db")});
    umask(umaskBefore);
    EXPECT_EQ(mode("kept/alone.db"), 0644);
    for (const char *name : {"kept/shared.db", "kept/demo.db", "kept/back.db"})
        EXPECT_EQ(mode(name), 0664) << name;
}

} // namespace
