#include "tests/reportengine/reportfixture.h"

#include "data/values/textorder.h"
#include "tests/support/pagefaults.h"
#include <QFile>

namespace {

using Kind = Section::Kind;

LayoutObject shown(const QString &source, double x = 0, double width = 200)
{
    return value({x, 0, width, 0}, source);
}

/// Rows numbered from 1, `size` of them to a group.
MadeRows numbered(int count, int size)
{
    MadeRows rows({"Region", "Customer", "Qty", "Price", "Sold", "Note"});
    for (int i = 0; i < count; ++i)
        rows.add({QString("G%1").arg(i / size, 5, 10, QChar('0')), "c", double(i + 1), 1.0, Value(), Value()});
    return rows;
}

/// A page holds the page header, 34 rows of 20 points and the page footer.
Layout grouped(Group group = {.by = "{Region}"})
{
    return {.title = "T",
            .groups = {group},
            .sections = {section(Kind::PageHeader, {text({0, 0, 50, 0}, "HEAD")}),
                         section(Kind::GroupHeader, {shown("\"+\" & {Region}")}),
                         section(Kind::Detail, {shown("{Qty}")}),
                         section(Kind::GroupFooter, {shown("\"=\" & Sum({Qty}, {Region})")}),
                         section(Kind::ReportFooter, {shown("\"all \" & Sum({Qty})")}),
                         section(Kind::PageFooter, {shown("PageNofM")})}};
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
}

TEST(Grouping, PutsNullsFirst)
{
    MadeRows rows({"Region", "Customer", "Qty", "Price", "Sold", "Note"}, {{"b", "", 1.0, 0.0, Value(), Value()},
                                                                           {Value(), "", 2.0, 0.0, Value(), Value()},
                                                                           {"", "", 3.0, 0.0, Value(), Value()}});
    Layout layout{.title = "T", .groups = {{.by = "{Region}"}}, .sections = {section(Kind::Detail, {shown("{Qty}")})}};
    EXPECT_EQ(pageTexts(*reportOver(layout, rows)).first(), "2|3|1");
}

TEST(Grouping, OrdersTextsAsTheDatabaseDoes)
{
    // Long ones that differ late, blanks at the end, letters beyond ASCII, signs around the letters.
    const QStringList ordered{
        "",      "_a",  "a",   "a b", "a-b", "ABCDEFGHIJKLMNOPQ", "abcdefghijklmnopqA", "abcdefghijklmnopqb",
        "Ärzte", "Asb", "Aßa", "z"};
    QStringList expected = ordered;
    std::stable_sort(expected.begin(), expected.end(), [](const QString &a, const QString &b) {
        return compareTexts(a.toStdString(), b.toStdString()) < 0;
    });
    QStringList given = ordered;
    std::reverse(given.begin(), given.end());
    given << "A   "
          << "abcdefghijklmnopQ";
    MadeRows rows({"Region", "Customer", "Qty", "Price", "Sold", "Note"});
    for (const QString &text : given)
        rows.add({text, "", 1.0, 1.0, Value(), Value()});
    Layout layout{.title = "T",
                  .groups = {{.by = "{Region}"}},
                  .sections = {section(Kind::GroupHeader, {shown("\"+\" & {Region}")})}};
    QStringList marked;
    for (const QString &text : expected)
        marked.append("+" + text);
    EXPECT_EQ(pageTexts(*reportOver(layout, rows)).first(), marked.join('|'));
}

TEST(Grouping, CanGoByAFormula)
{
    Layout layout{.title = "T",
                  .formulas = {{"Year", "if IsNull({Sold}) then 0 else Year({Sold})"}},
                  .groups = {{.by = "{@Year}"}},
                  .sections = {section(Kind::GroupHeader, {shown("ToText({@Year}) & \":\" & Sum({Qty}, {@Year})")})}};
    EXPECT_EQ(pageTexts(*reportOver(layout, salesRows())).first(), "0:1|2011:9|2012:5");
}

TEST(Totals, StandInHeadersAndCountSuppressedRows)
{
    Layout layout = grouped();
    layout.sections[1].objects = {shown("ToText(Sum({Qty}, {Region})) & \" of \" & Sum({Qty})")};
    layout.sections[2].suppressIf = "{Qty} < 4";
    EXPECT_EQ(pageTexts(*reportOver(layout, salesRows())).first(), "HEAD|9 of 15|4|5|=9|6 of 15|=6|all 15|Page 1 of 1");
}

TEST(Pages, OfNoRowsStillShowHeadersAndFooters)
{
    EXPECT_EQ(pageTexts(*reportOver(grouped(), MadeRows({"Region", "Customer", "Qty", "Price", "Sold", "Note"}))),
              QStringList{"HEAD|all 0|Page 1 of 1"});
    EXPECT_TRUE(pageTexts(*sampleReport("crptOpenOrders", 0)).first().contains("nothing in this selection"));
    EXPECT_FALSE(pageTexts(*sampleReport("crptOpenOrders", 1)).first().contains("nothing in this selection"));
    EXPECT_TRUE(pageTexts(*sampleReport("crptStatementReport", 0)).first().contains("No customer"));
}

TEST(Pages, RepeatHeadersAndCountThemselves)
{
    const auto report = reportOver(grouped(), numbered(40, 40));
    const QStringList pages = pageTexts(*report);
    ASSERT_EQ(pages.size(), 2);
    // 720 points less header, footer and the group's header.
    EXPECT_TRUE(pages[0].startsWith("HEAD|+G00000|1|2|")) << pages[0].toStdString();
    EXPECT_TRUE(pages[0].endsWith("|33|Page 1 of 2")) << pages[0].toStdString();
    EXPECT_EQ(pages[1], "HEAD|+G00000|34|35|36|37|38|39|40|=820|all 820|Page 2 of 2");
}

TEST(Pages, NeverLeaveAHeaderOrATotalAlone)
{
    // 31 rows of the first group with header and total leave room for one line more: not for a header and a row.
    const QStringList pages = pageTexts(*reportOver(grouped(), numbered(62, 31)));
    ASSERT_EQ(pages.size(), 2);
    EXPECT_TRUE(pages[0].endsWith("|31|=496|Page 1 of 2")) << pages[0].toStdString();
    EXPECT_TRUE(pages[1].startsWith("HEAD|+G00001|32|")) << pages[1].toStdString();
    // 33 rows fill the page to its end; the last one goes over with its total.
    const QStringList full = pageTexts(*reportOver(grouped(), numbered(33, 33)));
    ASSERT_EQ(full.size(), 2);
    EXPECT_EQ(full[1], "HEAD|+G00000|33|=561|all 561|Page 2 of 2");
    // 32 rows, header and total fill it as well: the last row goes over with the report's end, which has no room left.
    const QStringList end = pageTexts(*reportOver(grouped(), numbered(32, 32)));
    ASSERT_EQ(end.size(), 2);
    EXPECT_EQ(end[1], "HEAD|+G00000|32|=528|all 528|Page 2 of 2");
    // So does the last one that prints, when hidden ones follow.
    Layout hidden = grouped();
    for (int i : {1, 2, 3})
        hidden.sections[i].suppressIf = "{Qty} > 32";
    const QStringList before = pageTexts(*reportOver(hidden, numbered(40, 32)));
    ASSERT_EQ(before.size(), 2);
    EXPECT_EQ(before[1], "HEAD|+G00000|32|=528|all 820|Page 2 of 2");
}

TEST(Pages, KeepAGroupTogetherWhenItFitsOnOne)
{
    const QStringList pages =
        pageTexts(*reportOver(grouped({.by = "{Region}", .keepTogether = true}), numbered(40, 20)));
    ASSERT_EQ(pages.size(), 2);
    EXPECT_TRUE(pages[0].endsWith("|20|=210|Page 1 of 2")) << pages[0].toStdString();
    EXPECT_TRUE(pages[1].startsWith("HEAD|+G00001|21|")) << pages[1].toStdString();
    // One that is too long for any page begins where it stands.
    EXPECT_TRUE(pageTexts(*reportOver(grouped({.by = "{Region}", .keepTogether = true}), numbered(80, 40)))[1].contains(
        "+G00001"));
}

TEST(Pages, BeginAnewWithAGroupAndCountWithinIt)
{
    Layout layout = grouped({.by = "{Region}", .newPageBefore = true, .restartPageCount = true});
    const auto report = reportOver(layout, numbered(90, 40));
    QStringList numbers;
    for (const QString &page : pageTexts(*report))
        numbers.append(page.section('|', 1, 1) + " " + page.section('|', -1));
    EXPECT_EQ(numbers, (QStringList{"+G00000 Page 1 of 2", "+G00000 Page 2 of 2", "+G00001 Page 1 of 2",
                                    "+G00001 Page 2 of 2", "+G00002 Page 1 of 1"}));
    EXPECT_EQ(report->pages().printedGroups().pageOf[0][2], 4);
}

TEST(Pages, AreNotTakenUpByGroupsThatPrintNothing)
{
    Layout layout = grouped({.by = "{Region}", .newPageBefore = true, .restartPageCount = true});
    for (int i : {1, 2, 3})
        layout.sections[i].suppressIf = "Sum({Qty}, {Region}) <> 12";
    const QStringList pages = pageTexts(*reportOver(layout, numbered(10, 2)));
    EXPECT_EQ(pages, QStringList{"HEAD|all 55|Page 1 of 1"}) << "no group sums up to 12";
    for (int i : {1, 2, 3})
        layout.sections[i].suppressIf = "Sum({Qty}, {Region}) < 10";
    EXPECT_EQ(pageTexts(*reportOver(layout, numbered(10, 2))).size(), 3);
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

TEST(Pages, KnowTheFirstOneBeforeTheLast)
{
    const auto report = reportOver(grouped(), numbered(100000, 50));
    ReportPages &pages = report->pages();
    EXPECT_EQ(pages.knownPages(), 1);
    EXPECT_TRUE(pages.page(0)->texts().last() == "Page 1");
    const int count = pages.pageCount();
    EXPECT_GT(count, 2000);
    EXPECT_EQ(pages.page(0)->texts().last(), QString("Page 1 of %1").arg(count));
}

/// Pages of memory the process holds, in kilobytes.
double residentKilobytes()
{
    QFile file("/proc/self/statm");
    return file.open(QIODevice::ReadOnly) ? file.readAll().split(' ')[1].toDouble() * 4 : 0;
}

TEST(Pages, TenThousandOfThemCostLittleMemory)
{
#ifdef __SANITIZE_ADDRESS__
    GTEST_SKIP() << "the sanitizer keeps freed memory back, so that nothing can be told from what the process holds";
#endif
    const double before = residentKilobytes();
    const auto report = reportOver(grouped(), numbered(330000, 1000));
    const int count = report->pages().pageCount();
    ASSERT_GT(count, 9900);
    for (int page = 0; page < count; page += 100)
        report->pages().page(page);
    EXPECT_LT((residentKilobytes() - before) / count, 20) << "kB a page, rows included";
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
