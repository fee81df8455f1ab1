// The forms made for spreadsheets, as a spreadsheet reads them.

#include "reports/inventoryregisters.h"
#include "reports/sales.h"
#include "tests/reports/reporttest.h"
#include "tests/support/xlsxfile.h"
#include <QTemporaryDir>

namespace {

TEST_F(ReportTest, FormsForSpreadsheetsHaveALineARow)
{
    for (const char *part : {"00123", "1E5", "=1+1"})
        addRow("Part", {{"PartNo", part}, {"Cost", 2.5}, {"Category", "Odd"}});
    addAdjustment("Main", "12/1/2009", "00123", 7);
    addAdjustment("Main", "2/1/2010", "00123", 5);
    addAdjustment("Main", "2/2/2010", "00123", -2);
    addAdjustment("Main", "2/1/2010", "1E5", 1);
    addAdjustment("East", "2/1/2010", "=1+1", 4);
    const QString order = addOrder("A-1", "Acme", {{"00123", 4, 10}, {"1E5", 4, 10}});
    addInvoice("Acme", "3/3/2010", addShipment(order, {4, 3}, Date(2010, 3, 1)), 70);
    const struct
    {
        std::function<void()> routine;
        int columns;
        QStringList lines; ///< from the top
    } cases[] = {
        {[] { Reports::ReportAvailableInventoryExport("1/1/2010", "2/28/2010", false, "Odd"); },
         8,
         {"Warehouse|Part No.|Beginning|In|Out|Balance|Cost|Value", "East|=1+1|0|4|0|4|2.5|10",
          "Main|00123|7|5|2|10|2.5|25", "Main|1E5|0|1|0|1|2.5|2.5", "|||||||"}},
        {[] { Reports::ReportAvailableInventoryExport("1/1/2010", "2/28/2010", true, "Odd"); },
         7,
         {"Warehouse|Part No.|Date|Movement|Qty|Cost|Value", "East|=1+1|2/1/2010|Adjustment ID - 5|4|2.5|10",
          "Main|00123|1/1/2010|Beginning balance|7|2.5|17.5"}},
        {[] { Reports::ReportSalesByWhsePartExport("1/1/2010", "12/31/2010"); },
         10,
         {"Warehouse|Part No.|Customer|Shipment|Shipped|Qty|Sales|Cost|Margin|Margin %",
          "Main|00123|Acme|1|3/1/2010|4|40|10|30|0.75", "Main|1E5|Acme|1|3/1/2010|3|30|7.5|22.5|0.75", "|||||||||"}},
    };
    const QTemporaryDir folder;
    for (const auto &c : cases) {
        c.routine();
        ASSERT_TRUE(window()->viewer()->exportTo(folder.filePath("r.xlsx")));
        EXPECT_EQ(linesOf(folder.filePath("r.xlsx"), c.columns, c.lines.size()), c.lines);
    }
}

} // namespace
