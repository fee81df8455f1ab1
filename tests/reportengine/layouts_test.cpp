// What the layouts make of hand-made rows: each cell of the documents, and what companies have that is untidy: blank
// keys, orders without lines, times of day, credits.

#include "reports/layouts/letterhead.h"
#include "tests/reportengine/reportfixture.h"
#include <sys/stat.h>

namespace {

struct Case
{
    const char *what, *designer;
    std::vector<Row> rows;
    QStringList shown; ///< runs of neighbouring texts, "|" between them; "!" before those that are not
    std::map<QString, QString> texts = {};
    std::map<int, QString> formulas = {};
};

void expectShown(const std::vector<Case> &cases)
{
    for (const Case &c : cases) {
        SCOPED_TRACE(c.what);
        const QString text = "|" + pageTexts(*reportOf(c.designer, c.rows, c.texts, c.formulas)).join('|') + "|";
        for (const QString &shown : c.shown) {
            const bool isNot = shown.startsWith('!');
            EXPECT_NE(text.contains(shown.mid(isNot)), isNot) << shown.toStdString() << " in\n" << text.toStdString();
        }
    }
}

Row with(Row row, const Row &more)
{
    for (const auto &[field, value] : more)
        row[field] = value;
    return row;
}

const Row Place{{"Customer", "Acme"},          {"ShipTo", "Acme Dock"},        {"ShipToAddress1", "2 Pier"},
                {"ShipToAddress2", "Berth 3"}, {"ShipToCity", "Erie"},         {"ShipToState", "PA"},
                {"ShipToZip", "16501"},        {"OrderDate", Date(2011, 3, 1)}};
const Row Billed = with(Place, {{"Orders.ID", 12},
                                {"OrderNumber", "X-1"},
                                {"Address1", "1 Road"},
                                {"Address2", "Box 8"},
                                {"City", "Akron"},
                                {"State", "OH"},
                                {"Zip", "44301"},
                                {"Warehouse", "Main"},
                                {"SHIPMENT.ID", 70},
                                {"Date", Date(2011, 3, 5)},
                                {"Via", "Rail"},
                                {"Freight", 12.5},
                                {"Adjustment", -2.0}});

Row billed(int item, const char *part, double ordered, double shipped, double price, const Row &more = {})
{
    return with(with(Billed, {{"ItemNumber", item},
                              {"PartNo", part},
                              {"Category", "Pumps"},
                              {"CustomerNumber", "YOURS"},
                              {"OrderItem.Qty", ordered},
                              {"ShipmentItems.Qty", shipped},
                              {"PriceEach", price}}),
                more);
}

const Row Second{{"SHIPMENT.ID", 71}, {"Freight", 0.5}, {"Adjustment", 0.0}};

TEST(Documents, ShowEachCellInItsColumnAndAmountsThatAddUp)
{
    const QString bill = "|Bill to|Acme|1 Road|Box 8|Akron, OH 44301|";
    const QString ship = "|Ship to|Acme Dock|2 Pier|Berth 3|Erie, PA 16501|";
    Row slip = billed(3, "P-1", 1234, 1200, 0);
    for (const char *field : {"Warehouse", "Via", "Freight", "Adjustment", "PriceEach"})
        slip.erase(field);
    const Row pick = with(Place, {{"Warehouse", "Main"},
                                  {"ID", 12},
                                  {"OrderNumber", "X-1"},
                                  {"DueDate", Date(2011, 3, 9)},
                                  {"ShipToPhone", "555-1"},
                                  {"ShipToFax", "555-2"}});
    const std::vector<Row> half{billed(1, "A", 3, 3, 0.125), billed(2, "B", 3, 3, 0.125)};
    expectShown({
        {"an invoice of one shipment",
         "crptInvoice",
         {billed(3, "P-1", 1234, 6, 5.125), billed(4, "P-2", 2, 1, 17.75)},
         {bill, ship, "|Invoice number|77|Invoice date|3/10/2011|Terms|Net 30|",
          "|Line|Part|Category|Your number|Ordered|Shipped|Price|Amount|",
          "|Order X-1 (ID 12) of 3/1/2011, from Main|Shipment 70 of 3/5/2011 via Rail|",
          "|3|P-1|Pumps|YOURS|1,234|6|5.125|30.75|4|P-2|Pumps|YOURS|2|1|17.75|17.75|",
          "|17.75|Goods|48.50|Freight|12.50|Adjustments|(2.00)|Total|$59.00|", "|Page 1 of 1|", "!Rounding",
          "!Shipped to"},
         {{"txtInvoiceNumber", "77"}, {"txtInvoiceDate", "3/10/2011"}, {"txtTerms", "Net 30"}, {"txtTotal", "$59.00"}}},
        {"of several shipments",
         "crptInvoice",
         {billed(1, "A", 9, 6, 5), billed(2, "B", 9, 1, 2), billed(1, "A", 9, 3, 5, Second)},
         {"|2.00|2.00|Goods|32.00|Freight|12.50|Adjustment|(2.00)|Shipment 71 ",
          "|5.00|15.00|Goods|15.00|Freight|0.50|Goods|47.00|Freight|13.00|Adjustments|(2.00)|Total|$58.00|"},
         {{"txtTotal", "$58.00"}}},
        {"prices with a part of a cent",
         "crptInvoice",
         half,
         {"|0.38|Goods|0.76|Freight|12.50|Adjustments|(2.00)|Rounding|(0.01)|Total|"},
         {{"txtTotal", "$11.25"}}},
        {"a shipment without lines and prices with a part of a cent",
         "crptInvoice",
         half,
         {"|Adjustments|(2.00)|Freight and adjustments of shipments without lines|10.50|Rounding|(0.01)|Total|"},
         {{"txtTotal", "$21.75"}}},
        {"no line at all",
         "crptInvoice",
         {},
         {"|Goods|0.00|Freight and adjustments of shipments without lines|10.50|Total|$10.50|"},
         {{"txtTotal", "$10.50"}}},
        {"goods that went to several places",
         "crptInvoice",
         {billed(1, "A", 1, 1, 1), billed(1, "A", 1, 1, 1, {{"Orders.ID", 13}, {"ShipTo", "Pier 9"}})},
         {"|Ship to|As told with each order|", "|Shipped to Pier 9, 2 Pier, Berth 3, Erie, PA 16501|"}},
        {"a packing slip",
         "crptPackingSlip",
         {slip, with(slip, {{"ItemNumber", 4}, {"ShipmentItems.Qty", 34}})},
         {ship, "|Sold to|Acme|1 Road|Box 8|Akron, OH 44301|",
          "|Shipment|70|Ship date|3/5/2011|Order number|X-1|Order ID|12|Order date|3/1/2011|",
          "|Line|Part|Category|Your number|Ordered|Shipped|3|P-1|Pumps|YOURS|1,234|1,200|4|P-1|Pumps|YOURS|1,234|34|",
          "|Total shipped|1,234|"}},
        {"a pick ticket goes by category",
         "crptPickTicket",
         {with(pick,
               {{"ItemNumber", 3}, {"Qty", 1234}, {"PartNo", "P-1"}, {"Category", "Valves"}, {"BinLocation", "R1"}}),
          with(pick,
               {{"ItemNumber", 4}, {"Qty", 2.5}, {"PartNo", "P-2"}, {"Category", "Pumps"}, {"BinLocation", "R2"}})},
         {"|Order number|X-1|Order ID|12|Order date|3/1/2011|Due date|3/9/2011|Warehouse|Main|",
          "|Ship to|Acme Dock|2 Pier|Berth 3|Erie, PA 16501|Phone 555-1  Fax 555-2|Customer|Acme|",
          "|Bin|Part|Line|Quantity|Picked|Pumps|R2|P-2|4|2.5|Valves|R1|P-1|3|1,234|", "|2 lines|1,236.5|",
          "|Picked by|"}},
        {"a pick ticket without lines", "crptPickTicket", {pick}, {"|X-1|", "|0 lines|", "!(no category)"}},
    });
}

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

Row owing(double total, const char *customer = "Acme", Date date = Date(2011, 3, 1), double adjustment = 0,
          double received = 0)
{
    return {{"Customer", customer}, {"Address1", "1 Road"},     {"City", "Town"},      {"State", "IL"},
            {"Zip", "60601"},       {"Invoice", "7"},           {"InvoiceDate", date}, {"DueDate", date.addDays(30)},
            {"Total", total},       {"Adjustment", adjustment}, {"Received", received}};
}

Row receipt(double serial, double amount)
{
    return {{"Date", Date(serial)}, {"Amount", amount}, {"Adjustment", 0.0}};
}

const double Day = Date(2011, 3, 30).serial();
const std::map<QString, QString> LeapPeriod{{"txtBeginDate", "2/29/2004"}, {"txtEndDate", "3/31/2004"}};

TEST(UntidyRows, MakeReportsThatMisleadNobody)
{
    expectShown({
        {"customers without a territory stand together",
         "crptSalesByTerritoryCustomer",
         {sale("Territory", Value(), 10.0, 5.0), sale("Territory", "", 20.0, 5.0), sale("Territory", "  ", 30.0, 5.0),
          sale("Territory", "East", 1.0, 5.0)},
         {"|No territory|Acme|10.00|", "|Total No territory|", "|60.00|", "|East|Acme|", "!Total |"},
         LeapPeriod},
        {"so do parts without a category",
         "crptSalesByCategoryCustomer",
         {sale("Category", Value(), 10.0, 5.0), sale("Category", "", 20.0, 5.0)},
         {"|No category|", "|30.00|"},
         LeapPeriod},
        {"growth is blank where last year was nothing, in lines and totals",
         "crptSalesByCustomer",
         {sale("Customer", "Acme", 10.0, 0.0), sale("Customer", "Beta", 10.0, Value())},
         {"|20.00|", "!%"},
         LeapPeriod},
        {"growth is there where last year sold",
         "crptSalesByCustomer",
         {sale("Customer", "Acme", 10.0, 5.0), sale("Customer", "Beta", Value(), 5.0),
          sale("Customer", "Cole", 6.0, -5.0)},
         {"100.0%", "(100.0%)"},
         LeapPeriod},
        {"the four periods are told, a leap day moved",
         "crptSalesByCustomer",
         {},
         {"Period 2/29/2004 to 3/31/2004, against the same period last year, 2/28/2003 to 3/31/2003|Year to date "
          "1/1/2004 to 3/31/2004, against last year to date, 1/1/2003 to 3/31/2003|"},
         LeapPeriod},
        {"and so is a period that last year did not have",
         "crptSalesByCustomer",
         {},
         {"12/15/2010 to 1/15/2010 (no day: it ends before it begins)"},
         {{"txtBeginDate", "12/15/2010"}, {"txtEndDate", "1/15/2011"}}},
        {"no warehouse without a requirement",
         "crptProductionWhsePart",
         {produce("Main", "P1", 9, 0), produce("Idle", "P2", 0, 5)},
         {"Warehouse Main", "|P1|", "!Idle", "!P2"},
         {},
         {{4, Hidden}}},
        {"no part without a requirement",
         "crptProductionPartWhse",
         {produce("Main", "P1", 9, 0), produce("Main", "P2", 0, 5)},
         {"Part P1", "!P2"},
         {},
         {{4, Hidden}, {6, PartHidden}}},
        {"nothing to make says so",
         "crptProductionWhsePart",
         {produce("Idle", "P2", 0, 5)},
         {"There is nothing in this selection.", "!Idle"},
         {},
         {{4, Hidden}}},
        {"nothing at all says so", "crptOpenOrders", {}, {"There is nothing in this selection."}},
        {"and so do statements", "crptStatementReport", {}, {"No customer"}},
        {"an order without lines has no figures",
         "crptOpenOrders",
         {{{"ID", 12},
           {"OrderNumber", "X-1"},
           {"Customer", "Acme"},
           {"Address1", "1 Road"},
           {"City", "Akron"},
           {"Zip", "44301"},
           {"ShipTo", "Dock"}}},
         {"Order X-1 (ID 12)", "no lines", "Bill to Acme, 1 Road, Akron 44301", "Ship to Dock", "!Total order",
          "!nothing in this selection"}},
        {"a day is a day, whatever the time",
         "crptCashReceiptsReport",
         {receipt(Day, 1), receipt(Day + 0.5, 2), receipt(Day + 1, 4)},
         {"Total 3/30/2011|", "|3.00|0.00|3.00|Total 3/30/2011|", "Total 3/31/2011"}},
        {"a document without lines makes no part",
         "crptAvailableInventory",
         {movement("P1", 3), movement(Value(), Value())},
         {"|P1|", "!Ending balance |"}},
        {"but a quantity without a part is seen",
         "crptAvailableInventory",
         {movement(Value(), 3)},
         {"Adjustment ID - 9|3|"}},
        {"a register of one category says so",
         "crptAvailableInventoryByPart",
         {movement("P1", 3)},
         {"category Valves only"},
         {{"txtCategory", "Valves"}}},
        {"a statement is a page for each customer who owes half a cent or more, with the age of it",
         "crptStatementReport",
         {owing(100, "Beta", Date(2011, 3, 1), 10, 40), owing(30.5, "Beta", Date(2011, 5, 15)),
          owing(80, "Beta", Date(2011, 5, 16), 0, 79.999), owing(10, "Acme", Date(2011, 5, 1), 0, 10),
          owing(5, "Cole", Date(2011, 1, 1))},
         {"|Beta|1 Road|Town, IL 60601|", "|Amount due|$80.50|", "|100.00|50.00|50.00|",
          "|0 to 30 days|30.50|31 to 60 days|0.00|61 to 90 days|0.00|Over 90 days|50.00|", "|Page 1 of 1|", "|Cole",
          "!80.00|", "!Acme", "!Credit balance"},
         {{"txtAsOfDate", "5/31/2011"}}},
        {"a credit is no bill",
         "crptStatementReport",
         {owing(-80.5)},
         {"|Credit balance|$80.50|", "!Amount due", "!($80.50)"},
         {{"txtAsOfDate", "3/31/2011"}}},
        {"one of a kind, and records without a status",
         "crptPartListing",
         {{{"PartNo", "P1"}}, {{"PartNo", "P2"}, {"Status", ""}}, {{"PartNo", "P3"}, {"Status", "Active"}}},
         {"|No status|P1|P2|", "|No status: 2 parts|", "|Active: 1 part|", "|All: 3 parts|"}},
        {"one alone", "crptWarehouseListing", {{{"WareHouse", "Main"}}}, {"|All: 1 warehouse|"}},
    });
}

TEST(LetterheadFile, IsTakenAsItStandsOrIsAnErrorAtOnce)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("letterhead.txt");
    const auto write = [&](const QByteArray &content) {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    };
    const struct
    {
        const char *what;
        std::function<bool()> make;
        const char *lines; ///< the error where it is a number
    } rows[] = {
        {"none", [] { return true; }, "Tamrick"},
        {"a sound one", [&] { return write(" Höhn Fittings \r\n\r\n1 Canal Road\nDayton, OH"); },
         "Höhn Fittings|1 Canal Road|Dayton, OH"},
        {"nothing in it", [&] { return write("\n"); }, "Tamrick"},
        {"a line of 50 MB", [&] { return write(QByteArray(50'000'000, 'x')); }, "75"},
        {"a pipe", [&] { return mkfifo(QFile::encodeName(path).constData(), 0600) == 0; }, "75"},
        {"a device", [&] { return QFile::link("/dev/zero", path); }, "75"},
        {"a folder", [&] { return QDir().mkdir(path); }, "75"},
    };
    for (const auto &row : rows) {
        QFile::remove(path);
        ASSERT_TRUE(row.make()) << row.what;
        Letterhead head;
        const int error = errorNumberOf([&] { head = letterheadIn(path); });
        EXPECT_EQ(error ? QString::number(error) : (QStringList(head.name) + head.lines).join('|'), row.lines)
            << row.what;
    }
}

} // namespace
