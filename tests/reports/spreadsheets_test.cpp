// The forms made for spreadsheets, as a spreadsheet reads them.

#include "data/workbook/workbook.h"
#include "reportengine/viewer/crviewer.h"
#include "reportengine/viewer/viewer.h"
#include "reports/inventoryregisters.h"
#include "reports/sales.h"
#include "tests/reports/reporttest.h"

namespace {

class Spreadsheets : public ReportTest
{
protected:
    Spreadsheets()
    {
        for (const char *part : {"00123", "1E5", "=1+1"})
            insert("Part", {{"PartNo", part}, {"Cost", 2.5}, {"Category", "Odd"}});
        insert("Customer", {{"Customer", "Acme"}});
    }

    /// The lines of the export of what was shown last, cells with "|" between them.
    QStringList exported(int columns) const
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath("r.xlsx");
        EXPECT_TRUE(static_cast<Viewer *>(shown.last())->viewer()->exportTo(path));
        const Workbook book = Workbook::open(path);
        QStringList lines;
        for (int row = 1; !book.text(1, row, 1).isEmpty(); ++row) {
            QStringList cells;
            for (int column = 1; column <= columns; ++column)
                cells += book.text(1, row, column);
            lines += cells.join('|');
        }
        return lines;
    }
};

TEST_F(Spreadsheets, TheStockRegisterHasALinePerWarehouseAndPart)
{
    addAdjustment("Main", "12/1/2009", "00123", 7);
    addAdjustment("Main", "2/1/2010", "00123", 5);
    addAdjustment("Main", "2/2/2010", "00123", -2);
    addAdjustment("Main", "2/1/2010", "1E5", 1);
    addAdjustment("East", "2/1/2010", "=1+1", 4);
    Reports::ReportAvailableInventoryExport("1/1/2010", "12/31/2010", false, "Odd");
    EXPECT_EQ(exported(8),
              QStringList({"Warehouse|Part No.|Beginning|In|Out|Balance|Cost|Value", "East|=1+1|0|4|0|4|2.5|10",
                           "Main|00123|7|5|2|10|2.5|25", "Main|1E5|0|1|0|1|2.5|2.5"}));
    Reports::ReportAvailableInventoryExport("1/1/2010", "12/31/2010", true, "Odd");
    EXPECT_EQ(exported(7).mid(0, 3), QStringList({"Warehouse|Part No.|Date|Movement|Qty|Cost|Value",
                                                  "East|=1+1|2/1/2010|Adjustment ID - 5|4|2.5|10",
                                                  "Main|00123|1/1/2010|Beginning balance|7|2.5|17.5"}));
}

TEST_F(Spreadsheets, SalesHaveALinePerShippedLine)
{
    const int order = addOrder("Acme", "Main");
    addLine(order, 1, "00123", 4, 10);
    addLine(order, 2, "1E5", 4, 10);
    const int shipment = addShipment(order, "2/1/2010", true);
    ship(shipment, order, 1, 4);
    ship(shipment, order, 2, 3);
    addInvoice("Acme", "2/3/2010", QString::number(shipment), 70);
    Reports::ReportSalesByWhsePartExport("1/1/2010", "12/31/2010");
    EXPECT_EQ(exported(10), QStringList({"Warehouse|Part No.|Customer|Shipment|Shipped|Qty|Sales|Cost|Margin|Margin %",
                                         "Main|00123|Acme|1|2/1/2010|4|40|10|30|0.75",
                                         "Main|1E5|Acme|1|2/1/2010|3|30|7.5|22.5|0.75"}));
}

} // namespace
