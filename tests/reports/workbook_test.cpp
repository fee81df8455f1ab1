#include "data/workbook/numberformat.h"
#include "data/workbook/workbook.h"
#include "tests/reports/reporttest.h"
#include <xlsxwriter.h>

namespace {

QString fixture(const char *file)
{
    return QString(TAMRICK_TEST_DATA) + "/reports/workbooks/" + file;
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
}

} // namespace
