#include "reportengine/pages/valuetext.h"
#include "reportengine/rows/rowstore.h"
#include "tests/reportengine/reportfixture.h"
#include "tests/support/pagefaults.h"
#include <QRegularExpression>

namespace {

using Kind = Section::Kind;

LayoutObject shown(const QString &source, double x = 0, double width = 200)
{
    return value({x, 0, width, 0}, source);
}

/// Rows that have a region each, and a number from 1.
MadeRows inRegions(const std::vector<Value> &regions)
{
    MadeRows rows({"Region", "Customer", "Qty", "Price", "Sold", "Note"});
    for (const Value &region : regions)
        rows.add({region, "", rows.count() + 1, 1.0, Value(), Value()});
    return rows;
}

/// The same in regions of `size` rows each.
MadeRows numbered(int count, int size)
{
    std::vector<Value> regions;
    for (int i = 0; i < count; ++i)
        regions.push_back(QString("G%1").arg(i / size, 5, 10, QChar('0')));
    return inRegions(regions);
}

/// A page holds the page header, 34 rows of 20 points and the page footer.
Layout grouped(const Group &group = {.by = "{Region}"})
{
    return {.title = "T",
            .groups = {group},
            .sections = {section(Kind::PageHeader, {text({0, 0, 50, 0}, "HEAD")}),
                         section(Kind::GroupHeader, {shown("\"+\" & {Region}")}),
                         section(Kind::Detail, {shown("{Qty}")}),
                         section(Kind::GroupFooter, {shown("\"=\" & Sum({Qty}, {Region})")}),
                         section(Kind::ReportFooter, {shown("\"all \" & Sum({Qty})"), shown("Average({Price})", 220)}),
                         section(Kind::PageFooter, {shown("PageNofM")})}};
}

/// The same with its groups hidden where the condition holds.
Layout hiding(Layout layout, const QString &condition)
{
    for (Section &section : layout.sections)
        if (section.kind != Kind::PageHeader && section.kind != Kind::ReportFooter && section.kind != Kind::PageFooter)
            section.suppressIf = condition;
    return layout;
}

TEST(Grouping, OrdersRowsByGroupWithoutRegardToCaseAndKeepsTheirOrderInside)
{
    Layout layout{.title = "T",
                  .groups = {{.by = "{Region}"}, {.by = "{Customer}"}},
                  .sections = {section(Kind::GroupHeader, {shown("\"+\" & {Region}")}, 0),
                               section(Kind::GroupHeader, {shown("\"-\" & {Customer}")}, 1),
                               section(Kind::Detail, {shown("{Qty}")}),
                               section(Kind::GroupFooter, {shown("\"c\" & Sum({Qty}, {Customer})")}, 1),
                               section(Kind::GroupFooter, {shown("\"r\" & Sum({Qty}, {Region})")}, 0)}};
    EXPECT_EQ(pageTexts(*reportOver(layout, salesRows())).first(),
              "+east|-alpha|4|5|c9|r9|+WEST|-Acme|1|c1|-Beta|2|3|c5|r6");

    layout = {.title = "T",
              .formulas = {{"Year", "if IsNull({Sold}) then 0 else Year({Sold})"}},
              .groups = {{.by = "{@Year}"}},
              .sections = {section(Kind::GroupHeader, {shown("ToText({@Year}) & \":\" & Sum({Qty}, {@Year})")})}};
    EXPECT_EQ(pageTexts(*reportOver(layout, salesRows())).first(), "0:1|2011:9|2012:5") << "by a formula";
}

TEST(Grouping, OrdersTextsAsTheDatabaseDoesNullFirst)
{
    // Long ones that differ late, blanks at the end, letters beyond ASCII, signs around the letters.
    std::vector<Value> given;
    for (const char *text : {"z", "Aßa", "Asb", "Ärzte", "a-b", "abcdefghijklmnopqb", "a b", "abcdefghijklmnopqA", "a",
                             "ABCDEFGHIJKLMNOPQ", "_a", "", "A   ", "abcdefghijklmnopQ"})
        given.push_back(text);
    given.push_back(Value());
    const Layout layout{.title = "T",
                        .groups = {{.by = "{Region}"}},
                        .sections = {section(Kind::GroupHeader, {shown("\"+\" & {Region} & Count({Qty}, {Region})")})}};
    EXPECT_EQ(pageTexts(*reportOver(layout, inRegions(given))).first(),
              "+1|+1|+_a1|+a2|+a b1|+a-b1|+ABCDEFGHIJKLMNOPQ2|+abcdefghijklmnopqA1|+abcdefghijklmnopqb1|+Ärzte1|+Asb1|"
              "+Aßa1|+z1");
}

TEST(Pages, BreakWhereReadersExpectIt)
{
    Layout headed = grouped();
    headed.sections.push_back(section(Kind::ReportHeader, {text({0, 0, 50, 0}, "REPORT")}));
    headed.sections[5].objects = {shown("PageNofM & \" up to \" & {Qty}")};
    const Group together{.by = "{Region}", .keepTogether = true};
    const Layout documents = grouped({.by = "{Region}", .newPageBefore = true, .restartPageCount = true});
    Layout sums = hiding(grouped(), "");
    sums.sections[1].objects = {shown("ToText(Sum({Qty}, {Region})) & \" of \" & Sum({Qty})")};
    sums.sections[2].suppressIf = "{Qty} < 4";
    const struct
    {
        const char *what;
        Layout layout;
        MadeRows rows;
        QStringList pages; ///< "*" for what stands between
    } cases[] = {
        {"no row", grouped(), numbered(0, 1), {"HEAD|all 0|Page 1 of 1"}},
        {"totals stand in headers and count hidden rows",
         sums,
         salesRows(),
         {"HEAD|9 of 15|4|5|=9|6 of 15|=6|all 15|4.125|Page 1 of 1"}},
        {"heads stand on each page, the report's own on the first, and a foot tells the last row above it",
         headed,
         numbered(40, 40),
         {"REPORT|HEAD|+G00000|1|2|*|31|32|Page 1 of 2 up to 32",
          "HEAD|+G00000|33|*|40|=820|all 820|1|Page 2 of 2 up to 40"}},
        {"room for one line more: not for a header and a row",
         grouped(),
         numbered(62, 31),
         {"HEAD|*|31|=496|Page 1 of 2", "HEAD|+G00001|32|*"}},
        {"the rows fill the page: the last one goes over with its total",
         grouped(),
         numbered(33, 33),
         {"HEAD|*|32|Page 1 of 2", "HEAD|+G00000|33|=561|all 561|1|Page 2 of 2"}},
        {"so do rows and total: the last row goes over with the report's end",
         grouped(),
         numbered(32, 32),
         {"HEAD|*|31|Page 1 of 2", "HEAD|+G00000|32|=528|all 528|1|Page 2 of 2"}},
        {"so does the last one that prints, when hidden ones follow",
         hiding(grouped(), "{Qty} > 32"),
         numbered(40, 32),
         {"HEAD|*|31|Page 1 of 2", "HEAD|+G00000|32|=528|all 820|1|Page 2 of 2"}},
        {"a group kept together",
         grouped(together),
         numbered(40, 20),
         {"HEAD|*|20|=210|Page 1 of 2", "HEAD|+G00001|21|*"}},
        {"one that is too long for any page begins where it stands",
         grouped(together),
         numbered(80, 40),
         {"*", "*|=820|+G00001|*", "*"}},
        {"documents, each with pages of its own",
         documents,
         numbered(90, 40),
         {"HEAD|+G00000|*|Page 1 of 2", "HEAD|+G00000|*|Page 2 of 2", "HEAD|+G00001|*|Page 1 of 2",
          "HEAD|+G00001|*|Page 2 of 2", "HEAD|+G00002|*|Page 1 of 1"}},
        {"documents that print nothing take no page",
         hiding(documents, "Sum({Qty}, {Region}) < 10"),
         numbered(10, 2),
         {"HEAD|+G00002|*", "HEAD|+G00003|*", "HEAD|+G00004|*"}},
        {"nor do they all", hiding(documents, "true"), numbered(10, 2), {"HEAD|all 55|1|Page 1 of 1"}},
    };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        const QStringList pages = pageTexts(*reportOver(c.layout, c.rows));
        ASSERT_EQ(pages.size(), c.pages.size()) << pages.join('\n').toStdString();
        for (int page = 0; page < pages.size(); ++page)
            EXPECT_TRUE(QRegularExpression(QRegularExpression::wildcardToRegularExpression(c.pages[page]))
                            .match(pages[page])
                            .hasMatch())
                << pages[page].toStdString();
    }
}

TEST(Pages, RunDownTheirColumnsUnderAHeadEach)
{
    Layout layout{.title = "T",
                  .columns = 2,
                  .sections = {section(Kind::PageHeader, {text({0, 0, 50, 0}, "HEAD")}),
                               section(Kind::Detail, {shown("{Qty}")})}};
    layout.sections[0].columnHeads = true;
    const auto page = reportOver(layout, numbered(100, 100))->pages().page(0);
    const auto placeOf = [&](const QString &text, int nth) {
        for (const PageItem &item : page->items)
            if (item.text == text && nth-- == 0)
                return item.rect.topLeft();
        return QPointF();
    };
    EXPECT_EQ(placeOf("HEAD", 0), QPointF(36, 36));
    EXPECT_EQ(placeOf("HEAD", 1), QPointF(318, 36));
    EXPECT_EQ(placeOf("1", 0), QPointF(36, 56));
    EXPECT_EQ(placeOf("35", 0), QPointF(36, 736));
    EXPECT_EQ(placeOf("36", 0), QPointF(318, 56));
}

TEST(Pages, AreTheSameWhenMadeAloneAndOutOfOrder)
{
    Layout layout = grouped();
    layout.runningTotals = {{"Balance", "{Qty}", -1}};
    layout.sections[2].objects.push_back(shown("{#Balance}", 220));
    const auto report = reportOver(layout, numbered(3000, 17));
    const QStringList inOrder = pageTexts(*report);
    const auto other = reportOver(layout, numbered(3000, 17));
    for (int page = other->pages().pageCount() - 1; page >= 0; page -= 7)
        EXPECT_EQ(other->pages().page(page)->texts().join('|'), inOrder[page]);
    EXPECT_TRUE(inOrder.last().contains("|3000|4501500|"));
}

/// Pages of memory the process holds, in kilobytes.
double residentKilobytes()
{
    QFile file("/proc/self/statm");
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ')[1].toDouble() * 4 : 0;
}

TEST(Pages, TenThousandOfThemCostLittleMemoryAndTheFirstIsKnownBeforeTheLast)
{
    const double before = residentKilobytes();
    const auto report = reportOver(grouped(), numbered(330000, 1000));
    ReportPages &pages = report->pages();
    EXPECT_EQ(pages.knownPages(), 1);
    EXPECT_EQ(pages.page(0)->texts().last(), "Page 1");
    const int count = pages.pageCount();
    ASSERT_GT(count, 9900);
    EXPECT_EQ(pages.page(0)->texts().last(), QString("Page 1 of %1").arg(count));
    for (int page = 0; page < count; page += 100)
        pages.page(page);
#ifndef __SANITIZE_ADDRESS__ // which keeps freed memory back
    EXPECT_LT((residentKilobytes() - before) / count, 20) << "kB a page, rows included";
#endif
}

TEST(Texts, ThatAreTooLongAreShortenedWrappedOrSetSmaller)
{
    const QString longText = "A customer whose name does not fit into any column of this size at all";
    LayoutObject cut = text({0, 0, 100, 0}, longText);
    LayoutObject broken = wrapping(text({110, 0, 100, 0}, longText), 9);
    LayoutObject figure = value({220, 0, 40, 0}, "123456789.25", {}, Align::Right, Picture::Money);
    LayoutObject below = text({110, 15, 100, 0}, "below");
    Layout layout{
        .title = "T",
        .sections = {section(Kind::ReportHeader, {cut, broken, figure, below, line({0, 28}, {200, 28})}, 0, 30),
                     section(Kind::ReportFooter, {text({0, 0, 50, 0}, "next")})}};
    const auto report = reportOver(layout, salesRows());
    const auto page = report->pages().page(0);
    const QStringList texts = page->texts();
    EXPECT_TRUE(texts[0].endsWith(QChar(0x2026))) << texts[0].toStdString();
    EXPECT_EQ(texts.filter("123,456,789.25").size(), 1) << "figures are never cut";
    EXPECT_EQ(texts.mid(1, texts.size() - 4).join(' '), longText);
    EXPECT_EQ(pageFaults(*page, layout.margins), QStringList());
    EXPECT_GT(page->items.back().rect.top(), 36 + 30) << "what follows moves down with the wrapped text";
}

TEST(Texts, MayBeSetOrHiddenOnceThePagesAreMadeAndRowsBeThrownAway)
{
    Layout layout = grouped();
    layout.parameters = {{"txtNote", "early"}};
    layout.sections[0].objects = {text({0, 0, 50, 0}, "HEAD"), shown("{?txtNote}", 60)};
    layout.sections[0].objects[0].name = "txtHead";
    const auto report = reportOver(layout, inRegions({"A"}));
    EXPECT_EQ(pageTexts(*report).first(), "HEAD|early|+A|1|=1|all 1|1|Page 1 of 1");
    report->object("txtNote").SetText("late");
    EXPECT_EQ(pageTexts(*report).first(), "HEAD|late|+A|1|=1|all 1|1|Page 1 of 1");
    report->object("txtHead").setSuppress(true);
    report->DiscardSavedData();
    EXPECT_EQ(pageTexts(*report).first(), "late|all 0|Page 1 of 1");
    EXPECT_EQ(report->rows().rowCount(), 0);
}

TEST(Values, AreSetInTheWayOfLedgers)
{
    const std::vector<std::tuple<Picture, double, const char *>> cases{
        {Picture::Money, 1234567.895, "1,234,567.90"},
        {Picture::Money, -0.5, "(0.50)"},
        {Picture::Money, -0.004, "0.00"},
        {Picture::Percent, 0.25, "25.0%"},
        {Picture::Percent, -0.7164, "(71.6%)"},
        {Picture::Percent, -0.0001, "0.0%"},
        {Picture::Quantity, 12, "12"},
        {Picture::Quantity, -12, "(12)"},
        {Picture::Quantity, 2.5, "2.5"},
        {Picture::Quantity, -1234.25, "(1,234.25)"},
        {Picture::Quantity, 8717.000000001, "8,717"},
        {Picture::Quantity, -0.000000001, "0"},
        {Picture::Whole, -1234, "(1,234)"},
        {Picture::Price, 0.1275, "0.1275"},
        {Picture::Dollars, -80.5, "($80.50)"},
    };
    for (const auto &[picture, number, text] : cases)
        EXPECT_EQ(printedValue(number, picture), text);
}

TEST(Faults, OfAPageAreFound)
{
    const QMarginsF margins(36, 36, 36, 36);
    const auto faultsOf = [&](std::vector<PageItem> items) {
        return pageFaults({{612, 792}, std::move(items)}, margins).join('\n');
    };
    const PageItem word{.rect = {100, 100, 100, 11}, .text = "word"};
    PageItem over = word, outside = word, wide = word, stroke{.kind = PageItem::Kind::Line, .rect = {90, 105, 60, 0}};
    over.rect.translate(10, 4);
    outside.rect.moveLeft(10);
    wide.rect.setWidth(10);
    EXPECT_EQ(faultsOf({word}), "");
    EXPECT_TRUE(faultsOf({word, over}).contains("Over one another"));
    EXPECT_TRUE(faultsOf({outside}).contains("margins"));
    EXPECT_TRUE(faultsOf({wide}).contains("Wider"));
    EXPECT_TRUE(faultsOf({word, stroke}).contains("Struck through"));
}

} // namespace
