#include "tests/reportengine/reportfixture.h"

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

struct Case
{
    const char *formula, *firstRow; ///< of Alpha in the East: Qty 4, Price 10, sold on 1 April 2011, Note Null
};

TEST(Formulas, GiveWhatTheirTextSays)
{
    const Case cases[] = {Case{"1 + 2 * 3 - 4 / 2", "5"},
                          Case{"-(2 + 3) * -1", "5"},
                          Case{"{qty}", "4"},
                          Case{"{SALES_TTX.Qty}", "4"},
                          Case{"{@amount} + 2", "42"},
                          Case{"Sum ({@Amount})", "52"},
                          Case{"Sum({@Amount}, {Sales_ttx.Region})", "40"},
                          Case{"Sum({Qty}, {Customer})", "9"},
                          Case{"Count({Price})", "4"},
                          Case{"Count({Price}, {Region})", "1"},
                          Case{"Average({Qty})", "3"},
                          Case{"Minimum({Qty})", "1"},
                          Case{"Maximum({Customer})", "Beta"},
                          Case{"Maximum({Sold}, {Region})", "2/29/2012"},
                          Case{"if {Qty} > 3 then \"many\" else \"few\"", "many"},
                          Case{"if ({@Amount} = 0) then true", "False"},
                          Case{"if {Qty} = 0 then 7", "0"},
                          Case{"\"[\" & (if {Qty} = 0 then \"x\") & \"]\"", "[]"},
                          Case{"{Qty} = 4 and not ({Price} < 3)", "True"},
                          Case{"{Qty} = 5 or {Price} >= 10", "True"},
                          Case{"{Qty} = 4 or {Qty} = 5 and {Price} >= 99", "True"},
                          Case{"{Qty} = 5 and {Price} >= 99 or {Qty} = 4", "True"},
                          Case{"{Customer} = \"ALPHA\"", "True"},
                          Case{"\"a\" + 'b' & 1.50", "ab1.5"},
                          Case{"IsNull({Note})", "True"},
                          Case{"\"<\" & {Note} & \">\"", "<>"},
                          Case{"ToText({Qty} * 1000.5, 2)", "4,002.00"},
                          Case{"ToText({Qty} * 1000.5, 0)", "4,002"},
                          Case{"ToText({Sold}, \"MMMM yyyy\")", "April 2011"},
                          Case{"{Sold} - CDate({?txtDate})", "2"},
                          Case{"{Sold} + 1", "4/2/2011"},
                          Case{"Year({Sold}) * 100 + Month({Sold})", "201104"},
                          Case{"Round(2.5) + Round(-2.5)", "0"},
                          Case{"Round(2.345, 1)", "2.3"},
                          Case{"Round(2.5)", "3"},
                          Case{"-Int(-2.1)", "3"},
                          Case{"UCase(Trim(\"  x \"))", "X"},
                          Case{"GroupName({Region})", "east"},
                          Case{"PageNumber", "1"},
                          Case{"PageNofM", "Page 1 of 1"},
                          Case{"1 // a remark\n + 1", "2"},
                          Case{"\"say \"\"yes\"\"\"", "say \"yes\""},
                          Case{"{@Empty}", "False"}};
    for (const auto &[formula, first] : cases)
        EXPECT_EQ(printed(formula).first(), first) << formula;
}

TEST(Formulas, TakeNullAsADefaultOrMakeTheResultNull)
{
    // Alpha's second row has no price: its amount is 0, or nothing at all. An empty text is not Null.
    EXPECT_EQ(printed("\"=\" & {@Amount}").mid(0, 2), (QStringList{"=40", "=0"}));
    EXPECT_EQ(printed("\"=\" & {@Amount}", false), (QStringList{"=40", "=3", "=3", "=6"}));
    EXPECT_EQ(printed("if {Note} <> \"x\" then 1 else 2", false).first(), "2");
    EXPECT_EQ(printed("if {Price} >= 0 then 1 else 2", false), (QStringList{"1", "2", "1", "1", "1"}));
    EXPECT_EQ(printed("IsNull({Note})"), (QStringList{"True", "False", "False", "False", "False"}));
    // A comparison with Null does not hold, whichever way it goes.
    EXPECT_EQ(printed("if {Price} < 99 then 1 else 2", false), (QStringList{"1", "2", "1", "1", "1"}));
    EXPECT_EQ(printed("if {Note} < \"zz\" then 1 else 2", false), (QStringList{"2", "1", "1", "1", "1"}));
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
    EXPECT_EQ(printed("{#Balance}"), (QStringList{"4", "9", "1", "3", "6"})) << "anew with each group";
}

TEST(Formulas, ThatCannotBeReadAreErrorsWhenTheRecordsAreRead)
{
    for (const char *formula : {"1 +",
                                "(1",
                                "{Nobody}",
                                "{@Nobody}",
                                "{#Nobody}",
                                "{?Nobody}",
                                "{Other_ttx.Qty}",
                                "\"open",
                                "1 + \"a\"",
                                "if 1 then 2",
                                "if true then 1 else \"a\"",
                                "{Qty} = \"a\"",
                                "Sum({Customer})",
                                "Sum({Qty}, {Note})",
                                "Sum(Sum({Qty}) + 1)",
                                "Nofunction(1)",
                                "Round(\"a\")",
                                "1 2",
                                "not 1",
                                "1 and 2",
                                "$",
                                "Sum(1",
                                "if true 1",
                                "GroupName({Qty})"})
        EXPECT_EQ(errorNumberOf([&] { printed(formula); }), 440) << formula;
    EXPECT_EQ(errorNumberOf([] { printed("1 / ({Qty} - {Qty})"); }), 11);
    const Layout circle{.title = "T", .formulas = {{"A", "{@B} + 1"}, {"B", "{@A} + 1"}}};
    EXPECT_EQ(errorNumberOf([&] { reportOver(circle, salesRows()); }), 440);
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
    report.setFormulaText(1, "1 +");
    EXPECT_EQ(errorNumberOf([&] { report.ReadRecords(); }), 440);
}

} // namespace
