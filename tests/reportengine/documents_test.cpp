#include "data/values/format.h"
#include "data/values/numbers.h"
#include "reportengine/pages/valuetext.h"
#include "reports/layouts/letterhead.h"
#include "tests/reportengine/reportfixture.h"
#include "tests/support/pagefaults.h"
#include <QRegularExpression>
#include <QTemporaryDir>
#include <sys/stat.h>

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

/// The amounts down the right side in the order of printing, each with the words before it ("" for an invoice line).
std::vector<std::pair<QString, double>> amountsOf(Report &report)
{
    std::vector<std::pair<QString, double>> amounts;
    for (int page = 0; page < report.pages().pageCount(); ++page) {
        const auto items = report.pages().page(page)->items;
        for (const PageItem &item : items) {
            const bool isAmount =
                item.kind == PageItem::Kind::Text && std::abs(item.rect.right() - 576) < 0.1 && isFigure(item.value);
            if (!isAmount)
                continue;
            QString caption;
            for (const PageItem &other : items) {
                if (other.rect.top() == item.rect.top() && std::abs(other.rect.right() - 504) < 0.1 &&
                    !isFigure(other.value))
                    caption = other.text;
            }
            QString figure = item.text;
            const int sign = figure.contains('(') ? -1 : 1;
            amounts.emplace_back(caption, sign * figure.remove(QRegularExpression("[(),]")).toDouble());
        }
    }
    return amounts;
}

TEST(Invoice, IsPrintedInAmountsThatAddUpToItsTotal)
{
    const struct
    {
        const char *what;
        int rows;
        double priceFactor, unlisted;
        QStringList recapitulation;
    } cases[] = {
        {"one shipment", 3, 1, 0, {"Goods"}},
        {"many shipments over many pages", 500, 1, 0, {"Goods", "Freight", "Adjustments"}},
        {"prices with more than two decimals", 500, 0.12345, 0, {"Goods", "Freight", "Adjustments", "Rounding"}},
        {"a shipment without lines",
         40,
         1,
         10.5,
         {"Goods", "Freight", "Adjustments", "Freight and adjustments of shipments without lines"}},
        {"both",
         500,
         0.12345,
         -7,
         {"Goods", "Freight", "Adjustments", "Freight and adjustments of shipments without lines", "Rounding"}},
        {"no line at all", 0, 1, 10.5, {"Goods", "Freight and adjustments of shipments without lines"}},
    };
    const QStringList fields = fieldsOf("crptInvoice");
    const auto column = [&](const char *field) { return int(fields.indexOf(field)); };
    for (const auto &c : cases) {
        SCOPED_TRACE(c.what);
        MadeRows sample = sampleRows("crptInvoice", c.rows);
        MadeRows rows(fields);
        double total = c.unlisted;
        QSet<int> shipments;
        while (sample.next()) {
            std::vector<Value> row;
            for (int i = 0; i < fields.size(); ++i)
                row.push_back(sample.value(i));
            const auto number = [&](const char *field) {
                return row[column(field)].isNull() ? 0 : row[column(field)].toDouble();
            };
            row[column("PriceEach")] = number("PriceEach") * c.priceFactor;
            total += number("ShipmentItems.Qty") * number("PriceEach");
            const int shipment = row[column("SHIPMENT.ID")].toLong();
            if (!shipments.contains(shipment))
                total += number("Freight") + number("Adjustment");
            shipments += shipment;
            rows.add(row);
        }
        Report report = newReport("crptInvoice");
        report.SetDataSource(rows);
        report.ReadRecords();
        const QString text = Format(roundTo2(total), u"$##,##0.00");
        report.object("txtTotal").SetText(text);

        std::map<QString, double> above, recap; // the recapitulation begins with the last sum of goods
        QStringList captions;
        double sum = 0;
        for (const auto &[caption, amount] : amountsOf(report)) {
            if (caption == "Goods") {
                for (const auto &[before, value] : recap)
                    above[before] += value;
                recap.clear();
                captions.clear();
                sum = 0;
            }
            captions += caption;
            (captions.first() == "Goods" ? recap : above)[caption] += amount;
            sum += amount;
        }
        EXPECT_EQ(captions, c.recapitulation);
        EXPECT_NEAR(sum, CDbl(text), 1e-6);
        EXPECT_NEAR(above[""], recap["Goods"], 1e-6);
        if (shipments.size() > 1) {
            EXPECT_NEAR(above["Goods"], recap["Goods"], 1e-6);
            EXPECT_NEAR(above["Freight"], recap["Freight"], 1e-6);
            EXPECT_NEAR(above["Adjustment"], recap["Adjustments"], 1e-6);
        }
    }
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
