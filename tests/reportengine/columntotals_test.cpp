#include "reportengine/pages/valuetext.h"
#include "tests/reportengine/reportfixture.h"

#include <numeric>

namespace {

/// Sums up the figures that stand one under another on the pages of a table, and holds each total line against them.
class Addition
{
public:
    explicit Addition(Report &report) : m_layout(report.layout()), m_sums(m_layout.groups.size() + 1) {}

    void read(const Page &page)
    {
        for (const PageItem &item : page.items) {
            const Section *section = sectionOf(item);
            const int column = item.object ? qRound(item.object->place.right()) : 0;
            if (section && item.object->content.contains("{#"))
                m_running.insert(column);
            if (!section || !isSummed(item) || m_running.contains(column))
                continue;
            const double number = item.value.toDouble();
            if (isLine(*section)) {
                for (auto &sums : m_sums)
                    sums[column] += number;
                ++lines;
            } else if (section->kind == Section::Kind::GroupFooter || section->kind == Section::Kind::ReportFooter) {
                double &sum = m_sums[section->kind == Section::Kind::ReportFooter ? 0 : section->group + 1][column];
                EXPECT_NEAR(number, sum, 0.005) << (section->name + " " + item.object->content).toStdString();
                sum = 0;
                ++totals;
            }
        }
    }

    int lines = 0;
    int totals = 0;

private:
    const Section *sectionOf(const PageItem &item) const
    {
        for (const Section &section : m_layout.sections) {
            const auto &objects = section.objects;
            if (item.object >= objects.data() && item.object < objects.data() + objects.size())
                return &section;
        }
        return nullptr;
    }
    /// Details, and the lines that stand for them in reports without details.
    static bool isLine(const Section &section)
    {
        return section.kind == Section::Kind::Detail || section.name == "secTotals" || section.name == "secSummaryLine";
    }
    /// Rates have no sum.
    static bool isSummed(const PageItem &item)
    {
        const bool isNumber = item.value.type() == Value::Type::Double || item.value.type() == Value::Type::Long;
        return isNumber && item.picture != Picture::Percent;
    }

    const Layout &m_layout;
    std::set<int> m_running;                   ///< columns of balances that run from line to line, with no sum
    std::vector<std::map<int, double>> m_sums; ///< by column; of the report, then of each group level
};

/// Rows with Nulls, over several batches: Qty 0 to 9, Price mostly a number, Sold a date or Null.
MadeRows mixedRows(int count)
{
    MadeRows rows({"Region", "Customer", "Qty", "Price", "Sold", "Note"});
    for (int i = 0; i < count; ++i)
        rows.add({QString::number(i % 7), i % 5 ? Value("Acme") : Value(), double(i % 10),
                  i % 3 ? Value(i * 0.25) : Value(), i % 4 ? Value(Date(2011, 1, 1).addDays(i % 90)) : Value(),
                  Value()});
    return rows;
}

TEST(Totals, TakeEveryRowsValueAsThatRowPrintsIt)
{
    const QStringList formulas{"{Price}",
                               "{Qty} * {Price} - 1",
                               "if {Qty} <> 0 then {Price} / {Qty}",
                               "if {Qty} <> 0 and 6 / {Qty} > 1 or IsNull({Price}) then -{Qty} else {Price}",
                               "if not ({Customer} = \"acme\") then {Qty} else 0",
                               "CDate({?Day}) - {Sold}",
                               "if {Sold} >= CDate({?Day}) then Month({Sold}) else 2"};
    for (const bool nullsAsDefaults : {true, false}) {
        for (const QString &formula : formulas) {
            Layout layout{.title = "T",
                          .parameters = {{"Day", "2/15/2011"}},
                          .formulas = {{"F", formula}},
                          .groups = {{.by = "{Region}"}},
                          .sections = {section(Section::Kind::Detail, {value({0, 0, 99, 0}, "{@F}")}),
                                       section(Section::Kind::ReportFooter, {value({0, 0, 99, 0}, "Sum({@F})"),
                                                                             value({100, 0, 99, 0}, "Count({@F})"),
                                                                             value({200, 0, 99, 0}, "Minimum({@F})"),
                                                                             value({300, 0, 99, 0}, "Maximum({@F})")})},
                          .nullsAsDefaults = nullsAsDefaults};
            const auto report = reportOver(layout, mixedRows(1000));
            std::vector<double> values;
            std::vector<double> totals;
            report->pages().forEachSection([&](const CompiledSection &section, const Page &items, int) {
                for (const PageItem &item : items.items)
                    (section.section->kind == Section::Kind::Detail ? values : totals).push_back(item.value.toDouble());
                return true;
            });
            ASSERT_EQ(totals.size(), 4u) << formula.toStdString();
            EXPECT_NEAR(totals[0], std::accumulate(values.begin(), values.end(), 0.0), 1e-6) << formula.toStdString();
            EXPECT_EQ(totals[1], double(values.size())) << formula.toStdString();
            EXPECT_EQ(totals[2], *std::min_element(values.begin(), values.end())) << formula.toStdString();
            EXPECT_EQ(totals[3], *std::max_element(values.begin(), values.end())) << formula.toStdString();
        }
    }
}

struct Form
{
    const char *designer;
    QStringList hidden = {}; ///< as the report's routine hides them
    std::map<int, QString> formulas = {};
};

TEST(Totals, AreTheSumsOfWhatStandsAboveThem)
{
    const QStringList totalsOnly{"secTotalsHeads", "secTotals", "secTotalsOfGroup", "secTotalsGrandTotal"};
    const QStringList details{"secHeads", "secPart", "secDetail", "secPartTotal", "secGroupFooter1", "secGrandTotal"};
    const std::vector<Form> forms{
        {"crptARTranReport"},
        {"crptCashReceiptsReport"},
        {"crptCustomerRegister"},
        {"crptOpenInvoicesReport"},
        {"crptOpenInvoicesReport", {"Details", "InvoiceHeads", "CustomerHeader"}},
        {"crptSalesByCustomer"},
        {"crptSalesByCategoryCustomer"},
        {"crptSalesByTerritoryCustomer"},
        {"crptSalesByPart"},
        {"crptSalesByWhsePart"},
        {"crptAvailableInventory", details},
        {"crptAvailableInventoryByPart", details},
        {"crptNewAvailInv"},
        {"crptInventorySalesReport"},
        {"crptProductionWhsePart"},
        {"crptProductionWhsePart", {}, {{4, "if ({@Req} = 0) then true"}}},
        {"crptProductionPartWhse",
         {},
         {{4, "if ({@Req} = 0) then true"}, {6, "if (Sum ({@Req}, {PartNo}) = 0) then true"}}},
        {"crptOpenOrders"},
        {"crptInventoryAdjustControlReport"},
        {"crptInventoryTransferControlReport"},
        {"crptAvailInv"},
        {"crptAvailInv2"}};
    for (const Form &form : forms) {
        SCOPED_TRACE(form.designer);
        Report report = newReport(form.designer);
        MadeRows rows = sampleRows(form.designer, 1000);
        for (const auto &[index, text] : form.formulas)
            report.setFormulaText(index, text);
        report.SetDataSource(rows);
        report.ReadRecords();
        for (const TextParameter &parameter : report.layout().parameters)
            report.object(parameter.name).SetText(parameter.name.contains("Date") ? "6/30/2011" : "30");
        for (const QString &name : form.hidden)
            report.object(name).setSuppress(true);
        Addition addition(report);
        for (int page = 0; page < report.pages().pageCount(); ++page)
            addition.read(*report.pages().page(page));
        EXPECT_GT(addition.lines, 20);
        EXPECT_GT(addition.totals, 0);
    }
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

} // namespace
