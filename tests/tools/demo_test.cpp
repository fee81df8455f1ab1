#include "tests/tools/toolstest.h"

#include "data/values/conversions.h"

namespace {

/// The demo company read back through the program's own data layer, and judged by rules written down here.
class DemoTest : public ToolsTest
{
protected:
    using Row = QHash<QString, Value>;

    void SetUp() override { ASSERT_EQ(run({"demo", path("demo.db"), "--until", "2011-03-30"}).status, 0); }

    const std::vector<Row> &rowsOf(const QString &table)
    {
        std::vector<Row> &rows = m_tables[table];
        if (!rows.empty())
            return rows;
        if (!m_database)
            m_database = open(path("demo.db"));
        Recordset records = m_database->OpenRecordset("SELECT * FROM " + table);
        for (; !records.Eof(); records.MoveNext()) {
            Row row;
            for (int i = 0; i < records.fieldCount(); ++i)
                row[records.Fields(i).Name()] = records.Fields(i).value();
            rows.push_back(row);
        }
        return rows;
    }

    QHash<int, Row> byID(const QString &table)
    {
        QHash<int, Row> rows;
        for (const Row &row : rowsOf(table))
            rows[row["ID"].toLong()] = row;
        return rows;
    }

    QHash<QString, Row> byName(const QString &table, const QString &key)
    {
        QHash<QString, Row> rows;
        for (const Row &row : rowsOf(table))
            rows[row[key].toText()] = row;
        return rows;
    }

    /// Quantities shipped by "order/line".
    QHash<QString, double> shipped()
    {
        QHash<QString, double> sums;
        for (const Row &row : rowsOf("ShipmentItems"))
            sums[row["OrderID"].toText() + '/' + row["OrderLineItem"].toText()] += row["Qty"].toDouble();
        return sums;
    }

    std::unique_ptr<Database> m_database;
    QHash<QString, std::vector<Row>> m_tables;
};

TEST_F(DemoTest, TheSameSeedGivesTheSameFileAndAnotherSeedAnother)
{
    const auto contents = [this](const QString &name, const QString &seed) {
        EXPECT_EQ(run({"demo", path(name), "--seed", seed, "--until=2011-03-30"}).status, 0);
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    };
    const QByteArray seven = contents("a.db", "7");
    EXPECT_TRUE(contents("b.db", "7") == seven);
    EXPECT_FALSE(contents("c.db", "8") == seven);
}

TEST_F(DemoTest, EveryTableOfTheCompanyIsFilled)
{
    const struct
    {
        const char *table;
        int least, most;
    } rows[] = {
        {"Customer", 50, 50},
        {"Part", 100, 200},
        {"Warehouse", 3, 5},
        {"PriceSheet", 100, 400},
        {"Orders", 2000, 2000},
        {"OrderItem", 7000, 9000},
        {"Shipment", 2100, 2500},
        {"ShipmentItems", 7500, 9500},
        {"Invoice", 900, 1600},
        {"Payments", 1000, 2000},
        {"AdjustmentHeader", 200, 900},
        {"AdjustmentDetail", 800, 4000},
        {"TransferHeader", 50, 300},
        {"AvailInv", 200, 480},
        {"FebInventory", 80, 120},
        {"Inventory", 20, 120},
    };
    for (const auto &row : rows) {
        const int count = int(rowsOf(row.table).size());
        EXPECT_TRUE(count >= row.least && count <= row.most) << row.table << " has " << count;
    }
}

TEST_F(DemoTest, OrdersAreClosedExactlyWhenEveryLineIsShippedInFull)
{
    const QHash<QString, double> shippedQty = shipped();
    QHash<int, bool> complete;
    QHash<int, double> totals;
    for (const Row &line : rowsOf("OrderItem")) {
        const int order = line["OrderID"].toLong();
        const QString key = line["OrderID"].toText() + '/' + line["ItemNumber"].toText();
        const bool full = shippedQty.contains(key) && shippedQty[key] >= line["Qty"].toDouble();
        complete[order] = complete.value(order, true) && full;
        EXPECT_LE(shippedQty.value(key), line["Qty"].toDouble());
        EXPECT_EQ(line["PriceExt"].toDouble(), line["Qty"].toDouble() * line["PriceEach"].toDouble());
        totals[order] += line["PriceExt"].toDouble();
    }
    QHash<QString, int> statuses;
    for (const Row &order : rowsOf("Orders")) {
        const int id = order["ID"].toLong();
        const QString status = order["Status"].toText();
        ++statuses[status];
        EXPECT_EQ(status == "Closed", complete[id]) << id;
        EXPECT_NEAR(order["Total"].toDouble(), totals[id], 1e-9);
    }
    for (const char *status : {"Open", "Closed", "Void"})
        EXPECT_GT(statuses[status], 5) << status;
}

TEST_F(DemoTest, InvoicesAddUpAndListEachBilledShipmentOnce)
{
    const auto orders = byID("Orders");
    auto shipments = byID("Shipment");
    const auto customers = byName("Customer", "Customer");
    QHash<QString, double> prices;
    for (const Row &line : rowsOf("OrderItem"))
        prices[line["OrderID"].toText() + '/' + line["ItemNumber"].toText()] = line["PriceEach"].toDouble();
    QHash<int, double> goods;
    for (const Row &line : rowsOf("ShipmentItems"))
        goods[line["ShipmentID"].toLong()] +=
            line["Qty"].toDouble() * prices[line["OrderID"].toText() + '/' + line["OrderLineItem"].toText()];

    QSet<int> billed;
    for (const Row &invoice : rowsOf("Invoice")) {
        EXPECT_EQ(invoice["Invoice"].toText(), invoice["ID"].toText());
        double total = 0;
        int last = 0;
        for (const QString &token : invoice["Shipment"].toText().split(", ")) {
            const int id = token.toInt();
            ASSERT_TRUE(shipments.contains(id));
            EXPECT_GT(id, last);
            last = id;
            EXPECT_FALSE(billed.contains(id));
            billed += id;
            EXPECT_TRUE(shipments[id]["Invoiced"].toBoolean());
            EXPECT_LE(shipments[id]["Date"].toDate(), invoice["InvoiceDate"].toDate());
            EXPECT_EQ(orders[shipments[id]["OrderID"].toLong()]["Customer"], invoice["Customer"]);
            total += goods[id] + shipments[id]["Freight"].toDouble() + shipments[id]["Adjustment"].toDouble();
        }
        EXPECT_NEAR(invoice["Total"].toDouble(), total, 0.0051);
        EXPECT_EQ(invoice["Total"].toDouble(), roundTo2(invoice["Total"].toDouble()));
        const Row &customer = customers[invoice["Customer"].toText()];
        EXPECT_EQ(invoice["DueDate"].toDate(), invoice["InvoiceDate"].toDate().addDays(customer["Days"].toLong()));
        EXPECT_EQ(invoice["Terms"], customer["Terms"]);
    }
    for (const Row &shipment : rowsOf("Shipment")) {
        EXPECT_EQ(shipment["Invoiced"].toBoolean(), billed.contains(shipment["ID"].toLong()));
        EXPECT_TRUE(shipment["InvoiceDate"].isNull());
    }
}

TEST_F(DemoTest, PaymentsComeAfterTheirInvoicesAndNeverExceedThem)
{
    const auto invoices = byID("Invoice");
    QHash<int, double> paid;
    for (const Row &payment : rowsOf("Payments")) {
        const int invoice = payment["Invoice"].toLong();
        ASSERT_TRUE(invoices.contains(invoice));
        EXPECT_GE(payment["Date"].toDate(), invoices[invoice]["InvoiceDate"].toDate());
        EXPECT_LE(payment["Date"].toDate(), Date(2011, 3, 30));
        paid[invoice] += payment["Amount"].toDouble() + payment["Adjustment"].toDouble();
    }
    int overdue = 0;
    for (auto invoice = invoices.begin(); invoice != invoices.end(); ++invoice) {
        const double balance = (*invoice)["Total"].toDouble() - paid.value(invoice.key());
        EXPECT_GT(balance, -1e-6);
        overdue += balance > 0.01 && (*invoice)["DueDate"].toDate() < Date(2011, 3, 30);
    }
    EXPECT_GT(overdue, 5);
}

TEST_F(DemoTest, TheLedgerHoldsWhatARebuildMakes)
{
    const auto headers = byID("AdjustmentHeader");
    const auto orders = byID("Orders");
    QHash<QString, QString> parts;
    for (const Row &line : rowsOf("OrderItem"))
        parts[line["OrderID"].toText() + '/' + line["ItemNumber"].toText()] = line["PartNo"].toText();
    QHash<QString, double> posted;
    QSet<int> outgoing;
    for (const Row &transfer : rowsOf("TransferHeader"))
        outgoing += transfer["FromID"].toLong();
    for (const Row &line : rowsOf("AdjustmentDetail"))
        posted[headers[line["AdjustmentID"].toLong()]["Warehouse"].toText() + '/' + line["PartNo"].toText()] +=
            line["Qty"].toDouble() * (outgoing.contains(line["AdjustmentID"].toLong()) ? -1 : 1);
    for (const Row &line : rowsOf("ShipmentItems")) {
        const QString key = line["OrderID"].toText() + '/' + line["OrderLineItem"].toText();
        posted[orders[line["OrderID"].toLong()]["Warehouse"].toText() + '/' + parts[key]] -= line["Qty"].toDouble();
    }
    EXPECT_EQ(rowsOf("AvailInv").size(), size_t(posted.size()));
    for (const Row &row : rowsOf("AvailInv"))
        EXPECT_EQ(row["Avail"].toDouble(), posted[row["Whse"].toText() + '/' + row["Part"].toText()]);
}

TEST_F(DemoTest, TransfersTakeFromOneWarehouseWhatTheyBringToAnother)
{
    const auto headers = byID("AdjustmentHeader");
    QHash<int, QHash<QString, double>> lines;
    for (const Row &line : rowsOf("AdjustmentDetail"))
        lines[line["AdjustmentID"].toLong()][line["PartNo"].toText()] += line["Qty"].toDouble();
    for (const Row &transfer : rowsOf("TransferHeader")) {
        const int from = transfer["FromID"].toLong(), to = transfer["ToID"].toLong();
        EXPECT_NE(headers[from]["Warehouse"], headers[to]["Warehouse"]);
        EXPECT_EQ(headers[from]["Date"], headers[to]["Date"]);
        ASSERT_EQ(lines[from].keys(), lines[to].keys());
        for (const QString &part : lines[to].keys()) {
            EXPECT_GT(lines[to][part], 0);
            EXPECT_EQ(lines[from][part], -lines[to][part]);
        }
    }
}

TEST_F(DemoTest, EveryGroupOfARebuildFitsIntoSixteenBits)
{
    rowsOf("Warehouse");
    const char *const statements[] = {
        "SELECT Warehouse,PartNo,SUM(Qty) AS Total FROM AdjustmentHeader LEFT JOIN AdjustmentDetail ON "
        "AdjustmentHeader.ID = AdjustmentDetail.AdjustmentID GROUP BY Warehouse,PartNo",
        "SELECT Orders.Warehouse, OrderItem.PartNo, SUM(OrderItem.Qty) AS Total FROM Orders LEFT JOIN OrderItem ON "
        "Orders.ID = OrderItem.OrderID GROUP BY Orders.Warehouse,OrderItem.PartNo",
        "SELECT Warehouse,PartNo,SUM(Qty) AS Total FROM ((TransferHeader LEFT JOIN AdjustmentHeader ON "
        "TransferHeader.FromID = AdjustmentHeader.ID) LEFT JOIN AdjustmentDetail ON AdjustmentHeader.ID = "
        "AdjustmentDetail.AdjustmentID) GROUP BY Warehouse,PartNo"};
    for (const char *statement : statements) {
        Recordset groups = m_database->OpenRecordset(statement);
        for (; !groups.Eof(); groups.MoveNext())
            EXPECT_LT(std::fabs(groups.Fields("Total").value().toDouble()), 32768);
    }
}

TEST_F(DemoTest, NamesNeedNoEscapingAndAFewCustomersHaveNoTerritoryOrShipTo)
{
    int withoutTerritory = 0, withoutShipTo = 0;
    for (const char *table : {"Customer", "Part", "Warehouse"}) {
        for (const Row &row : rowsOf(table)) {
            for (const Value &value : row)
                EXPECT_FALSE(value.joined().contains('\'')) << value.joined().toStdString();
            withoutTerritory += QString(table) == "Customer" && row["Territory"].isNull();
            withoutShipTo += QString(table) == "Customer" && row["ShipTo"].isNull();
        }
    }
    EXPECT_GT(withoutTerritory, 0);
    EXPECT_LE(withoutShipTo, int(rowsOf("Customer").size()) / 20);
}

TEST_F(DemoTest, EveryOrderSaysWhereItGoes)
{
    for (const Row &order : rowsOf("Orders"))
        for (const char *column : {"ShipTo", "ShipToAddress1", "ShipToCity", "ShipToState", "ShipToZip"})
            EXPECT_NE(order[column].joined(), "") << column << " of order " << order["ID"].joined().toStdString();
}

} // namespace
