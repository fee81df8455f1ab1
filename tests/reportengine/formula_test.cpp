#include "tests/reportengine/reportfixture.h"
#include "tests/support/datafile.h"

namespace {

using Kind = Section::Kind;

/// What formulas, "|" between them, print for the rows of salesRows in the order of their regions and customers, {@It}
/// being what they are about.
QStringList printed(const QString &formulas, bool nullsAsDefaults = true, Kind kind = Kind::Detail,
                    const QString &it = "0")
{
    std::vector<LayoutObject> objects;
    for (const QString &formula : formulas.split('|'))
        objects.push_back(value({100.0 * objects.size(), 0, 400, 0}, formula));
    const Layout layout{.title = "T",
                        .parameters = {{"txtDate", "3/30/2011"}},
                        .formulas = {{"Amount", "{Sales_ttx.Qty} * {Sales_ttx.Price}"}, {"Empty", ""}, {"It", it}},
                        .runningTotals = {{"Balance", "{Qty}", 0}},
                        .groups = {{.by = "{Region}"}, {.by = "{Customer}"}},
                        .sections = {section(kind, objects)},
                        .nullsAsDefaults = nullsAsDefaults};
    return pageTexts(*reportOver(layout, salesRows())).first().split('|');
}

TEST(Formulas, GiveWhatTheFileSays)
{
    for (QString line : linesOf("reportengine/formulas.txt")) {
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        const QStringList cells = line.replace("\\n", "\n").split(" | ");
        for (int mode = 1; mode < cells.size(); ++mode) {
            QStringList texts;
            const int error = errorNumberOf([&] { texts = printed(cells[0], mode == 1); });
            const QString shown = cells.size() > 2 ? texts.join(' ') : texts.value(0);
            EXPECT_EQ(error ? QString("error %1").arg(error) : shown, cells[mode]) << line.toStdString();
        }
    }
}

TEST(Formulas, AddUpOverTheRows)
{
    const struct
    {
        const char *formula, *totals; ///< sum, count, minimum, maximum
        const char *withNulls = nullptr;
    } cases[] = {
        {"{Price}", "16.5 4 1.5 10"},
        {"{Qty} * {Price} - 1", "47 5 -1 39", "48 4 2 39"},
        {"if {Qty} <> 0 and 6 / {Qty} > 2 or IsNull({Price}) then -{Qty} else {Price}", "4 5 -5 10"},
        {"if not ({Customer} = \"acme\") then {Qty} else 0", "14 5 0 5"},
        {"if IsNull({Sold}) then 7 else CDate({?txtDate}) - {Sold}", "-607 5 -336 7"},
    };
    for (const auto &c : cases) {
        const QString totals = QString("Sum({@It})|Count({@It})|Minimum({@It})|Maximum({@It})");
        EXPECT_EQ(printed(totals, true, Kind::ReportFooter, c.formula).join(' '), c.totals) << c.formula;
        EXPECT_EQ(printed(totals, false, Kind::ReportFooter, c.formula).join(' '), c.withNulls ? c.withNulls : c.totals)
            << c.formula;
    }
}

TEST(Formulas, CanBeReplacedByNumberBeforeReading)
{
    Layout layout{.title = "T",
                  .formulas = {{"Shown", "\"old\""}, {"Hide", ""}},
                  .sections = {section(Kind::Detail, {value({0, 0, 100, 0}, "{@Shown}")})}};
    layout.sections[0].suppressIf = "{@Hide}";
    Report report(layout, "Sales_ttx", salesDataset());
    MadeRows rows = salesRows();
    report.SetDataSource(rows);
    report.setFormulaText(1, "\"new\"");
    report.setFormulaText(2, "if ({Sales_ttx.Qty} > 2) then true");
    report.ReadRecords();
    EXPECT_EQ(pageTexts(report).first(), "new|new");
    for (const auto &[first, second] : {std::pair{"1 +", ""}, {"{@Hide}", "{@Shown}"}}) { // the second is a circle
        report.setFormulaText(1, first);
        report.setFormulaText(2, second);
        EXPECT_EQ(errorNumberOf([&] { report.ReadRecords(); }), 440);
    }
}

} // namespace
