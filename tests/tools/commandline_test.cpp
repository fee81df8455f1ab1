#include "tests/tools/toolstest.h"

#include <QDirIterator>
#include <QLockFile>

namespace {

class CommandLineTest : public ToolsTest
{
protected:
    /// Every file there is, with what it holds.
    QMap<QString, QByteArray> files() const
    {
        QMap<QString, QByteArray> files;
        QDirIterator it(m_folder.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QString name = QDir(m_folder.path()).relativeFilePath(it.next());
            files[name] = contentOf(name);
        }
        return files;
    }
};

TEST_F(CommandLineTest, ANewDatabaseHasEveryTableWithoutRowsAndOpensWithItsPasswordOnly)
{
    done({"create", path("new.db")});
    EXPECT_EQ(done({"check", path("new.db")}), "ok\n");
    EXPECT_EQ(errorNumberOf([&] { open(path("new.db"), "other"); }), 3031);
    const auto database = open(path("new.db"));
    for (const TableDef &table : database->TableDefs())
        EXPECT_TRUE(database->OpenRecordset("SELECT * FROM [" + table.Name + "]").Eof()) << table.Name.toStdString();
}

TEST_F(CommandLineTest, WhatCannotBeDoneIsOneLineAndLeavesEverythingAsItIs)
{
    const QString good = path("good.db"), to = path("new.db"), folder = path("kept");
    done({"create", good});
    {
        const auto database = open(good);
        for (int part = 0; part < 2000; ++part)
            database->Execute(QString("INSERT INTO Part (PartNo) VALUES ('%1')").arg(part));
    }
    for (const char *name : {"kept", "busy"})
        ASSERT_TRUE(QDir(m_folder.path()).mkdir(name));
    const QString whole = done({"backup", good, path("busy")}).trimmed().section('/', -1);
    QByteArray damaged = contentOf("busy/" + whole);
    fileWith("cut.db", damaged.first(damaged.size() / 2));
    damaged.replace(damaged.size() - 20000, 16000, QByteArray(16000, 'x'));
    fileWith("damaged.db", damaged);
    const QString junk = fileWith("junk.db", "no database at all"), uri = "postgresql://clerk@nowhere/company";
    fileWith("log.db-wal", "x");
    const QString half = fileWith("half.db.part", "x").chopped(5);
    QLockFile busy(path("busy/good-backup.lock"));
    ASSERT_TRUE(busy.lock());
    const QString commands =
        "say create, demo, load, check, share, export, copy, backup, restore or takeover (--help tells more)";
    const QString isThere = "'" + junk + "' is there already and stays as it is",
                  isHalf = "if nothing is running, remove it";
    const struct
    {
        QStringList arguments;
        QString says;
    } rows[] = {
        {{}, commands},
        {{""}, commands},
        {{"frobnicate"}, commands},
        {{"create"}, "create takes one FILE"},
        {{"create", "a", "b"}, "create takes one FILE"},
        {{"create", ""}, "Not a valid file name."},
        {{"create", "--overwrite"}, "create has no option '--overwrite'"},
        {{"create", junk}, isThere},
        {{"create", half}, isHalf},
        {{"create", path("nowhere/x.db")}, "is not a valid path."},
        {{"create", path("no\nwhere/x.db")}, "is not a valid path."},
        {{"demo", "--scale", "3"}, "demo takes a FILE and options behind it"},
        {{"demo", to, "--scale", "0"}, "--scale takes a whole number from 1 to 100, not '0'"},
        {{"demo", to, "--scale=101"}, "--scale takes a whole number from 1 to 100, not '101'"},
        {{"demo", to, "--scale"}, "--scale takes a whole number from 1 to 100, not ''"},
        {{"demo", to, "--seed=x"}, "--seed takes a whole number"},
        {{"demo", to, "--until", "2/29/2011"}, "--until takes a date such as 2011-03-30, not '2/29/2011'"},
        {{"demo", to, "--size=3"}, "demo has no option '--size=3'"},
        {{"demo", junk}, isThere},
        {{"demo", half}, isHalf},
        {{"check", good, "-v"}, "check has no option '-v'"},
        {{"check", good, "--config"}, "--config takes a file"},
        {{"check", good, "--config", path("missing.txt")}, "File not found"},
        {{"check", path(".")}, "is not a valid path."},
        {{"check", path("missing.db")}, "Could not find file"},
        {{"check", path("damaged.db")}, "Cannot open database"},
        {{"check", junk}, "Unrecognized database format"},
        {{"export", "a"}, "export takes FILE and TABLE"},
        {{"export", junk, "Orders"}, "Unrecognized database format"},
        {{"export", good, "Nosuch"}, "has no table 'Nosuch'"},
        {{"export", good, "MSysPassword"}, "has no table 'MSysPassword'"},
        {{"load", "a", "b"}, "load takes FILE, TABLE and CSV"},
        {{"load", good, "Orders", path(".")}, "cannot read"},
        {{"load", junk, "Orders", junk}, "Unrecognized database format"},
        {{"load", good, "Nosuch", junk}, "has no table 'Nosuch'"},
        {{"load", good, "Orders", path("missing.csv")}, "cannot read"},
        {{"load", good, "Orders", uri}, "load takes a file there, not a server's database"},
        {{"share", uri}, "share takes a file there, not a server's database"},
        {{"copy", path("none.db"), to}, "Could not find file"},
        {{"copy", good, junk}, isThere},
        {{"copy", good, half}, isHalf},
        {{"backup", good}, "backup takes FROM and FOLDER"},
        {{"backup", good, folder, "--keep", "0"}, "--keep takes a whole number from 1 to 100000, not '0'"},
        {{"backup", good, path("nowhere")}, "/nowhere' is no folder"},
        {{"backup", good, path("busy")}, "another backup into"},
        {{"backup", good, uri}, "backup takes a file there, not a server's database"},
        {{"backup", path("missing.db"), folder}, "Could not find file"},
        {{"backup", junk, folder}, "Unrecognized database format"},
        {{"backup", path("damaged.db"), folder, "--keep=1"}, "/damaged.db' is damaged: "},
        {{"backup", path("cut.db"), folder}, "Cannot open database"},
        {{"restore", path("damaged.db"), to}, "/damaged.db' is damaged: "},
        {{"restore", path("missing.db"), to}, "Could not find file"},
        {{"restore", good, junk}, isThere},
        {{"restore", good, path("log.db")}, "/log.db-wal' is there already"},
        {{"restore", good, half}, isHalf},
        {{"restore", good, path("nowhere/new.db")}, "is not a valid path"},
        {{"restore", uri, to}, "restore takes a file there, not a server's database"},
        {{"takeover", path("none.mdb"), to}, "cannot read"},
        {{"takeover", uri, to}, "takeover takes a file there, not a server's database"},
    };
    const auto before = files();
    for (const auto &row : rows) {
        SCOPED_TRACE(row.arguments.join(' ').toStdString());
        const QString line = refusal(row.arguments);
        EXPECT_TRUE(line.contains(row.says)) << line.toStdString();
        ASSERT_TRUE(files() == before);
    }
}

TEST_F(CommandLineTest, HelpNamesEveryCommand)
{
    for (const QStringList &arguments : {QStringList{"--help"}, {"help"}, {"create", "--help"}, {"demo", "--help"}}) {
        const QString help = done(arguments);
        for (const char *command :
             {"create FILE", "demo FILE", "load FILE TABLE CSV", "check FILE", "export FILE TABLE",
              "backup FROM FOLDER", "restore BACKUP TO", "takeover OLD.mdb NEW"})
            EXPECT_TRUE(help.contains(command)) << command;
    }
}

} // namespace
