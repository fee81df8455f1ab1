#include "reportengine/output/printing.h"
#include "reportengine/rows/rowstore.h"
#include "reports/operational.h"
#include "tests/reports/reporttest.h"

namespace {

/// Two orders with the same line numbers; the first has two shipments.
class Documents : public ReportTest
{
protected:
    Documents()
    {
        database.execute("UPDATE Part SET Category = 'Wheels',BinLocation = 'R1' WHERE PartNo = 'AX-100'");
        order = addOrder("A-1", "Acme Rail", {{"CX-300", 10, 5}, {"BR-200", 4, 20.5}, {"AX-100", 2, 9.25}});
        first = addShipment(order, {6, 0, 2}, Date(2010, 3, 1), 12.5, -2);
        second = addShipment(order, {0, 4}, Date(2010, 3, 9), 0.005);
        const QString other = addOrder("B-1", "Birch Mill", {{"AX-100", 7, 10}}, "Open", "North");
        foreign = addShipment(other, {7});
    }

    QString order, first, second, foreign;
};

TEST_F(Documents, ListTheirLinesInTheirOwnOrder)
{
    Reports::PrintPickTicket(order); // by category and part
    EXPECT_EQ(rows(14, 18), QStringList({"2|4|BR-200|Brackets|", "1|10|CX-300|Brackets|", "3|2|AX-100|Wheels|R1"}));
    Reports::PrintPackingSlip(first, true); // what was shipped, by line
    EXPECT_EQ(rows(15, 20), QStringList({first + "|3/1/2010|1|10|6|CX-300", first + "|3/1/2010|3|2|2|AX-100"}));
    expectRuntimeError(3075, [] { Reports::PrintPickTicket(""); });
    expectRuntimeError(3075, [] { Reports::PrintPackingSlip("", true); });
}

TEST_F(Documents, AnInvoiceTotalsWhatItsShipmentsAreWorthToday)
{
    const struct
    {
        const char *before;
        QString shipments;
        const char *total;
        int rows;
    } cases[] = {
        // 30 + 18.5 + 82 of lines, 12.505 freight, -2 adjustment: the half cent goes to the even one
        {"UPDATE Orders SET Total = 0", first + ", " + second, "$141.00", 3},
        {"UPDATE OrderItem SET PriceEach = 1000 WHERE PartNo = 'CX-300'", first + ", " + second, "$6,111.00", 3},
        {"DELETE * FROM ShipmentItems", first, "$10.50", 0},
    };
    for (const auto &c : cases) {
        database.execute(c.before);
        EXPECT_EQ(Reports::PrintInvoice(c.shipments, "77", "3/10/2010", "4/9/2010", "Net 30", true), c.total);
        EXPECT_EQ(shown("txtInvoiceNumber txtInvoiceDate txtTerms txtTotal"),
                  QString("77|3/10/2010|Net 30|") + c.total);
        EXPECT_EQ(rows().size(), c.rows);
    }
    expectRuntimeError(94, [] { Reports::PrintInvoice("999", "1", "", "", "", true); }); // of no shipment
    EXPECT_EQ(viewers(), 3) << "each run has a window of its own, but none that fails";
}

TEST_F(Documents, WithoutPreviewTwoCopiesArePrintedAndNoWindowOpens)
{
    QStringList printed;
    setPrintDestination([&](Report &report, int copies) {
        printed += QString("%1 of %2 rows").arg(copies).arg(report.rows().rowCount());
        return printed.size() < 3;
    });
    Reports::PrintPackingSlip(first, false);
    EXPECT_EQ(Reports::PrintInvoice(second, "5", "3/9/2010", "", "Net 30", false), "$82.00");
    expectRuntimeError(482, [&] { Reports::PrintPackingSlip(foreign, false); });
    setPrintDestination({});
    EXPECT_EQ(printed, QStringList({"2 of 2 rows", "2 of 1 rows", "2 of 1 rows"}));
    EXPECT_EQ(viewers(), 0);
}

} // namespace
