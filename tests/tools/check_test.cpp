#include "tests/support/datafile.h"
#include "tests/tools/toolstest.h"

#include "data/engines/sqlite/connection.h"
#include <QRegularExpression>

namespace {

class CheckTest : public ToolsTest
{
protected:
    void SetUp() override { ASSERT_EQ(run({"demo", path("sound.db"), "--until=2011-03-30"}).status, 0); }

    /// What check says of the sound company after a change by another tool.
    Outcome checkAfter(const QByteArray &sql)
    {
        QFile::remove(path("c.db"));
        EXPECT_TRUE(QFile::copy(path("sound.db"), path("c.db")));
        {
            ConnectionOptions options;
            options.file = path("c.db");
            Connection connection(options);
            connection.run(sql, {});
        }
        return run({"check", path("c.db")});
    }
};

TEST_F(CheckTest, NamesTheTableAndTheRowsOfEachFaultAndBearsWhatTheProgramItselfMayLeaveBehind)
{
    const QStringList cases = linesOf("tools/findings.txt");
    ASSERT_GT(cases.size(), 180);
    for (qsizetype i = 2; i + 1 < cases.size(); i += 3) {
        SCOPED_TRACE(cases[i].toStdString());
        const Outcome outcome = checkAfter(cases[i].toUtf8());
        const QString says = QRegularExpression::escape(cases[i + 1]).replace("\\.\\.\\.", ".*");
        EXPECT_EQ(outcome.status, says == "ok" ? 0 : 1);
        EXPECT_TRUE(
            QRegularExpression('^' + says + '$', QRegularExpression::MultilineOption).match(outcome.out).hasMatch())
            << outcome.out.toStdString();
    }
}

TEST_F(CheckTest, HoldsTheSettingsAgainstTheDatabase)
{
    const QByteArray head = "Settings\nDatabase,\"x\"\nWarehouse,", tail = "\nReserved,0\nPrices,YES\nSeconds,1.5\n";
    const QByteArray known =
        open(path("sound.db"))->OpenRecordset("SELECT Warehouse FROM Warehouse").Fields(0).text().toUtf8();
    const auto with = [&](const QByteArray &settings) {
        return run({"check", path("sound.db"), "--config", fileWith("config.txt", settings)});
    };
    EXPECT_EQ(with(head + '"' + known.toUpper() + '"' + tail).out, "ok\n");
    EXPECT_EQ(with(head + tail).out, "ok\n") << "no default is fine";
    EXPECT_EQ(
        with(head + "Moon" + tail).out,
        "config.txt: the default warehouse is not an active one, which ends order entry (error 383): Moon does not "
        "exist\n");
    EXPECT_EQ(with(head + "Moon").out.section(':', 0, 1),
              "config.txt: ends too early, which ends the program at its start");
    EXPECT_EQ(run({"check", path("sound.db"), "--config", path("missing.txt")}).status, 1);
    EXPECT_EQ(run({"check", path("sound.db"), "--config"}).status, 1);
}

TEST_F(CheckTest, ReportsAFileThatIsDamagedInside)
{
    QFile file(path("sound.db"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_GT(file.size(), 400000);
    file.seek(file.size() / 2);
    file.write(QByteArray(8192, '\x7F'));
    file.close();
    const Outcome outcome = run({"check", path("sound.db")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.out + outcome.err, "");
}

} // namespace
