#include "tests/reportengine/reportfixture.h"

namespace {

std::unique_ptr<Report> invoice(int lines)
{
    auto report = sampleReport("crptInvoice", lines);
    report->object("txtInvoiceNumber").SetText("130012");
    report->object("txtInvoiceDate").SetText("3/30/2011");
    report->object("txtTerms").SetText("2% 10 Net 30");
    report->object("txtTotal").SetText("$98,765.43");
    return report;
}

QString allText(Report &report)
{
    return pageTexts(report).join('|');
}

TEST(Invoice, ShowsWhatTheRoutineFilledInAndEveryField)
{
    const QString text = allText(*invoice(5));
    for (const char *shown :
         {"INVOICE", "130012", "3/30/2011", "2% 10 Net 30", "$98,765.43", "10000", "1200", "3/1/2011", "Chicago",
          "Acme Building Supply|100 Industrial Parkway North|Springfield, IL 60601", "Acme Building Supply Dock",
          "4700", "UPS Ground", "BR-1040-0", "Brackets", "YOUR-70000", "Page 1 of 1"})
        EXPECT_TRUE(text.contains(shown)) << shown << " in " << text.toStdString();
}

TEST(Invoice, ShowsFreightAndAdjustmentOnceForEachShipmentOverFiveHundredLines)
{
    const auto report = invoice(500);
    const QString text = allText(*report);
    // 167 shipments: two of three have freight, every fourth an adjustment.
    EXPECT_EQ(text.count("|Freight|"), 111);
    EXPECT_EQ(text.count("|Adjustment|"), 42);
    EXPECT_EQ(text.count("|Goods|"), 167);
    EXPECT_EQ(text.count("Total|$98,765.43"), 1);
    const int pages = report->pages().pageCount();
    EXPECT_GT(pages, 10);
    EXPECT_TRUE(text.endsWith(QString("Page %1 of %1").arg(pages)));
    double amounts = 0;
    double goods = 0;
    for (int page = 0; page < pages; ++page) {
        for (const PageItem &item : report->pages().page(page)->items) {
            if (!item.object || item.value.type() != Value::Type::Double)
                continue;
            if (item.object->content == "{ShipmentItems.Qty} * {PriceEach}")
                amounts += item.value.toDouble();
            else if (item.object->content.startsWith("Sum("))
                goods += item.value.toDouble();
        }
    }
    EXPECT_NE(amounts, 0);
    EXPECT_NEAR(amounts, goods, 0.001);
}

TEST(Invoice, NamesThePlaceWithEachOrderWhenOrdersWentToSeveral)
{
    MadeRows rows = sampleRows("crptInvoice", 2);
    const QStringList fields = fieldsOf("crptInvoice");
    MadeRows two(fields);
    for (int row = 0; row < 2; ++row) {
        rows.next();
        std::vector<Value> values;
        for (int i = 0; i < fields.size(); ++i)
            values.push_back(rows.value(i));
        if (row == 1) {
            values[fields.indexOf("Orders.ID")] = 1201;
            values[fields.indexOf("ShipTo")] = "Other Place";
        }
        two.add(values);
    }
    Report report = newReport("crptInvoice");
    report.SetDataSource(two);
    report.ReadRecords();
    const QString text = allText(report);
    EXPECT_TRUE(text.contains("As told with each order"));
    EXPECT_TRUE(text.contains("Shipped to Other Place"));
    EXPECT_FALSE(allText(*invoice(2)).contains("Shipped to "));
}

TEST(Statement, IsAPageForEachCustomerWhoOwesSomethingWithTheAgeOfIt)
{
    MadeRows rows(fieldsOf("crptStatementReport"));
    const auto add = [&](const char *customer, Date date, double total, double adjustment, double received) {
        rows.add({customer, "1 Road", Value(), "Town", "IL", "60601", "77", date, date.addDays(30), "Net 30", "4711",
                  total, adjustment, received});
    };
    add("Beta", Date(2011, 3, 1), 100.0, 10.0, 40.0);
    add("Beta", Date(2011, 5, 15), 30.5, 0.0, 0.0);
    add("Beta", Date(2011, 5, 16), 80.0, 0.0, 79.999);
    add("Acme", Date(2011, 5, 1), 10.0, 0.0, 10.0);
    add("Cole", Date(2011, 1, 1), 5.0, 0.0, 0.0);
    Report report = newReport("crptStatementReport");
    report.SetDataSource(rows);
    report.ReadRecords();
    report.object("txtAsOfDate").SetText("5/31/2011");
    const QStringList pages = pageTexts(report);
    ASSERT_EQ(pages.size(), 2) << "Acme owes nothing";
    EXPECT_TRUE(pages[0].contains("Beta|1 Road|Town, IL 60601"));
    EXPECT_TRUE(pages[0].contains("Amount due|$80.50"));
    EXPECT_TRUE(pages[0].contains("|100.00|50.00|50.00|")) << pages[0].toStdString();
    EXPECT_FALSE(pages[0].contains("80.00|")) << "less than half a cent is open";
    EXPECT_TRUE(pages[0].contains("0 to 30 days|30.50|31 to 60 days|0.00|61 to 90 days|0.00|Over 90 days|50.00"))
        << pages[0].toStdString();
    EXPECT_TRUE(pages[0].endsWith("Page 1 of 1"));
    EXPECT_TRUE(pages[1].contains("Cole|"));
}

TEST(PackingSlip, ShowsOrderedBesideShipped)
{
    const QString text = allText(*sampleReport("crptPackingSlip", 3));
    EXPECT_TRUE(text.contains("|2|FX-2200-SS-0|Brackets|YOUR-70013|8|8|")) << text.toStdString();
    EXPECT_TRUE(text.contains("Total shipped|24"));
}

TEST(PickTicket, ListsLinesByCategoryWithTheirBins)
{
    const QString text = allText(*sampleReport("crptPickTicket", 9));
    EXPECT_TRUE(text.contains("|Brackets|A-0-3|BR-1040-0|1|1|B-1-3|FX-2200-SS-0|2|8|")) << text.toStdString();
    EXPECT_LT(text.indexOf("|Brackets|"), text.indexOf("|Fasteners|"));
    EXPECT_TRUE(text.contains("Phone (312) 555-0110"));
    EXPECT_TRUE(text.contains("Picked by"));
}

/// A text as long as the field takes.
QString longest(const DatasetField &field)
{
    return (field.name + " as long as such a thing may be at all, ")
        .leftJustified(field.type == FieldType::Text100 ? 100 : 50, '7', true);
}

TEST(Documents, ShowTheLongestTextsOfAllFieldsInFull)
{
    for (const QString designer : {"crptPickTicket", "crptPackingSlip", "crptInvoice"}) {
        SCOPED_TRACE(designer.toStdString());
        std::vector<Value> row;
        for (const DatasetField &field : reportDesign(designer).dataset)
            row.push_back(isText(field.type)   ? Value(longest(field))
                          : isDate(field.type) ? Value(Date(2011, 3, 30))
                                               : Value(1));
        MadeRows rows(fieldsOf(designer), {row});
        Report report = newReport(designer);
        report.SetDataSource(rows);
        report.ReadRecords();
        const QString shown = allText(report).remove('|').remove(' ');
        for (const DatasetField &field : reportDesign(designer).dataset) {
            if (isText(field.type)) {
                EXPECT_TRUE(shown.contains(longest(field).remove(' ')))
                    << field.name.toStdString() << " in " << shown.toStdString();
            }
        }
        EXPECT_EQ(pageFaults(*report.pages().page(0), report.layout().margins), QStringList());
    }
}

TEST(PickTicket, OfAnOrderWithoutLinesIsAHeadWithoutLines)
{
    const QStringList fields = fieldsOf("crptPickTicket");
    std::vector<Value> row(fields.size());
    row[fields.indexOf("OrderNumber")] = "X-1";
    MadeRows rows(fields, {row});
    Report report = newReport("crptPickTicket");
    report.SetDataSource(rows);
    report.ReadRecords();
    const QString text = allText(report);
    EXPECT_TRUE(text.contains("X-1"));
    EXPECT_TRUE(text.contains("0 lines")) << text.toStdString();
    EXPECT_FALSE(text.contains("(no category)"));
}

} // namespace
