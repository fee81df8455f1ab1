#include "data/workbook/numberformat.h"
#include "data/workbook/workbook.h"
#include "tests/support/containers.h"
#include "tests/support/printers.h"
#include <QDir>
#include <QTemporaryDir>
#include <QtEndian>
#include <sys/stat.h>
#include <xlsxwriter.h>

namespace {

QString fixture(const char *file)
{
    return QString(TAMRICK_TEST_DATA) + "/reports/workbooks/" + file;
}

QByteArray fixtureContent(const char *file)
{
    QFile fixture_(fixture(file));
    return fixture_.open(QIODevice::ReadOnly) ? fixture_.readAll() : QByteArray();
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
}

/// A row's cells from the first column on; "!13" for one that raises that error.
QStringList row(const Workbook &workbook, int number, int columns)
{
    QStringList cells;
    for (int column = 1; column <= columns; ++column) {
        QString text;
        const int error = errorNumberOf([&] { text = workbook.text(1, number, column); });
        cells += error ? "!" + QString::number(error) : text;
    }
    return cells;
}

// The same sheet, saved by an office program in three kinds: errors, formulas, money, dates, a text of rich runs, one
// of two thousand words (which an .xls splits), and a cell with a comment.
TEST(WorkbookCells, ReadAlikeFromEveryKindOfFile)
{
    const QStringList kinds{"!13",       "!13",         "ab",  "2",         "True",    "True", "12.3457",   "12.3333",
                            "2/14/2003", "12:00:00 PM", "0.5", "12.34567",  "text",    "#N/A", "rich\ntwo", "24.69134",
                            "",          "2/15/2003",   "7",   "123456789", "naïve ☃", ""};
    for (const char *file : {"kinds.xlsx", "kinds.xls", "kinds.ods"}) {
        const Workbook workbook = Workbook::open(fixture(file));
        EXPECT_EQ(row(workbook, 1, 22), kinds) << file;
        const QStringList second = row(workbook, 2, 5);
        EXPECT_EQ(second[1].split(' ').size(), 3000) << file;
        EXPECT_TRUE(second[1].startsWith("00000 ☃ 00001") && second[1].endsWith("01499 ☃")) << file;
        EXPECT_EQ(second.mid(2), QStringList({"-7.5", "2/14/2003 2:05:09 PM", "00123"})) << file;
        EXPECT_EQ(row(workbook, 4, 3), QStringList({"3", "3", ""})) << file;
        EXPECT_EQ(workbook.text(2, 1, 1), "second") << file;
        EXPECT_EQ(workbook.text(1, 9999, 1), "") << file;
        EXPECT_EQ(errorNumberOf([&] { workbook.text(3, 1, 1); }), 9) << file;
        EXPECT_EQ(errorNumberOf([&] { workbook.text(0, 1, 1); }), 9) << file;
    }
}

TEST(WorkbookCells, ReadFromFilesOfBefore1997)
{
    EXPECT_EQ(row(Workbook::open(fixture("kinds95.xls")), 1, 10),
              QStringList({"café", "12.5", "12.3457", "2/14/2003 12:00:00 PM", "ab", "!13", "True", "12.34", "5", ""}));
}

// Some office programs count days from 1900, others from 1904; the file tells which.
TEST(WorkbookCells, AreDatesFourYearsLaterInABookThatCountsFrom1904)
{
    QByteArray xls = fixtureContent("kinds.xls");
    xls[xls.indexOf(QByteArray("\x22\0\2\0\0\0", 6)) + 4] = 1;
    Parts xlsx = xlsxParts("<row r='1'><c r='I1' s='1'><v>37666</v></c></row>",
                           "<cellXfs><xf numFmtId='0'/><xf numFmtId='14'/></cellXfs>");
    xlsx["b.xml"].replace("<sheets>", "<workbookPr date1904='1'/><sheets>");
    const QTemporaryDir folder;
    for (const auto &[name, content] : {std::pair("book.xls", xls), std::pair("book.xlsx", zipped(xlsx))}) {
        write(folder.filePath(name), content);
        EXPECT_EQ(Workbook::open(folder.filePath(name)).text(1, 1, 9), "2/15/2007") << name;
    }
}

TEST(WorkbookCells, ReadAsTextWithoutTheirFormatWhereverTheTextsStand)
{
    QTemporaryDir folder;
    for (const bool textsInCells : {false, true}) {
        const QString path = folder.filePath("cells.xlsx");
        lxw_workbook_options options{};
        options.constant_memory = textsInCells;
        lxw_workbook *book = workbook_new_opt(path.toUtf8().constData(), &options);
        lxw_worksheet *sheet = workbook_add_worksheet(book, nullptr);
        const auto format = [book](const char *picture) {
            lxw_format *result = workbook_add_format(book);
            format_set_num_format(result, picture);
            return result;
        };
        worksheet_write_number(sheet, 0, 0, 12.50, format("0.000"));
        worksheet_write_number(sheet, 0, 1, 1e15, format("$#,##0.00"));
        worksheet_write_number(sheet, 0, 2, 1234567890123456.0, nullptr);
        worksheet_write_number(sheet, 0, 3, -1, format("dd/mm/yyyy"));
        worksheet_write_number(sheet, 0, 4, 5, format("0 \"days\""));
        worksheet_write_string(sheet, 0, 5, "  \xC3\x84pfel\xC2\xA0 ", nullptr);
        worksheet_write_string(sheet, 0, 6, "00123", nullptr);
        worksheet_write_string(sheet, 0, 7, "a\x01 b", nullptr);
        workbook_close(book);
        EXPECT_EQ(row(Workbook::open(path), 1, 8), QStringList({"12.5", "1E+15", "1.23456789012346E+15", "-1", "5",
                                                                "Äpfel\u00A0", "00123", "a\u0001 b"}))
            << textsInCells;
    }
}

TEST(WorkbookCells, TellDatesFromOtherNumbersByTheirFormat)
{
    const struct
    {
        int identifier;
        const char *format;
        NumberKind kind;
    } cases[] = {{0, "General", NumberKind::Plain},
                 {14, "", NumberKind::Date},
                 {44, "", NumberKind::Money},
                 {164, "yyyy-mm-dd", NumberKind::Date},
                 {164, "[h]:mm", NumberKind::Date},
                 {164, "[Red]0.00", NumberKind::Plain},
                 {164, "0.0E+00", NumberKind::Plain},
                 {164, "#,##0\\d", NumberKind::Plain},
                 {164, "0;\"my\"", NumberKind::Plain},
                 {164, "[$$-409]#,##0.00", NumberKind::Money},
                 {164, "0\"unclosed", NumberKind::Plain}};
    for (const auto &c : cases)
        EXPECT_EQ(kindOfNumberFormat(c.identifier, c.format), c.kind) << c.format;
    EXPECT_EQ(kindOfNumberFormat(164, QString("0") + QChar(u'\0')), NumberKind::Plain) << "a zero character";
}

/// An .xls file's record.
QByteArray record(quint16 type, const QByteArray &content)
{
    const quint16 head[] = {qToLittleEndian(type), qToLittleEndian(quint16(content.size()))};
    return QByteArray(reinterpret_cast<const char *>(head), sizeof head) + content;
}

// What crashed the reader, kept it busy or took all memory, and what only a damaged file has.
TEST(WorkbookFiles, AreBrokenBeyondTheLimitsOfTheirFormats)
{
    const QByteArray cell = "<c><v>7</v></c>";
    const auto xlsx = [](const QByteArray &rows, const QByteArray &styles = {}, const QByteArray &strings = {}) {
        return zipped(xlsxParts(rows, styles, strings));
    };
    const auto ods = [](const QByteArray &rows) { return zipped(odsParts(rows)); };
    const auto odsCell = [&](const QByteArray &attributes, const QByteArray &row = {}) {
        return ods("<table:table-row " + row + "><table:table-cell office:value-type='float' office:value='7' " +
                   attributes + "/></table:table-row>");
    };
    const QByteArray begin = record(0x809, QByteArray("\0\x06\x05\0", 4) + QByteArray(12, '\0'));
    const QByteArray end = record(0x0A, {});
    const auto xls = [&](const QByteArray &sheet, int sheets = 1) {
        QByteArray globals = begin;
        for (int i = 0; i < sheets; ++i)
            globals += record(0x85, QByteArray("\0\0\0\0\0\0\1\0A", 9));
        globals += end;
        const quint32 place = quint32(globals.size());
        for (int i = 0; i < sheets; ++i)
            qToLittleEndian(place, globals.data() + begin.size() + i * 13 + 4);
        return compound({{"Workbook", (globals + sheet).leftJustified(5000, '\0')}});
    };
    const QByteArray number = record(0x203, QByteArray(6, '\0') + QByteArray("\0\0\0\0\0\0\x1C\x40", 8));
    const QByteArray manyFolders = QByteArray("f/").repeated(20000) + "x";
    Parts streams; // the library that reads these walks down a level of the stack for each
    for (int i = 0; i < 5000; ++i)
        streams["s" + QString::number(i)] = "x";
    Parts deepZip = xlsxParts("<row>" + cell + "</row>");
    deepZip[manyFolders] = "x";
    QByteArray damaged = fixtureContent("kinds.xlsx");
    damaged[damaged.indexOf("xl/worksheets") + 300] = char(damaged[damaged.indexOf("xl/worksheets") + 300] ^ 0x55);
    QByteArray hugeDirectory = fixtureContent("ledger.xls");
    hugeDirectory[30] = 24; // the sectors' size, as a power of two
    QByteArray pairOfRoots = compound({{"Workbook", begin + end}});
    const auto directory = qsizetype(512) * (1 + qFromLittleEndian<quint32>(pairOfRoots.constData() + 48));
    qToLittleEndian(quint32(1), pairOfRoots.data() + directory + 68); // the root's left neighbour

    const struct
    {
        const char *what, *suffix;
        QByteArray content;
        bool sound = false;
    } cases[] = {
        {"a cell", "xlsx", xlsx("<row>" + cell + "</row>"), true},
        {"the last cell", "xlsx", xlsx("<row/><row r='1048576'><c r='XFD1'><v>1</v></c></row>"), true},
        {"a style without a table", "xlsx", xlsx("<row><c s='5'><v>7</v></c></row>"), true},
        {"a negative style", "xlsx", xlsx("<row><c s='-2'><v>7</v></c></row>", "<cellXfs><xf/></cellXfs>")},
        {"row 0", "xlsx", xlsx("<row r='0'>" + cell + "</row>")},
        {"a row below the last", "xlsx", xlsx("<row r='1048577'>" + cell + "</row>")},
        {"a row behind the largest number", "xlsx", xlsx("<row r='2147483647'/><row>" + cell + "</row>")},
        {"a cell in no row", "xlsx", xlsx(cell)},
        {"a column right of the last", "xlsx", xlsx("<row><c r='XFE1'><v>1</v></c></row>")},
        {"a column of a hundred letters", "xlsx", xlsx("<row><c r='" + QByteArray(100, 'Z') + "'><v>1</v></c></row>")},
        {"a column behind the last", "xlsx", xlsx("<row><c r='XFD1'/>" + cell + "</row>")},
        {"a number that is none", "xlsx", xlsx("<row><c><v>seven</v></c></row>")},
        {"a number without an end", "xlsx", xlsx("<row><c><v>nan</v></c></row>")},
        {"a text that is not there", "xlsx", xlsx("<row><c t='s'><v>1</v></c></row>", {}, "<si><t>a</t></si>")},
        {"deep nesting", "xlsx", xlsx("<row>" + QByteArray("<c>").repeated(200000) + "</row>")},
        {"deep nesting in a text", "xlsx",
         xlsx("<row/>", {},
              "<si>" + QByteArray("<r>").repeated(200000) + QByteArray("</r>").repeated(200000) + "</si>")},
        {"a text that stands for longer ones", "xlsx",
         zipped({{"_rels/.rels", "<!DOCTYPE r [<!ENTITY a \"aaaa\">]><r>&a;</r>"}})},
        {"a hundred thousand attributes", "xlsx",
         [&] {
             QByteArray attributes;
             for (int i = 0; i < 100000; ++i)
                 attributes += " a" + QByteArray::number(i) + "=''";
             return xlsx("<row" + attributes + "/>");
         }()},
        {"a part a thousand times its archive", "xlsx", xlsx("<row/>" + QByteArray(50'000'000, ' '))},
        {"a sheet broken off", "xlsx", xlsx("<row></sheetData>")},
        {"folders in folders", "xlsx", zipped(deepZip)},
        {"a sheet's bytes changed", "xlsx", damaged},
        {"half a file", "xlsx", fixtureContent("kinds.xlsx").left(6000)},
        {"all rows of a column", "ods", odsCell({}, "table:number-rows-repeated='1048576'"), true},
        {"all cells of a sheet", "ods",
         odsCell("table:number-columns-repeated='16384'", "table:number-rows-repeated='1048576'"), true},
        {"cells that a number can hardly count", "ods",
         odsCell("table:number-columns-repeated='2147483647'", "table:number-rows-repeated='2147483647'")},
        {"no cell", "ods", odsCell("table:number-columns-repeated='0'")},
        {"rows beyond the last", "ods",
         ods(QByteArray("<table:table-row table:number-rows-repeated='16777216'/>").repeated(2))},
        {"columns beyond the last", "ods",
         ods("<table:table-row>" + QByteArray("<table:table-cell table:number-columns-repeated='16384'/>").repeated(2) +
             "</table:table-row>")},
        {"two billion blanks", "ods",
         ods("<table:table-row><table:table-cell office:value-type='string'><text:p>a<text:s "
             "text:c='2000000000'/></text:p>"
             "</table:table-cell></table:table-row>")},
        {"many blanks in many cells", "ods",
         ods("<table:table-row>" +
             QByteArray("<table:table-cell office:value-type='string'><text:p><text:s "
                        "text:c='60000'/></text:p></table:table-cell>")
                 .repeated(10000) +
             "</table:table-row>")},
        {"deep nesting", "ods",
         ods("<table:table-row><table:table-cell office:value-type='string'><text:p>" +
             QByteArray("<text:span>").repeated(200000) + "</text:p></table:table-cell></table:table-row>")},
        {"rows in rows", "ods", ods(QByteArray("<table:table-rows>").repeated(200000))},
        {"a cell", "xls", xls(begin + number + end), true},
        {"a sheet that is never ended", "xls", compound({{"Workbook", begin}})},
        {"a sheet where none begins", "xls", xls(number + end)},
        {"one sheet two hundred times", "xls", xls(begin + number.repeated(200) + end, 200)},
        {"a text that is not there", "xls", xls(begin + record(0xFD, QByteArray(10, '\0')) + end)},
        {"a column right of the last", "xls", xls(begin + record(0x27E, QByteArray("\0\0\0\1\0\0\0\0\0\0", 10)) + end)},
        {"sectors of sixteen megabytes", "xls", hugeDirectory},
        {"a root that is not alone", "xls", pairOfRoots},
        {"a directory of thousands of streams", "xls", compound(streams)},
        {"half a file", "xls", fixtureContent("kinds.xls").left(8000)},
        {"no file of this kind", "xls", "Customer,Amount"},
        {"an empty file", "ods", ""},
    };
    const QTemporaryDir folder;
    for (const auto &row : cases) {
        const QString path = folder.filePath(QString("book.") + row.suffix);
        write(path, row.content);
        QString text;
        EXPECT_EQ(errorNumberOf([&] { text = Workbook::open(path).text(1, 1, 1); }), row.sound ? 0 : 432)
            << row.suffix << ": " << row.what;
        EXPECT_TRUE(!row.sound || text == "7" || text.isEmpty()) << row.suffix << ": " << row.what;
    }
}

TEST(WorkbookFiles, ThatAreNoFilesAreMissing)
{
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir("folder.xlsx");
    const QString pipe = folder.filePath("pipe.xls");
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link("/dev/zero", folder.filePath("zero.ods")));
    for (const char *name : {"folder.xlsx", "pipe.xls", "zero.ods", "none.xlsx", "cells.csv"})
        EXPECT_EQ(errorNumberOf([&] { Workbook::open(folder.filePath(name)); }), 432) << name;
    EXPECT_EQ(errorNumberOf([] { Workbook::open({}); }), 432);
}

} // namespace
