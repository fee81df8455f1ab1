#include "reportengine/pages/valuetext.h"
#include "tests/reportengine/reportfixture.h"
#include "tests/support/pagefaults.h"

namespace {

/// A design, and what its routine hides and replaces in it.
struct Form
{
    QString designer;
    QStringList hidden = {};
    std::map<int, QString> formulas = {};
};

std::vector<Form> forms()
{
    const QStringList details{"secHeads", "secPart", "secDetail", "secPartTotal", "secGroupFooter1", "secGrandTotal"};
    const QString noRow = "if ({@Req} = 0) then true";
    std::vector<Form> all{
        {"crptOpenInvoicesReport", {"Details", "InvoiceHeads", "CustomerHeader"}},
        {"crptAvailableInventory", details},
        {"crptAvailableInventoryByPart", details},
        {"crptProductionWhsePart", {}, {{4, noRow}}},
        {"crptProductionPartWhse", {}, {{4, noRow}, {6, "if (Sum ({@Req}, {PartNo}) = 0) then true"}}}};
    for (const ReportDesign &design : reportCatalogue())
        all.push_back({design.designer});
    return all;
}

/// Gives every text of the layout that a routine would fill something long to hold.
void fillTexts(Report &report)
{
    for (const TextParameter &parameter : report.layout().parameters)
        report.object(parameter.name)
            .SetText(parameter.name.contains("Date")    ? "12/31/2011"
                     : parameter.name.contains("Total") ? "$1,234,567.89"
                                                        : "30");
}

std::unique_ptr<Report> reportOf(const Form &form, int count)
{
    auto report = reportOver(form.designer, sampleRows(form.designer, count), form.formulas);
    fillTexts(*report);
    for (const QString &name : form.hidden)
        report->object(name).setSuppress(true);
    return report;
}

const Section *sectionOf(const PageItem &item, const Layout &layout)
{
    for (const Section &section : layout.sections) {
        const auto &objects = section.objects;
        if (item.object >= objects.data() && item.object < objects.data() + objects.size())
            return &section;
    }
    return nullptr;
}

/// Sums up the figures that stand one under another on the pages of a table, and holds each total line against them.
class Addition
{
public:
    explicit Addition(const Layout &layout) : m_layout(layout), m_sums(layout.groups.size() + 1) {}

    void read(const Page &page)
    {
        for (const PageItem &item : page.items) {
            const Section *section = sectionOf(item, m_layout);
            const int column = item.object ? qRound(item.object->place.right()) : 0;
            if (section && item.object->content.contains("{#"))
                m_running.insert(column);
            // Rates and balances that run from line to line have no sum.
            if (!section || !isFigure(item.value) || item.value.type() == Value::Type::Date ||
                item.picture == Picture::Percent || m_running.contains(column))
                continue;
            const double number = item.value.toDouble();
            if (isLine(*section)) {
                for (auto &sums : m_sums)
                    sums[column] += number;
            } else if (section->kind == Section::Kind::GroupFooter || section->kind == Section::Kind::ReportFooter) {
                const bool isOfAll = section->kind == Section::Kind::ReportFooter;
                const double sum = std::exchange(m_sums[isOfAll ? 0 : section->group + 1][column], 0);
                EXPECT_NEAR(number, sum, 0.005) << (section->name + " " + item.object->content).toStdString();
                ++totals;
            }
        }
    }

    int totals = 0;

private:
    /// Details, and the lines that stand for them in reports without details.
    static bool isLine(const Section &section)
    {
        return section.kind == Section::Kind::Detail || section.name == "secTotals" || section.name == "secSummaryLine";
    }

    const Layout &m_layout;
    std::set<int> m_running;
    std::vector<std::map<int, double>> m_sums; ///< by column; of the report, then of each group level
};

/// These have no totals, or such as are held by cases of their own.
const QStringList Unsummed{
    "crptInvoice",     "crptStatementReport", "crptSalesByWhsePartExport", "crptAvailableInventoryExport",
    "crptPartListing", "crptCustomerListing", "crptWarehouseListing"};

TEST(Catalogue, ReportsStandWellOnTheirPagesUnderTheirHeadsAndAddUp)
{
    for (const Form &form : forms()) {
        const bool isSummed = !Unsummed.contains(form.designer);
        for (const int rows : {0, 1, 7, 700}) {
            SCOPED_TRACE(form.designer.toStdString() + ", rows: " + std::to_string(rows));
            const auto report = reportOf(form, rows);
            ReportPages &pages = report->pages();
            const QString all = pageTexts(*report).join('|');
            EXPECT_TRUE(all.contains(report->layout().title, Qt::CaseInsensitive));
            Addition addition(report->layout());
            QStringList heads;
            for (int number = 0; number < pages.pageCount(); ++number) {
                const auto page = pages.page(number);
                EXPECT_EQ(pageFaults(*page, report->layout().margins), QStringList()) << "page " << number + 1;
                EXPECT_TRUE(page->texts().join('|').contains("Page "));
                if (isSummed)
                    addition.read(*page);
                for (const PageItem &item : page->items) {
                    const Section *section = sectionOf(item, report->layout());
                    if (number == 0 && section && section->columnHeads && item.kind == PageItem::Kind::Text)
                        heads.append(item.text);
                }
            }
            EXPECT_TRUE(rows < 700 || !heads.isEmpty());
            const QStringList last = pages.page(pages.pageCount() - 1)->texts();
            for (const QString &head : heads)
                EXPECT_TRUE(last.contains(head)) << head.toStdString();
            EXPECT_TRUE(rows < 700 || addition.totals > 0 || !isSummed);
        }
    }
}

/// Texts that differ at their end alone must not look alike on paper, and documents show all that they are given.
TEST(Catalogue, ReportsCutNoTextShort)
{
    for (const ReportDesign &design : reportCatalogue()) {
        for (const QString &word : {QString("WIDE-"), QString("7"), QString("several words ")}) {
            SCOPED_TRACE((design.designer + " " + word).toStdString());
            Row row;
            QStringList given;
            for (const DatasetField &field : design.dataset) {
                if (isText(field.type)) {
                    given += (field.name + word.repeated(30)).left(field.type == FieldType::Text100 ? 100 : 50);
                    row[field.name] = given.last();
                } else {
                    row[field.name] = isDate(field.type) ? Value(Date(2011, 3, 30)) : Value(1);
                }
            }
            const auto report = reportOf(design.designer, {row, row});
            fillTexts(*report);
            for (const TextParameter &parameter : report->layout().parameters)
                if (QStringList{"txtInvoiceNumber", "txtTerms", "txtCategory"}.contains(parameter.name))
                    report->object(parameter.name).SetText(word.repeated(30).left(50));
            for (int page = 0; page < report->pages().pageCount(); ++page) {
                EXPECT_EQ(pageFaults(*report->pages().page(page), report->layout().margins), QStringList());
                EXPECT_EQ(report->pages().page(page)->texts().filter(QChar(0x2026)), QStringList());
            }
            if (QStringList{"crptPickTicket", "crptPackingSlip", "crptInvoice"}.contains(design.designer)) {
                const QString shown = pageTexts(*report).join("").remove('|').remove(' ');
                for (QString &text : given)
                    EXPECT_TRUE(shown.contains(text.remove(' '))) << text.toStdString();
            }
        }
    }
}

TEST(Catalogue, ReportsMissNoColumnWithoutSayingSo)
{
    EXPECT_EQ(reportCatalogue().size(), 29u);
    for (const ReportDesign &design : reportCatalogue()) {
        Report report = newReport(design.designer);
        MadeRows rows(fieldsOf(design.designer).mid(1));
        report.SetDataSource(rows);
        EXPECT_EQ(errorNumberOf([&] { report.ReadRecords(); }), 440) << design.designer.toStdString();
    }
    EXPECT_EQ(reportDesign("crptProductionPartWhse").definitionFile, "ProductionByWhsePartReport");
    EXPECT_EQ(reportDesign("crptProductionPartWhse").dataset[2].type, FieldType::Integer);
    EXPECT_EQ(reportDesign("crptProductionWhsePart").dataset[2].type, FieldType::Number);
}

} // namespace
