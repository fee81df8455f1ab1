#include "reportengine/output/printing.h"
#include "reportengine/rows/rowstore.h"
#include "reports/operational.h"
#include "tests/reports/reporttest.h"
#include <QGuiApplication>

namespace {

/// Two orders with the same line numbers; the first has two shipments.
class Documents : public ReportTest
{
protected:
    Documents()
    {
        order = addOrder("Acme Supply", "Main");
        addLine(order, 1, "B-100", 10, 5);
        addLine(order, 2, "A-200", 4, 20.5);
        addLine(order, 3, "A-100", 2, 9.25);
        const int other = addOrder("Baker Tools", "East");
        addLine(other, 1, "A-100", 7, 10);
        first = addShipment(order, "3/1/2010", false, 12.5, -2);
        ship(first, order, 1, 6);
        ship(first, order, 3, 2);
        second = addShipment(order, "3/9/2010", false, 0.005);
        ship(second, order, 2, 4);
        foreign = addShipment(other, "3/2/2010", false);
        ship(foreign, other, 1, 7);
    }

    QStringList columns(int from, int to) const
    {
        QStringList result;
        for (const QString &row : rows())
            result += row.section('|', from, to);
        return result;
    }

    int order, first, second, foreign;
};

TEST_F(Documents, ListTheirLinesInTheirOwnOrder)
{
    Reports::PrintPickTicket(QString::number(order)); // by category and part
    EXPECT_EQ(columns(14, 18), QStringList({"3|2|A-100|Pumps|R1", "2|4|A-200|Pumps|R2", "1|10|B-100|Valves|S1"}));
    EXPECT_FALSE(QGuiApplication::overrideCursor());
    Reports::PrintPackingSlip(QString::number(first), true); // what was shipped, by line
    const QString id = QString::number(first);
    EXPECT_EQ(columns(15, 20), QStringList({id + "|3/1/2010|1|10|6|B-100", id + "|3/1/2010|3|2|2|A-100"}));
}

TEST_F(Documents, AnInvoiceRecomputesItsTotal)
{
    const QString ids = QString("%1, %2").arg(first).arg(second);
    // 30 + 18.5 + 82 of lines, 12.505 freight, -2 adjustment: the half cent goes to the even one
    EXPECT_EQ(Reports::PrintInvoice(ids, "77", "3/10/2010", "4/9/2010", "Net 30", true), "$141.00");
    EXPECT_EQ(textOf("txtInvoiceNumber"), "77");
    EXPECT_EQ(textOf("txtInvoiceDate"), "3/10/2010");
    EXPECT_EQ(textOf("txtTerms"), "Net 30");
    EXPECT_EQ(textOf("txtTotal"), "$141.00");
    EXPECT_EQ(rows().size(), 3);

    database.execute("UPDATE OrderItem SET PriceEach = 1000 WHERE PartNo = 'B-100'");
    EXPECT_EQ(Reports::PrintInvoice(ids, "77", "3/10/2010", "4/9/2010", "Net 30", true), "$6,111.00");
    EXPECT_EQ(shown.size(), 2) << "each run has a window of its own";
}

TEST_F(Documents, WithoutLinesOrShipmentsShowWhatThereIsOrFail)
{
    database.execute("DELETE * FROM ShipmentItems");
    EXPECT_EQ(Reports::PrintInvoice(QString::number(first), "1", "", "", "", true), "$10.50");
    EXPECT_EQ(rows(), QStringList());
    EXPECT_EQ(errorNumberOf([] { Reports::PrintInvoice("999", "1", "", "", "", true); }), 94);
    EXPECT_EQ(errorNumberOf([] { Reports::PrintPickTicket(""); }), 3075);
    EXPECT_EQ(errorNumberOf([] { Reports::PrintPackingSlip("", true); }), 3075);
    EXPECT_EQ(shown.size(), 1);
}

TEST_F(Documents, WithoutPreviewTwoCopiesArePrintedAndNoWindowOpens)
{
    QStringList printed;
    setPrintDestination([&](Report &report, int copies) {
        printed += QString("%1 of %2 rows").arg(copies).arg(report.rows().rowCount());
        return printed.size() < 3;
    });
    Reports::PrintPackingSlip(QString::number(first), false);
    EXPECT_FALSE(QGuiApplication::overrideCursor());
    EXPECT_EQ(Reports::PrintInvoice(QString::number(second), "5", "3/9/2010", "", "Net 30", false), "$82.00");
    EXPECT_EQ(errorNumberOf([&] { Reports::PrintPackingSlip(QString::number(foreign), false); }), 482);
    setPrintDestination({});
    EXPECT_EQ(printed, QStringList({"2 of 2 rows", "2 of 1 rows", "2 of 1 rows"}));
    EXPECT_TRUE(shown.isEmpty());
}

} // namespace
