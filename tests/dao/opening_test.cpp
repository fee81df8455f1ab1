#include "data/schema/schema.h"
#include "tests/dao/databasefile.h"
#include <QDir>
#include <QFile>

namespace {

void write(const QString &path, const QByteArray &contents)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(contents);
}

QString openError(const QString &name, const QString &connect)
{
    return errorTextOf([&] { DBEngine::OpenDatabase(name, false, false, connect); });
}

TEST(OpenDatabase, SaysWhatIsWrongWithTheFile)
{
    const DatabaseFile file;
    const QString text = file.folder() + "/text.db", empty = file.folder() + "/empty.db";
    const QString foreign = file.folder() + "/foreign.db";
    write(text, QByteArray("no database at all\n").repeated(100));
    write(empty, {});
    PlainConnection(foreign).run("CREATE TABLE Customer (Customer TEXT)");

    const QString missing = file.folder() + "/missing.db", astray = file.folder() + "/nowhere/company.db";
    const QString right = QStringLiteral(";pwd=") + DatabaseFile::Password;
    const struct
    {
        QString name, connect, error;
    } cases[] = {
        {"", right, "Not a valid file name."},
        {missing, right, "Could not find file '" + missing + "'."},
        {astray, right,
         "'" + astray +
             "' is not a valid path. Make sure that the path name is spelled correctly and that you are connected to "
             "the server on which the file resides."},
        {file.folder(), right,
         "'" + file.folder() +
             "' is not a valid path. Make sure that the path name is spelled correctly and that you are connected to "
             "the server on which the file resides."},
        {text, right, "Unrecognized database format '" + text + "'."},
        {empty, right, "Unrecognized database format '" + empty + "'."},
        {foreign, right, "Unrecognized database format '" + foreign + "'."},
        {file.path(), ";pwd=Secret", "Not a valid password."},
        {file.path(), ";pwd=", "Not a valid password."},
        {file.path(), "", "Not a valid password."},
        {file.path(), right, ""},
    };
    for (const auto &row : cases)
        EXPECT_EQ(openError(row.name, row.connect), row.error) << row.name.toStdString();
}

TEST(OpenDatabase, FailsOnAFileThatSomeoneElseHoldsAlone)
{
    const DatabaseFile file;
    for (const QString journal : {";journal=log", ";journal=rollback"}) {
        const QString connect = journal + ";busy=50;pwd=" + DatabaseFile::Password;
        const auto alone = DBEngine::OpenDatabase(file.path(), true, false, connect);
        EXPECT_EQ(openError(file.path(), connect), "Could not use '" + file.path() + "'; file already in use.");
    }
    EXPECT_EQ(openError(file.path(), QStringLiteral(";pwd=") + DatabaseFile::Password), "");
}

TEST(OpenDatabase, TwiceInOneProcessGivesIndependentDatabases)
{
    const DatabaseFile file;
    const auto first = file.open();
    {
        const auto second = file.open();
        second->Execute("INSERT INTO Part (PartNo) VALUES ('A')");
        first->Execute("INSERT INTO Part (PartNo) VALUES ('B')");
        EXPECT_EQ(column(*second, "SELECT PartNo FROM Part"), "A B");
    }
    first->Execute("INSERT INTO Part (PartNo) VALUES ('C')");
    EXPECT_EQ(column(*first, "SELECT PartNo FROM Part"), "A B C");
}

TEST(OpenDatabase, ReadOnlyRefusesEveryChange)
{
    const DatabaseFile file;
    file.open()->Execute("INSERT INTO Part (PartNo) VALUES ('A')");
    const auto database =
        DBEngine::OpenDatabase(file.path(), false, true, QStringLiteral(";pwd=") + DatabaseFile::Password);
    EXPECT_EQ(column(*database, "SELECT PartNo FROM Part"), "A");
    EXPECT_EQ(errorNumberOf([&] { database->Execute("DELETE * FROM Part"); }), 3027);
    EXPECT_EQ(errorNumberOf([&] { database->OpenRecordset("SELECT * FROM Part").Edit(); }), 3027);
    EXPECT_EQ(errorNumberOf([&] { database->OpenRecordset("SELECT * FROM Orders").AddNew(); }), 3027);
}

TEST(OpenDatabase, LeavesNothingBesideTheFileOnceItIsClosed)
{
    const DatabaseFile file;
    for (const bool readOnly : {false, true}) {
        {
            const auto database = DBEngine::OpenDatabase(file.path(), false, readOnly,
                                                         QStringLiteral(";journal=log;pwd=") + DatabaseFile::Password);
            EXPECT_EQ(column(*database, "SELECT PartNo FROM Part"), "");
        }
        EXPECT_EQ(QDir(file.folder()).entryList(QDir::Files).size(), 1) << readOnly;
    }
}

TEST(CreateDatabase, MakesEveryTableWithTypesThatReadBackAsDeclared)
{
    const DatabaseFile file;
    std::vector<TableDef> declared = Schema::permanentTables();
    declared.insert(declared.end(), Schema::keptScratchTables().begin(), Schema::keptScratchTables().end());
    const std::vector<TableDef> made = file.open()->TableDefs();
    ASSERT_EQ(made.size(), declared.size());
    for (size_t i = 0; i < made.size(); ++i) {
        EXPECT_EQ(made[i].Name, declared[i].Name);
        ASSERT_EQ(made[i].columns.size(), declared[i].columns.size());
        for (size_t j = 0; j < made[i].columns.size(); ++j) {
            const ColumnDef &is = made[i].columns[j], &should = declared[i].columns[j];
            EXPECT_TRUE(is.name == should.name && is.type == should.type && is.size == should.size &&
                        is.autoNumber == should.autoNumber && is.defaultZero == should.defaultZero)
                << made[i].Name.toStdString() << '.' << should.name.toStdString();
        }
    }
}

TEST(CreateDatabase, LeavesAFileThatOtherToolsReadAndWrite)
{
    const DatabaseFile file;
    auto database = file.open();
    Recordset shipment = database->OpenRecordset("SELECT * FROM Shipment");
    shipment.AddNew();
    shipment.Fields("Date") = Date(2011, 3, 30);
    shipment.Fields("Invoiced") = true;
    shipment.Fields("Via") = "Überland";
    shipment.Update();
    shipment.Close();
    database.reset();
    const struct
    {
        const char *sql, *text;
    } cases[] = {
        {"SELECT Date || '|' || Invoiced || '|' || Via || '|' || Freight FROM Shipment",
         "2011-03-30 00:00:00|1|Überland|0.0"},
        {"SELECT type FROM pragma_table_info('Shipment') WHERE name = 'Via'", "TEXT(50)"},
        {"SELECT count(*) FROM MSysPassword WHERE instr(Hash, 'secret') > 0", "0"},
        {"INSERT INTO Warehouse (Warehouse) VALUES ('Nord')", "no row"},
        {"PRAGMA integrity_check", "ok"},
    };
    for (const auto &row : cases)
        EXPECT_EQ(PlainConnection(file.path()).text(row.sql), row.text);
    EXPECT_EQ(column(*file.open(), "SELECT Warehouse FROM Warehouse WHERE Warehouse = 'NORD'"), "Nord");
}

TEST(CreateDatabase, NeverTouchesAFileThatIsThereAndLeavesNoneBehindOnFailure)
{
    const DatabaseFile file;
    file.open()->Execute("INSERT INTO Part (PartNo) VALUES ('A')");
    EXPECT_EQ(errorNumberOf([&] { createDatabase(file.path(), "other"); }), 3204);
    EXPECT_EQ(column(*file.open(), "SELECT PartNo FROM Part"), "A");
    EXPECT_EQ(errorNumberOf([&] { createDatabase(file.folder() + "/nowhere/x.db", "x"); }), 3044);
}

TEST(OpenDatabase, TakesTheJournalThatTheConnectStringNames)
{
    const DatabaseFile file;
    for (int round = 0; round < 2; ++round) {
        {
            const auto log = file.open(";journal=log");
            EXPECT_TRUE(QFile::exists(file.path() + "-wal"));
        }
        {
            const auto rollback = file.open(";journal=rollback");
            rollback->Execute("INSERT INTO Part (PartNo) VALUES ('A')");
            EXPECT_FALSE(QFile::exists(file.path() + "-wal"));
        }
        EXPECT_EQ(PlainConnection(file.path()).text("PRAGMA journal_mode"), "delete");
    }
}

} // namespace
