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

TEST(OpenDatabase, SaysWhatIsWrongWithTheFile)
{
    const DatabaseFile file;
    const QString text = file.folder() + "/text.db", empty = file.folder() + "/empty.db";
    const DatabaseFile foreign;
    foreign.plain("DROP TABLE MSysPassword");
    write(text, QByteArray("no database at all\n").repeated(100));
    write(empty, {});

    const QString missing = file.folder() + "/missing.db", astray = file.folder() + "/nowhere/company.db";
    const QString noPath = "' is not a valid path. Make sure that the path name is spelled correctly and that you are "
                           "connected to the server on which the file resides.";
    const QString right = QStringLiteral(";pwd=") + DatabaseFile::Password;
    const struct
    {
        QString name, connect, error;
    } cases[] = {
        {"", right, "Not a valid file name."},
        {missing, right, "Could not find file '" + missing + "'."},
        {astray, right, "'" + astray + noPath},
        {file.folder(), right, "'" + file.folder() + noPath},
        {text, right, "Unrecognized database format '" + text + "'."},
        {empty, right, "Unrecognized database format '" + empty + "'."},
        {foreign.path(), right, "Unrecognized database format '" + foreign.path() + "'."},
        {file.path(), ";pwd=Secret", "Not a valid password."},
        {file.path(), ";pwd=", "Not a valid password."},
        {file.path(), "", "Not a valid password."},
        {file.path(), right, ""},
    };
    for (const auto &row : cases)
        EXPECT_EQ(errorTextOf([&] { DBEngine::OpenDatabase(row.name, false, false, row.connect); }), row.error)
            << row.name.toStdString();
}

TEST(OpenDatabase, FailsOnAFileThatSomeoneElseHoldsAlone)
{
    const DatabaseFile file;
    for (const QString &way : file.ways()) {
        const auto alone = file.open(way, true);
        EXPECT_EQ(errorTextOf([&] { file.open(way + ";busy=50"); }),
                  "Could not use '" + file.path() + "'; file already in use.");
    }
    file.open();
}

TEST(OpenDatabase, ReadOnlyRefusesEveryChange)
{
    const DatabaseFile file;
    file.open()->Execute("INSERT INTO Part (PartNo) VALUES ('A')");
    const auto database = file.open({}, false, true);
    EXPECT_EQ(column(*database, "SELECT PartNo FROM Part"), "A");
    EXPECT_EQ(errorNumberOf([&] { database->Execute("DELETE * FROM Part"); }), 3027);
    EXPECT_EQ(errorNumberOf([&] { database->OpenRecordset("SELECT * FROM Part").Edit(); }), 3027);
    EXPECT_EQ(errorNumberOf([&] { database->OpenRecordset("SELECT * FROM Orders").AddNew(); }), 3027);
}

TEST(OpenDatabase, TakesTheJournalThatTheConnectStringNamesAndLeavesNothingBesideTheFile)
{
    const DatabaseFile file;
    for (const QString &way : file.ways()) {
        for (const bool readOnly : {false, true}) {
            SCOPED_TRACE(way.toStdString() + (readOnly ? ", to be read" : ""));
            auto database = file.open(way, false, readOnly);
            if (!readOnly)
                database->Execute("INSERT INTO Part (PartNo) VALUES ('A')");
            EXPECT_EQ(column(*database, "SELECT DISTINCT PartNo FROM Part"), "A");
            EXPECT_EQ(QFile::exists(file.path() + "-wal"), way == ";journal=log");
            database.reset();
            EXPECT_EQ(QDir(file.folder()).entryList(QDir::Files).size(), 1);
            EXPECT_EQ(file.plain("PRAGMA journal_mode"), way == ";journal=log" ? "wal" : "delete");
        }
    }
}

TEST(CreateDatabase, MakesEveryTableWithTypesThatReadBackAsDeclaredAndNoFileAnew)
{
    const DatabaseFile file;
    std::vector<TableDef> declared = Schema::permanentTables();
    declared.insert(declared.end(), Schema::keptScratchTables().begin(), Schema::keptScratchTables().end());
    const auto described = [](const std::vector<TableDef> &tables) {
        QStringList columns;
        for (const TableDef &table : tables) {
            for (const ColumnDef &column : table.columns)
                columns += QString("%1.%2: %3 %4 %5 %6")
                               .arg(table.Name, column.name)
                               .arg(int(column.type))
                               .arg(column.size)
                               .arg(column.autoNumber)
                               .arg(column.defaultZero);
        }
        return columns.join('\n').toStdString();
    };
    EXPECT_EQ(described(file.open()->TableDefs()), described(declared));

    // What is there already stays as it is.
    EXPECT_EQ(errorNumberOf([&] { createDatabase(file.path(), "other"); }), 3204);
    EXPECT_EQ(described(file.open()->TableDefs()), described(declared));
    EXPECT_EQ(errorNumberOf([&] { createDatabase(file.folder() + "/nowhere/x.db", "x"); }), 3044);
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
        EXPECT_EQ(file.plain(row.sql), row.text);
    EXPECT_EQ(column(*file.open(), "SELECT Warehouse FROM Warehouse WHERE Warehouse = 'NORD'"), "Nord");
}

} // namespace
