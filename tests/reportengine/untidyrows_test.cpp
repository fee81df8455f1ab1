// What the layouts make of rows as companies have them: blank keys, orders without lines, times of day, credits.

#include "tests/reportengine/reportfixture.h"

namespace {

using Row = std::map<QString, Value>;

struct Case
{
    const char *what, *designer;
    std::vector<Row> rows; ///< fields that are not named are Null
    QStringList shown;     ///< runs of neighbouring texts, "|" between them
    QStringList notShown = {};
    std::map<QString, QString> texts = {};
    std::map<int, QString> formulas = {};
};

const QString Hidden = "if ({@Req} = 0) then true";
const QString PartHidden = "if (Sum ({@Req}, {PartNo}) = 0) then true";

Row sale(const char *key, Value value, Value now, Value before)
{
    return {{key, value}, {"Customer", "Acme"}, {"CPS", now}, {"LPS", before}, {"TYTDS", now}, {"LYTDS", before}};
}

Row produce(const char *warehouse, const char *part, double sold, double onHand)
{
    return {{"Warehouse", warehouse}, {"PartNo", part},        {"Months", 3}, {"Req", 1},
            {"SumQtySold", sold},     {"SumQtyOnHand", onHand}};
}

Row movement(Value part, Value qty)
{
    return {{"Warehouse", "Main"}, {"PartNo", part}, {"Date", Date(2011, 3, 1)},
            {"Qty", qty},          {"Cost", 1.0},    {"Memo", "Adjustment ID - 9"}};
}

Row owing(double total)
{
    return {{"Customer", "Acme"}, {"Invoice", "7"},    {"InvoiceDate", Date(2011, 3, 1)},
            {"Total", total},     {"Adjustment", 0.0}, {"Received", 0.0}};
}

Row receipt(double serial, double amount)
{
    return {{"Date", Date(serial)}, {"Amount", amount}, {"Adjustment", 0.0}};
}

const double Day = Date(2011, 3, 30).serial();
const std::map<QString, QString> LeapPeriod{{"txtBeginDate", "2/29/2004"}, {"txtEndDate", "3/31/2004"}};

TEST(UntidyRows, MakeReportsThatMisleadNobody)
{
    const std::vector<Case> cases{
        {"customers without a territory stand together",
         "crptSalesByTerritoryCustomer",
         {sale("Territory", Value(), 10.0, 5.0), sale("Territory", "", 20.0, 5.0), sale("Territory", "  ", 30.0, 5.0),
          sale("Territory", "East", 1.0, 5.0)},
         {"|No territory|Acme|10.00|", "|Total No territory|", "|60.00|", "|East|Acme|"},
         {"Total |"},
         LeapPeriod},
        {"so do parts without a category",
         "crptSalesByCategoryCustomer",
         {sale("Category", Value(), 10.0, 5.0), sale("Category", "", 20.0, 5.0)},
         {"|No category|", "|30.00|"},
         {},
         LeapPeriod},
        {"growth is blank where last year was nothing, in lines and totals",
         "crptSalesByCustomer",
         {sale("Customer", "Acme", 10.0, 0.0), sale("Customer", "Beta", 10.0, Value())},
         {"|20.00|"},
         {"%"},
         LeapPeriod},
        {"growth is there where last year sold",
         "crptSalesByCustomer",
         {sale("Customer", "Acme", 10.0, 5.0), sale("Customer", "Beta", Value(), 5.0),
          sale("Customer", "Cole", 6.0, -5.0)},
         {"100.0%", "(100.0%)"},
         {},
         LeapPeriod},
        {"the four periods are told, a leap day moved",
         "crptSalesByCustomer",
         {},
         {"Period 2/29/2004 to 3/31/2004, against the same period last year, 2/28/2003 to 3/31/2003|Year to date "
          "1/1/2004 to 3/31/2004, against last year to date, 1/1/2003 to 3/31/2003|"},
         {},
         LeapPeriod},
        {"and so is a period that last year did not have",
         "crptSalesByCustomer",
         {},
         {"12/15/2010 to 1/15/2010 (no day: it ends before it begins)"},
         {},
         {{"txtBeginDate", "12/15/2010"}, {"txtEndDate", "1/15/2011"}}},
        {"no warehouse without a requirement",
         "crptProductionWhsePart",
         {produce("Main", "P1", 9, 0), produce("Idle", "P2", 0, 5)},
         {"Warehouse Main", "|P1|"},
         {"Idle", "P2"},
         {},
         {{4, Hidden}}},
        {"no part without a requirement",
         "crptProductionPartWhse",
         {produce("Main", "P1", 9, 0), produce("Main", "P2", 0, 5)},
         {"Part P1"},
         {"P2"},
         {},
         {{4, Hidden}, {6, PartHidden}}},
        {"nothing to make says so",
         "crptProductionWhsePart",
         {produce("Idle", "P2", 0, 5)},
         {"There is nothing in this selection."},
         {"Idle"},
         {},
         {{4, Hidden}}},
        {"an order without lines has no figures",
         "crptOpenOrders",
         {{{"ID", 12},
           {"OrderNumber", "X-1"},
           {"Customer", "Acme"},
           {"Address1", "1 Road"},
           {"City", "Akron"},
           {"Zip", "44301"},
           {"ShipTo", "Dock"}}},
         {"Order X-1 (ID 12)", "no lines", "Bill to Acme, 1 Road, Akron 44301", "Ship to Dock"},
         {"Total order"}},
        {"a day is a day, whatever the time",
         "crptCashReceiptsReport",
         {receipt(Day, 1), receipt(Day + 0.5, 2), receipt(Day + 1, 4)},
         {"Total 3/30/2011|", "|3.00|0.00|3.00|Total 3/30/2011|", "Total 3/31/2011"}},
        {"a document without lines makes no part",
         "crptAvailableInventory",
         {movement("P1", 3), movement(Value(), Value())},
         {"|P1|"},
         {"Ending balance |"}},
        {"but a quantity without a part is seen",
         "crptAvailableInventory",
         {movement(Value(), 3)},
         {"Adjustment ID - 9|3|"}},
        {"a register of one category says so",
         "crptAvailableInventoryByPart",
         {movement("P1", 3)},
         {"category Valves only"},
         {},
         {{"txtCategory", "Valves"}}},
        {"a credit is no bill",
         "crptStatementReport",
         {owing(-80.5)},
         {"|Credit balance|$80.50|"},
         {"Amount due", "($80.50)"},
         {{"txtAsOfDate", "3/31/2011"}}},
        {"a bill is one",
         "crptStatementReport",
         {owing(80.5)},
         {"|Amount due|$80.50|"},
         {"Credit balance"},
         {{"txtAsOfDate", "3/31/2011"}}},
        {"one of a kind, and records without a status",
         "crptPartListing",
         {{{"PartNo", "P1"}}, {{"PartNo", "P2"}, {"Status", ""}}, {{"PartNo", "P3"}, {"Status", "Active"}}},
         {"|No status|P1|P2|", "|No status: 2 parts|", "|Active: 1 part|", "|All: 3 parts|"}},
        {"one alone", "crptWarehouseListing", {{{"WareHouse", "Main"}}}, {"|All: 1 warehouse|"}},
    };
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        const QStringList fields = fieldsOf(c.designer);
        MadeRows rows(fields);
        for (const Row &row : c.rows) {
            std::vector<Value> values(fields.size());
            for (const auto &[field, value] : row)
                values.at(fields.indexOf(field)) = value;
            rows.add(values);
        }
        Report report = newReport(c.designer);
        for (const auto &[index, text] : c.formulas)
            report.setFormulaText(index, text);
        report.SetDataSource(rows);
        report.ReadRecords();
        for (const auto &[name, text] : c.texts)
            report.object(name).SetText(text);
        const QString text = "|" + pageTexts(report).join('|') + "|";
        for (const QString &shown : c.shown)
            EXPECT_TRUE(text.contains(shown)) << shown.toStdString() << " in\n" << text.toStdString();
        for (const QString &shown : c.notShown)
            EXPECT_FALSE(text.contains(shown)) << shown.toStdString() << " in\n" << text.toStdString();
    }
}

TEST(QuickAvailableInventory, RunsDownTwoColumnsOfThePageAndThenOn)
{
    const auto report = sampleReport("crptNewAvailInv", 260);
    QStringList parts;
    std::set<int> columns;
    for (int page = 0; page < report->pages().pageCount(); ++page) {
        double last = 0;
        for (const PageItem &item : report->pages().page(page)->items) {
            if (!item.object || item.object->content != "{PartNo}")
                continue;
            if (parts.isEmpty() || parts.last() != item.value.toText())
                parts += item.value.toText();
            columns.insert(int(item.rect.left()));
            EXPECT_GE(item.rect.left(), last) << "the left column comes first";
            last = item.rect.left();
        }
    }
    EXPECT_EQ(columns, (std::set<int>{36, 318}));
    EXPECT_EQ(parts.size(), 260) << "every row once, in one order";
    EXPECT_LT(report->pages().pageCount(), 5);
}

} // namespace
