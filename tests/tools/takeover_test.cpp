#include "bench/oldfiles/jetwriter.h"
#include "tests/tools/toolstest.h"

#include "data/schema/schema.h"
#include "tools/takeover/comparison.h"

namespace {

using Version = JetWriter::Version;
using Column = JetWriter::Column;

class TakeoverTest : public ToolsTest
{
protected:
    Outcome takeOver(const QByteArray &old, const QStringList &options = {})
    {
        const QString file = fileWith("old.mdb", old);
        const Outcome outcome = run(QStringList{"takeover", file, path("new.db")} + options);
        EXPECT_TRUE(contentOf("old.mdb") == old) << "the old file was changed";
        EXPECT_FALSE(QFile::exists(path("new.db.part")));
        return outcome;
    }
    /// The same of a company that goes over whole, from scratch.
    QString takenOver(const QByteArray &old)
    {
        QFile::remove(path("new.db"));
        const Outcome outcome = takeOver(old);
        EXPECT_EQ(outcome.status, 0) << outcome.out.toStdString() << outcome.err.toStdString();
        return outcome.out;
    }
};

TEST_F(TakeoverTest, AWholeCompanyGoesOverFromEachGenerationAlsoWithAPassword)
{
    makeDemo(path("demo.db"));
    const auto demo = open(path("demo.db"));
    for (const auto &[version, key] :
         {std::pair(Version::Jet3, 0u), {Version::Jet4, 0x1badcafeu}, {Version::Accdb, 0u}}) {
        const QString says = takenOver(jetFileOf(*demo, version, key));
        EXPECT_FALSE(says.contains("check:")) << says.toStdString();
        EXPECT_EQ(says.count("both sides agree"), qsizetype(Schema::permanentTables().size()));
        for (const TableDef &table : Schema::permanentTables())
            EXPECT_TRUE(rowsOf(path("new.db"), table.Name) == rowsOf(path("demo.db"), table.Name))
                << table.Name.toStdString();
    }
}

TEST_F(TakeoverTest, EveryValueComesOverAsItWas)
{
    const QString longer = QString("12, 34, ").repeated(70), longest = QString("München €, ").repeated(900);
    for (Version version : {Version::Jet3, Version::Jet4, Version::Accdb}) {
        JetWriter old(version);
        old.add("Customer",
                {{"Customer", JetWriter::Text},
                 {"City", JetWriter::Text},
                 {"Days", JetWriter::Integer},
                 {"PrintStatements", JetWriter::YesNo}},
                {{"Null", {}, {}, false}, {"Empty", "", -7, true}, {"Caf\u00e9 \u20ac", "  edges  ", 0, false}});
        old.add("Part",
                {{"Cost", JetWriter::Money},
                 {"SalePrice", JetWriter::Single},
                 {"MinOnHand", JetWriter::Byte},
                 {"PartNo", JetWriter::Text},
                 {"Category", JetWriter::Text}},
                {{Currency{127555}, 0.5, 255, "A", "x"}, {Currency{-1}, -2.25, 0, "B", QString(50, 'y')}});
        old.add(
            "Orders", {{"ID", JetWriter::Long}, {"OrderDate", JetWriter::DateTime}, {"DueDate", JetWriter::DateTime}},
            {{900, Date(100, 1, 1), Date(9999, 12, 31)}, {5, Date(-1.25), Date(36526.5)}, {-3, Date(0.75), Value()}});
        old.add("Invoice", {{"ID", JetWriter::Long}, {"Shipment", JetWriter::Memo}, {"Total", JetWriter::Double}},
                {{1, "0", 0.1}, {2, longer, -1e300}, {3, longest, 1.0 / 3}, {4, "", 0}, {5, Value(), 0}});
        takenOver(old.file());
        const auto made = open(path("new.db"));
        const auto joined = [&](const QString &sql) {
            QStringList all;
            for (Recordset rows = made->OpenRecordset(sql); !rows.Eof(); rows.MoveNext()) {
                for (int i = 0; i < rows.fieldCount(); ++i)
                    all += rows.Fields(i).isNull() ? QString("-") : rows.Fields(i).text();
            }
            return all.join('|');
        };
        EXPECT_EQ(joined("SELECT Customer, City, Days, PrintStatements FROM Customer"),
                  "Null|-|-|False|Empty||-7|True|Caf\u00e9 \u20ac|  edges  |0|False");
        EXPECT_EQ(joined("SELECT PartNo, Cost, SalePrice, MinOnHand FROM Part"), "A|12.7555|0.5|255|B|-0.0001|-2.25|0");
        EXPECT_EQ(rowsOf(path("new.db"), "Orders"),
                  "-3,,,,,1899-12-30 18:00:00,,,,,,,,,,,0\n5,,,,,1899-12-29 06:00:00,2000-01-01 12:00:00,,,,,,,,,,0\n"
                  "900,,,,,0100-01-01,9999-12-31,,,,,,,,,,0\n");
        EXPECT_EQ(joined("SELECT Shipment, Total FROM Invoice"),
                  "0|0.1|" + longer + "|-1E+300|" + longest + "|0.333333333333333||0|-|0");
        Recordset orders = made->OpenRecordset("SELECT * FROM Orders");
        orders.AddNew();
        EXPECT_EQ(orders.Fields("ID").value(), Value(901));
    }
}

TEST_F(TakeoverTest, ManyPagesManyColumnsAndAnotherAlphabetComeOverWhole)
{
    const QString moscow = QString::fromUtf8("Москва");
    for (Version version : {Version::Jet3, Version::Jet4, Version::Accdb}) {
        JetWriter old(version, version == Version::Jet3 ? 1251 : 1252);
        std::vector<Column> columns{{"ID", JetWriter::Long}, {"Shipment", JetWriter::Memo}};
        for (int i = 0; i < 150; ++i)
            columns.push_back({QString("A further column, number %1").arg(i), JetWriter::YesNo});
        columns.push_back({"Customer", JetWriter::Text});
        std::vector<JetWriter::Row> rows;
        for (int id = 1; id <= 700; ++id) {
            JetWriter::Row row(columns.size(), Value(id % 7 == 0));
            row[0] = id;
            row[1] = QString("%1, ").arg(id).repeated(20); // each on a page of its own, between those of the table
            row.back() = moscow;
            rows.push_back(row);
        }
        old.add("Invoice", columns, rows);
        EXPECT_TRUE(takenOver(old.file())
                        .contains("Invoice: column A further column, number 149 is not taken; rows that hold something "
                                  "in it: 100\n"));
        Recordset last = open(path("new.db"))->OpenRecordset("SELECT Customer, Shipment FROM Invoice WHERE ID = 700");
        EXPECT_EQ(last.Fields(0).value(), Value(moscow));
        EXPECT_EQ(last.Fields(1).value(), Value(QString("700, ").repeated(20)));
    }
}

TEST_F(TakeoverTest, WhatIsRefusedMissingOrLeftIsNamedAndTheResultKeptOnRequestOnly)
{
    JetWriter old(Version::Jet4);
    old.add("Customer",
            {{"Customer", JetWriter::Text},
             {"Days", JetWriter::Text},
             {"Notes", JetWriter::Memo},
             {"Logo", JetWriter::Picture}},
            {{"Good", "30", "x", "p"},
             {"Bad", "soon", Value(), Value()},
             {QString(51, 'n'), "1", "", Value()},
             {QStringLiteral("a\0b"), "1", "y", Value()}});
    old.add("Orders", {{"ID", JetWriter::Long}, {"OrderDate", JetWriter::DateTime}, {"Total", JetWriter::Double}},
            {{1, Date(40000), 1.0},
             {1, Date(40000), 2.0},
             {2, 1e9, 0.0},
             {3, Date(1), std::nan("")},
             {Value(), Value(), 0.0}});
    old.add("ShipmentItems", {{"ShipmentID", JetWriter::Double}, {"OrderID", JetWriter::Long}}, {{2.5, 1}, {7.0, 1}});
    old.add("Payments", {{"Amount", JetWriter::Double}}, {{1.0}});
    old.add("Widgets", {{"Name", JetWriter::Text}}, {{"a"}, {"b"}});
    old.add("tmpARTran", {{"Customer", JetWriter::Text}}, {{"a"}});
    old.add("Part", {{"PartNo", JetWriter::Text}}, {{"A"}}, 3);
    old.addLink("Warehouse");
    fileWith("old.ldb", "");
    const Outcome refused = takeOver(old.file());
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.err, "");
    for (const char *line : {
             "File: somebody seems to have it open (old.ldb); take it over when all have left",
             "Customer: column Address1 is missing and takes its default",
             "Customer: Customer Bad, column Days: 'soon' is no whole number of 32 bits: the row is refused",
             "Customer: Customer nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn, column Customer: longer than 50 "
             "characters: the row is refused",
             "Customer: Customer a b, column Customer: a zero character in the text: the row is refused",
             "Customer: column Notes is not taken; rows that hold something in it: 2",
             "Customer: column Logo is not taken; rows that hold something in it: 1",
             "Customer: 1 rows taken",
             "Orders: ID 1, another row has that number: the row is refused",
             "Orders: ID 2, column OrderDate: what it holds cannot be read: the row is refused",
             "Orders: ID 3, column Total: 'nan' is no number: the row is refused",
             "Orders: ID empty, column ID: no number: the row is refused",
             "ShipmentItems: ShipmentID 2.5, OrderID 1, column ShipmentID: '2.5' is no whole number of 32 bits: the "
             "row is refused",
             "Payments: without the column of its numbers the table is not taken, 1 rows",
             "Widgets: not taken, 2 rows",
             "Part: the file tells of 3 rows and has 1 that can be read: it is damaged",
             "Warehouse: its rows lie in another file; take that one over",
             "AvailInv: the table is missing and stays empty",
             "check: Part: no Category, Cost or SalePrice (Null), which ends the program where parts are listed: A",
             "Not everything has gone over, so nothing is kept (--keep keeps it)",
         }) {
        EXPECT_TRUE(refused.out.contains(QString(line) + '\n')) << line << "\n" << refused.out.toStdString();
    }
    EXPECT_FALSE(refused.out.contains("tmpARTran"));
    EXPECT_FALSE(QFile::exists(path("new.db")));

    EXPECT_EQ(takeOver(old.file(), {"--keep"}).status, 1);
    EXPECT_EQ(rowsOf(path("new.db"), "Orders"), "1,,,,,2009-07-06,,,,,,,,,,,1\n");
}

TEST_F(TakeoverTest, RowsThatDifferOnTheTwoSidesAreNamedByTheirKeys)
{
    JetWriter old(Version::Jet4);
    old.add("Payments", {{"ID", JetWriter::Long}, {"Amount", JetWriter::Double}}, {{1, 10.0}, {2, 20.0}, {3, 30.5}});
    old.add("AvailInv", {{"Whse", JetWriter::Text}, {"Part", JetWriter::Text}, {"Avail", JetWriter::Long}},
            {{"Main", "A", 7}, {"Main", "A", 7}, {"Main", "B", Value()}});
    takenOver(old.file());
    const auto compared = [&] {
        QString lines;
        QTextStream report(&lines);
        const bool same = compareWithOld(path("old.mdb"), path("new.db"), {}, report);
        report.flush();
        EXPECT_EQ(same, !lines.contains("differences"));
        lines.replace(QRegularExpression(", hash [0-9a-f]{16}"), "");
        return lines;
    };
    EXPECT_EQ(compared(), "Payments: both sides agree: 3 rows, ID 6, Invoice 0, Amount 60.5, Adjustment 0\n"
                          "AvailInv: both sides agree: 3 rows, Avail 14\n");
    open(path("new.db"))->Execute("UPDATE Payments SET Amount = 20.0001 WHERE ID = 2");
    open(path("new.db"))->Execute("UPDATE AvailInv SET Avail = 0 WHERE Part = 'B'");
    EXPECT_EQ(compared(),
              "Payments: ID 2 is not in the new database as it is in the old one\n"
              "Payments: ID 2 is not in the old database as it is in the new one\n"
              "Payments: the old side: 3 rows, ID 6, Invoice 0, Amount 60.5, Adjustment 0\n"
              "Payments: the new side: 3 rows, ID 6, Invoice 0, Amount 60.5001, Adjustment 0; differences: 2\n"
              "AvailInv: Whse Main, Part B is not in the new database as it is in the old one\n"
              "AvailInv: Whse Main, Part B is not in the old database as it is in the new one\n"
              "AvailInv: the old side: 3 rows, Avail 14\n"
              "AvailInv: the new side: 3 rows, Avail 14; differences: 2\n");
}

TEST_F(TakeoverTest, AFileOfAnotherKindIsOneClearLine)
{
    JetWriter writer(Version::Accdb);
    writer.add("Widgets", {{"Name", JetWriter::Text}}, {{"a"}});
    const QByteArray others = writer.file();
    QByteArray newer = others, encrypted = others;
    newer[0x14] = 9;
    for (qsizetype at = writer.pageSize(); at < encrypted.size(); ++at)
        encrypted[at] = char(encrypted[at] ^ (at * 7 + 1));
    const char *none = "no Jet database, or of a version that cannot be read";
    for (const auto &[strange, says] : {std::pair{QByteArray(), none},
                                        {QByteArray("not a database"), none},
                                        {QByteArray(5000, 'x'), none},
                                        {newer, none},
                                        {encrypted, "it is encrypted or damaged"}}) {
        const QString line = refusal({"takeover", fileWith("old.mdb", strange), path("new.db")});
        EXPECT_TRUE(line.contains(says)) << line.toStdString();
    }
    EXPECT_TRUE(takeOver(others).err.endsWith("it has no table of a company\n"));
}

} // namespace
