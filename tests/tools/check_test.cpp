#include "tests/support/datafile.h"
#include "tests/tools/toolstest.h"

#include "data/engines/sqlite/connection.h"
#include <QRegularExpression>

namespace {

class CheckTest : public ToolsTest
{
protected:
    CheckTest() { makeDemo(path("sound.db")); }

    /// What check says of the sound company after a change by another tool.
    Outcome checkAfter(const QByteArray &sql)
    {
        ConnectionOptions options;
        options.file = fileWith("c.db", contentOf("sound.db"));
        Connection(options).run(sql, {});
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
    open(path("sound.db"))->Execute("UPDATE Warehouse SET Status = 'InActive' WHERE Warehouse = '" + known + '\'');
    EXPECT_TRUE(with(head + known + tail).out.endsWith(": " + known + " is InActive\n"));
    EXPECT_EQ(with(head + "Moon").out.section(':', 0, 1),
              "config.txt: ends too early, which ends the program at its start");
}

} // namespace
