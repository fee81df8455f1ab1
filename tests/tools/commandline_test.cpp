#include "tests/tools/toolstest.h"

#include "data/values/clock.h"

namespace {

TEST_F(ToolsTest, ANewDatabaseHasEveryTableWithoutRowsAndOpensWithItsPasswordOnly)
{
    ASSERT_EQ(run({"create", path("new.db")}).status, 0);
    EXPECT_EQ(run({"check", path("new.db")}).out, "ok\n");
    EXPECT_EQ(errorNumberOf([&] { open(path("new.db"), "other"); }), 3031);
    const auto database = open(path("new.db"));
    for (const TableDef &table : database->TableDefs())
        EXPECT_TRUE(database->OpenRecordset("SELECT * FROM [" + table.Name + "]").Eof()) << table.Name.toStdString();
}

TEST_F(ToolsTest, CreateAndDemoLeaveAnExistingFileAsItIs)
{
    const QString file = fileWith("kept.db", "precious");
    for (const char *command : {"create", "demo"}) {
        const Outcome outcome = run({command, file});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.err, "tamrick-db: '" + file + "' is there already and stays as it is\n");
    }
    QFile kept(file);
    ASSERT_TRUE(kept.open(QIODevice::ReadOnly));
    EXPECT_EQ(kept.readAll(), "precious");
}

TEST_F(ToolsTest, EveryWrongCallGivesOneLineAndAFailingStatus)
{
    const QString junk = fileWith("junk.db", "no database at all");
    run({"create", path("good.db")});
    const struct
    {
        QStringList arguments;
        const char *says;
    } rows[] = {
        {{}, "say create, demo, load, check, share, export, copy, backup, restore or takeover (--help tells more)"},
        {{""}, "say create, demo, load, check, share, export, copy, backup, restore or takeover (--help tells more)"},
        {{"frobnicate"},
         "say create, demo, load, check, share, export, copy, backup, restore or takeover (--help tells more)"},
        {{"create"}, "create takes one FILE"},
        {{"create", "a", "b"}, "create takes one FILE"},
        {{"create", ""}, "Not a valid file name."},
        {{"create", "--overwrite"}, "create has no option '--overwrite'"},
        {{"check", path("good.db"), "-v"}, "check has no option '-v'"},
        {{"load", "a", "b"}, "load takes FILE, TABLE and CSV"},
        {{"export", "a"}, "export takes FILE and TABLE"},
        {{"demo", "--scale", "3"}, "demo takes a FILE and options behind it"},
        {{"demo", path("x.db"), "--scale", "0"}, "--scale takes a whole number from 1 to 100, not '0'"},
        {{"demo", path("x.db"), "--scale=101"}, "--scale takes a whole number from 1 to 100, not '101'"},
        {{"demo", path("x.db"), "--scale"}, "--scale takes a whole number from 1 to 100, not ''"},
        {{"demo", path("x.db"), "--seed=x"}, "--seed takes a whole number"},
        {{"demo", path("x.db"), "--until", "2/29/2011"}, "--until takes a date such as 2011-03-30, not '2/29/2011'"},
        {{"demo", path("x.db"), "--size=3"}, "demo has no option '--size=3'"},
        {{"create", path("nowhere/x.db")}, "is not a valid path."},
        {{"create", path("no\nwhere/x.db")}, "is not a valid path."},
        {{"check", path(".")}, "is not a valid path."},
        {{"load", path("good.db"), "Orders", path(".")}, "cannot read"},
        {{"check", path("missing.db")}, "Could not find file"},
        {{"check", junk}, "Unrecognized database format"},
        {{"export", junk, "Orders"}, "Unrecognized database format"},
        {{"load", junk, "Orders", junk}, "Unrecognized database format"},
        {{"export", path("good.db"), "Nosuch"}, "has no table 'Nosuch'"},
        {{"export", path("good.db"), "MSysPassword"}, "has no table 'MSysPassword'"},
        {{"load", path("good.db"), "Nosuch", junk}, "has no table 'Nosuch'"},
        {{"load", path("good.db"), "Orders", path("missing.csv")}, "cannot read"},
    };
    for (const auto &row : rows) {
        const Outcome outcome = run(row.arguments);
        EXPECT_EQ(outcome.status, 1) << row.says;
        EXPECT_EQ(outcome.out, "") << row.says;
        EXPECT_TRUE(outcome.err.startsWith("tamrick-db: ") && outcome.err.contains(row.says))
            << outcome.err.toStdString();
        EXPECT_EQ(outcome.err.count('\n'), 1) << outcome.err.toStdString();
    }
    EXPECT_FALSE(QFile::exists(path("x.db")));
}

TEST_F(ToolsTest, HelpNamesEveryCommand)
{
    for (const QStringList &arguments : {QStringList{"--help"}, {"help"}, {"create", "--help"}, {"demo", "--help"}}) {
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, 0);
        for (const char *command :
             {"create FILE", "demo FILE", "load FILE TABLE CSV", "check FILE", "export FILE TABLE",
              "backup FROM FOLDER", "restore BACKUP TO", "takeover OLD.mdb NEW"})
            EXPECT_TRUE(outcome.out.contains(command)) << command;
    }
}

TEST_F(ToolsTest, TheDemoCompanyEndsTodayUnlessTold)
{
    Clock::setSource([] { return QDateTime(QDate(2011, 3, 30), QTime(9, 0)); });
    run({"demo", path("today.db")});
    Clock::setSource({});
    const auto database = open(path("today.db"));
    Recordset newest = database->OpenRecordset("SELECT MAX(OrderDate) AS Newest FROM Orders");
    EXPECT_LE(newest.Fields(0).value().toDate(), Date(2011, 3, 30));
    EXPECT_GE(newest.Fields(0).value().toDate(), Date(2011, 3, 28));
}

} // namespace
