#include "data/workbook/package.h"
#include "reportengine/output/exports.h"
#include "tests/reportengine/reportfixture.h"
#include "tests/support/xlsxfile.h"
#include <QDir>

namespace {

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

Layout salesLayout()
{
    return tableLayout({.title = "Sales",
                        .subtitle = "\"A period\"",
                        .groups = {{.by = "{Region}"}},
                        .columns = {{.heading = "Customer", .source = "{Customer}", .width = 200},
                                    {.heading = "Sold", .source = "{Sold}", .picture = Picture::Date},
                                    {.heading = "Qty", .source = "{Qty}", .picture = Picture::Quantity, .total = true},
                                    {.heading = "Price", .source = "{Price}", .picture = Picture::Money}}});
}

TEST(PdfExport, HasRealTextAndAnOutlineOfTheGroups)
{
    QTemporaryDir folder;
    const QString path = folder.filePath("r.pdf");
    ASSERT_TRUE(exportReport(*sampleReport("crptSalesByPart", 400), path));
    const QString text = told("pdftotext", {"-layout", path, "-"});
    EXPECT_TRUE(text.contains("Bäcker & Söhne Großhandel GmbH")) << text.left(2000).toStdString();
    EXPECT_TRUE(text.contains("Page 1 of "));
    EXPECT_TRUE(told("pdfinfo", {path}).contains("612 x 792 pts"));
    const QByteArray bytes = contentOf(path);
    EXPECT_EQ(bytes.count("/Type /Outlines"), 1);
    // "BR-1040-0" as the outline writes it.
    EXPECT_TRUE(bytes.contains("/Title <feff00420052002d0031003000340030002d0030"));
    EXPECT_TRUE(bytes.contains("/OpenAction ["));
    ASSERT_TRUE(exportReport(*sampleReport("crptCustomerListing", 1), path));
    EXPECT_TRUE(told("pdfinfo", {path}).contains("792 x 612 pts")) << "a wide layout";
}

TEST(PdfExport, ThatCannotBeWrittenLeavesNothingAndKeepsWhatWasThere)
{
    QTemporaryDir folder;
    const auto report = reportOver(salesLayout(), salesRows());
    for (const char *name : {"missing/r.pdf", "missing/r.xlsx", "missing/r.csv", "r.doc", "r"})
        EXPECT_FALSE(exportReport(*report, folder.filePath(name))) << name;
    QDir(folder.path()).mkdir("taken.pdf");
    EXPECT_EQ(exportReport(*report, folder.filePath("taken.pdf")).reason, qt_error_string(EISDIR));
    EXPECT_EQ(exportReport(*report, folder.filePath("missing/r.pdf")).reason, qt_error_string(ENOENT));
    for (const char *suffix : {"pdf", "xlsx", "csv"}) {
        const Outcome stopped =
            exportReport(*report, folder.filePath(QString("r.") + suffix), [](int, int) { return false; });
        EXPECT_EQ(stopped.state, Outcome::State::Cancelled) << suffix;
    }
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Dirs | QDir::NoDotAndDotDot), QStringList{"taken.pdf"});
}

TEST(PdfExport, WritesWhatALinkPointsAt)
{
    QTemporaryDir folder;
    QFile target(folder.filePath("target.pdf"));
    ASSERT_TRUE(target.open(QIODevice::WriteOnly));
    ASSERT_TRUE(QFile::link(target.fileName(), folder.filePath("link.pdf")));
    EXPECT_TRUE(exportReport(*reportOver(salesLayout(), salesRows()), folder.filePath("link.pdf")));
    EXPECT_TRUE(QFileInfo(folder.filePath("link.pdf")).isSymLink());
    EXPECT_TRUE(contentOf(target.fileName()).startsWith("%PDF"));
}

TEST(XlsxExport, HasARowForEachPrintedLineAndOneCellForATextThatThePaperBreaks)
{
    QTemporaryDir folder;
    const QString path = folder.filePath("r.xlsx");
    const QString broken = QString("Many words ").repeated(20).trimmed();
    MadeRows rows = salesRows();
    rows.add({"West", broken, 1.0, Value(), Value(), "", 1});
    rows.add({"West", "Two\nlines", 1.0, Value(), Value(), "", 1});
    Layout layout = salesLayout();
    sectionNamed(layout, "secDetail").objects.front().overflow = Overflow::Wrap;
    ASSERT_TRUE(exportReport(*reportOver(layout, rows), path));
    const QStringList lines = linesOf(path, 4, 16);
    EXPECT_TRUE(lines[0].startsWith("Sales|"));
    EXPECT_EQ(lines.mid(1), (QStringList{"A period|||", "Customer|Sold|Qty|Price", "east|||", "alpha|4/1/2011|4|10",
                                         "Alpha|2/29/2012|5|", "Total East||9|", "West|||", "Beta|3/30/2011|2|1.5",
                                         "Acme||1|3", "beta|12/31/2011|3|2", broken + "||1|", "Two||1|", "lines|||",
                                         "Total West||8|", "Grand total||17|"}));
}

TEST(XlsxExport, OfALongReportSaysTheSame)
{
    QTemporaryDir folder;
    const QString path = folder.filePath("r.xlsx");
    constexpr int Rows = 50001; // written in another way from here on
    MadeRows rows({"Part", "Qty"}, std::vector<std::vector<Value>>(Rows, {"1E5", 12.5}));
    const Layout layout = tableLayout(
        {.title = "Long", .columns = {{.heading = "Part", .source = "{Part}"}, {.heading = "Qty", .source = "{Qty}"}}});
    ASSERT_TRUE(exportReport(*reportOver(layout, rows, datasetOf("Part T, Qty N")), path));
    const Workbook book = Workbook::open(path);
    EXPECT_EQ(book.text(1, 2, 1) + book.text(1, 2, 2), "PartQty");
    EXPECT_EQ(book.text(1, 3, 1) + book.text(1, Rows + 2, 1), "1E51E5");
    EXPECT_EQ(book.text(1, Rows + 2, 2), "12.5");
}

/// How the cell's number is to be shown, by the file's own tables.
QString numberFormatOf(const QString &path, const QString &cell)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    Package package(file.readAll());
    const auto part = [&](const char *name) { return QString::fromUtf8(package.part(name).value_or("")); };
    const auto found = [](const QString &pattern, const QString &text) {
        return QRegularExpression(pattern).match(text).captured(1);
    };
    const QString style = found("<c r=\"" + cell + "\" s=\"(\\d+)\"", part("xl/worksheets/sheet1.xml"));
    const QString styles = part("xl/styles.xml");
    const QString formats = found("<cellXfs[^>]*>(.*)</cellXfs>", styles);
    const QString id = found("numFmtId=\"(\\d+)\"", formats.section("<xf ", style.toInt() + 1, style.toInt() + 1));
    return found("<numFmt numFmtId=\"" + id + "\" formatCode=\"([^\"]*)\"", styles);
}

TEST(XlsxExport, ShowsWholeQuantitiesWithoutAPointAndTimesWhereThereAreAny)
{
    QTemporaryDir folder;
    const QString path = folder.filePath("r.xlsx");
    const Date moment(QDateTime(QDate(2011, 3, 30), QTime(14, 5, 9)));
    MadeRows rows({"Qty", "At"}, {{1234.0, moment}, {2.5, Date(2011, 3, 30)}, {0.1 + 0.2 + 0.7, Value()}});
    const Layout layout = tableLayout({.title = "Formats",
                                       .columns = {{.heading = "Qty", .source = "{Qty}", .picture = Picture::Quantity},
                                                   {.heading = "At", .source = "{At}", .picture = Picture::Date}},
                                       .grandTotal = ""});
    ASSERT_TRUE(exportReport(*reportOver(layout, rows, datasetOf("Qty N, At DT")), path));
    EXPECT_EQ(numberFormatOf(path, "A3"), "#,##0;(#,##0)");
    EXPECT_EQ(numberFormatOf(path, "A4"), "#,##0.####;(#,##0.####)");
    EXPECT_EQ(numberFormatOf(path, "A5"), "#,##0;(#,##0)");
    EXPECT_EQ(numberFormatOf(path, "B3"), "m/d/yyyy h:mm AM/PM");
    EXPECT_EQ(numberFormatOf(path, "B4"), "m/d/yyyy");
    EXPECT_EQ(Workbook::open(path).text(1, 3, 2), "3/30/2011 2:05:09 PM");
}

TEST(CsvExport, IsTheDatasetPlain)
{
    QTemporaryDir folder;
    const QString path = folder.filePath("r.csv");
    MadeRows rows({"Region", "Customer", "Qty", "Price", "Sold", "Note"},
                  {{"a,b", "say \"x\"", 1234.5, Value(), Date(2011, 3, 30), "two\nlines"},
                   {Value(), "", -0.25, 2.0, Value(), "é"}});
    ASSERT_TRUE(exportReport(
        *reportOver(salesLayout(), rows, datasetOf("Region T, Customer T, Qty N, Price C, Sold D, Note M")), path));
    EXPECT_EQ(QString::fromUtf8(contentOf(path)), "Region,Customer,Qty,Price,Sold,Note\r\n"
                                                  "\"a,b\",\"say \"\"x\"\"\",1234.5,,2011-03-30,\"two\nlines\"\r\n"
                                                  ",,-0.25,2,,é\r\n");
    Layout layout{.title = "T"};
    MadeRows moment({"At"}, {{Date(QDateTime(QDate(2011, 3, 30), QTime(14, 5, 9)))}});
    ASSERT_TRUE(exportReport(*reportOver(layout, moment, datasetOf("At DT")), path));
    EXPECT_EQ(contentOf(path), "At\r\n2011-03-30 14:05:09\r\n");
}

} // namespace
