#include "tests/reportengine/reportfixture.h"
#include "tests/support/pagefaults.h"

namespace {

class Catalogue : public testing::TestWithParam<QString>
{
};

/// Gives every text of the layout that a routine would fill something long to hold.
void fillTexts(Report &report)
{
    for (const TextParameter &parameter : report.layout().parameters)
        report.object(parameter.name)
            .SetText(parameter.name.contains("Date")    ? "12/31/2011"
                     : parameter.name.contains("Total") ? "$1,234,567.89"
                                                        : "30");
}

TEST_P(Catalogue, ReportsStandWellOnTheirPages)
{
    for (const int rows : {0, 1, 7, 300}) {
        const auto report = sampleReport(GetParam(), rows);
        fillTexts(*report);
        ReportPages &pages = report->pages();
        for (int page = 0; page < pages.pageCount(); ++page) {
            EXPECT_EQ(pageFaults(*pages.page(page), report->layout().margins), QStringList())
                << rows << " rows, page " << page + 1;
            EXPECT_TRUE(pages.page(page)->texts().join('|').contains("Page "));
        }
        EXPECT_TRUE(pages.page(0)->texts().join('|').contains(report->layout().title, Qt::CaseInsensitive));
    }
}

/// Texts that differ at their end alone must not look alike on paper.
TEST_P(Catalogue, ReportsCutNoTextShort)
{
    for (const QString &word : {QString("WIDE-"), QString("7"), QString("several words ")}) {
        std::vector<Value> row;
        for (const DatasetField &field : reportDesign(GetParam()).dataset)
            row.push_back(isText(field.type)
                              ? Value(word.repeated(30).left(field.type == FieldType::Text100 ? 100 : 50))
                          : isDate(field.type) ? Value(Date(2011, 3, 30))
                                               : Value(1));
        MadeRows rows(fieldsOf(GetParam()), {row, row});
        Report report = newReport(GetParam());
        report.SetDataSource(rows);
        report.ReadRecords();
        fillTexts(report);
        for (const char *text : {"txtInvoiceNumber", "txtTerms", "txtCategory"}) {
            for (const TextParameter &parameter : report.layout().parameters)
                if (parameter.name == text)
                    report.object(text).SetText(word.repeated(30).left(50));
        }
        for (int page = 0; page < report.pages().pageCount(); ++page) {
            EXPECT_EQ(pageFaults(*report.pages().page(page), report.layout().margins), QStringList());
            EXPECT_EQ(report.pages().page(page)->texts().filter(QChar(0x2026)), QStringList());
        }
    }
}

TEST_P(Catalogue, ReportsRepeatTheirColumnHeads)
{
    const auto report = sampleReport(GetParam(), 600);
    fillTexts(*report);
    QStringList heads;
    for (const PageItem &item : report->pages().page(0)->items) {
        for (const Section &section : report->layout().sections) {
            const auto &objects = section.objects;
            if (section.columnHeads && item.kind == PageItem::Kind::Text && item.object >= objects.data() &&
                item.object < objects.data() + objects.size())
                heads.append(item.text);
        }
    }
    ASSERT_FALSE(heads.isEmpty());
    const QStringList last = report->pages().page(report->pages().pageCount() - 1)->texts();
    for (const QString &head : heads)
        EXPECT_TRUE(last.contains(head)) << head.toStdString();
}

TEST_P(Catalogue, ReportsMissNoColumnWithoutSayingSo)
{
    Report report = newReport(GetParam());
    QStringList fields = fieldsOf(GetParam());
    fields.removeLast();
    MadeRows rows(fields);
    report.SetDataSource(rows);
    EXPECT_EQ(errorNumberOf([&] { report.ReadRecords(); }), 440);
}

std::vector<QString> designers()
{
    std::vector<QString> names;
    for (const ReportDesign &design : reportCatalogue())
        names.push_back(design.designer);
    return names;
}

INSTANTIATE_TEST_SUITE_P(All, Catalogue, testing::ValuesIn(designers()),
                         [](const auto &info) { return info.param.toStdString(); });

TEST(CatalogueAsAWhole, HoldsEveryReport)
{
    EXPECT_EQ(reportCatalogue().size(), 29u);
    EXPECT_EQ(reportDesign("crptProductionPartWhse").definitionFile, "ProductionByWhsePartReport");
    EXPECT_EQ(reportDesign("crptProductionPartWhse").dataset[2].type, FieldType::Integer);
    EXPECT_EQ(reportDesign("crptProductionWhsePart").dataset[2].type, FieldType::Number);
}

} // namespace
