#include "tests/tools/toolstest.h"

namespace {

class LoadTest : public ToolsTest
{
protected:
    LoadTest() { done({"create", path("c.db")}); }

    QStringList loading(const QString &table, const QByteArray &csv)
    {
        return {"load", path("c.db"), table, fileWith("c.csv", csv)};
    }
};

TEST_F(LoadTest, TakesEveryTypeAsTextAndGivesItBack)
{
    open(path("c.db"))->Execute("CREATE TABLE tmpCustomerRegister (TranDate Datetime, ID text(50), Amount money)");
    const struct
    {
        const char *table, *csv;
        int count;
        const char *rows;
    } cases[] = {
        {"PriceSheet", "PriceSheet,Part,Price\nOEM,P1,12.5\nOEM,P2,\"$1,234.50\"\n", 2, "OEM,P1,12.5\nOEM,P2,1234.5\n"},
        {"FebInventory", "Part,Qty\nP1,-7\n", 1, "P1,-7\n"},
        {"tmpInventoryRegister",
         "Warehouse,PartNo,Date,Qty,Cost,Memo\nA,B,3/30/2011,5,0.30000000000000004,x\nA,B,2011-03-30 14:05:09,,,\n", 2,
         "A,B,2011-03-30,5,0.30000000000000004,x\nA,B,2011-03-30 14:05:09,,,\n"},
        {"invoice_old", "InvoiceNo , Date\r\n\"7\",2011-03-30\r\n", 1, ",7,0,2011-03-30\n"},
        {"Customer_Old", "Customer,Add1,City\n\"Smith, \"\"Bo\"\"\",\"two\nlines\",\"\"\n", 1,
         ",\"Smith, \"\"Bo\"\"\",\"two\nlines\",,\"\",\n"},
        {"tmpTransferHeaderIDs", "ID\n\n1\n\n2", 2, "1\n2\n"},
        {"AvailInv", "\xEF\xBB\xBFWhse,Part,Avail\nM\xC3\xBCnchen,P1,3\n", 1, "M\xC3\xBCnchen,P1,3\n"},
        {"Shipment", "ID,Date,Invoiced\n7,2011-03-30,True\n,2011-03-31,0\n", 2,
         "7,0,2011-03-30,,0,0,True,\n8,0,2011-03-31,,0,0,False,\n"},
        {"tmpCustomerRegister", "TranDate,ID,Amount\n2011-03-30,7,1.23456\n", 1, "2011-03-30,7,1.2346\n"},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.table);
        EXPECT_EQ(done(loading(row.table, row.csv)),
                  QString("%1 row%2 loaded into %3\n").arg(row.count).arg(row.count == 1 ? "" : "s").arg(row.table));
        EXPECT_EQ(rowsOf(path("c.db"), row.table), QString::fromUtf8(row.rows));
    }
}

TEST_F(LoadTest, NamesLineAndColumnOfWhatItCannotTakeAndLoadsNothing)
{
    const QByteArray tooLong = "PartNo\ngood\n" + QByteArray(51, 'x') + '\n';
    const struct
    {
        const char *table;
        QByteArray csv;
        const char *says;
    } rows[] = {
        {"Customer", "Customer,Days\ngood,30\nbad,soon\n",
         "line 3, column 'Days': 'soon' is no whole number of 32 bits"},
        {"Customer", "Customer,Days\ngood,30\nbad,\"\"\n", "line 3, column 'Days': '' is no whole number of 32 bits"},
        {"Customer", "Customer,DateAdded\n\"two\nlines\",2011-03-30\nbad,2/29/2011\n",
         "line 4, column 'DateAdded': '2/29/2011' is no date"},
        {"Customer", "Customer,PrintStatements\nbad,perhaps\n",
         "line 2, column 'PrintStatements': 'perhaps' is neither True nor False"},
        {"Part", "PartNo,Cost\nbad,5%\n", "line 2, column 'Cost': '5%' is no number"},
        {"Part", tooLong, "line 3, column 'PartNo': longer than 50 characters"},
        {"ShipmentItems", "Qty\n2.5\n", "line 2, column 'Qty': '2.5' is no whole number of 32 bits"},
        {"ShipmentItems", "Qty\n99999999999\n", "line 2, column 'Qty': '99999999999' is no whole number of 32 bits"},
        {"Orders", "ID,Status\n5,Open\n5,Void\n", "line 3, column 'ID': 5 is taken already"},
        {"Part", "PartNo,Colour\nP1,red\n", "line 1, column 'Colour': no such column in Part"},
        {"Part", "PartNo,PARTNO\nP1,P1\n", "line 1, column 'PARTNO': named twice"},
        {"Part", "PartNo,Cost\nP1,1\nP2\n", "line 3, column 'Cost': missing, the line ends before it"},
        {"Part", "PartNo,Cost\nP1,1,2\n", "line 2, field 3: more fields than columns"},
        {"Part", "PartNo,Cost\nP1,1\n\"P2,2\n", "line 3, field 1: a quotation mark is never closed"},
        {"Part", "PartNo,Cost\n\"P2\"x,2\n", "line 2, field 1: text behind a closing quotation mark"},
        {"Part", "PartNo,Category\nP1,caf\xE9\n", "line 2, field 2: the text is not UTF-8"},
        {"Part", QByteArray("PartNo\nA\0B\n", 11), "line 2, field 1: a zero byte in the text"},
        {"Part", "PartNo,Cost\nP1,\"y\nz\"\n", "line 2, column 'Cost': 'y z' is no number"},
        {"Part", "Cost\n" + QByteArray(5000, 'x'),
         "line 2, column 'Cost': 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx...' is no number"},
        {"Part", "", "line 1: no column names"},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(refusal(loading(row.table, row.csv)), "'" + path("c.csv") + "' " + row.says);
        EXPECT_EQ(rowsOf(path("c.db"), row.table), "") << row.says;
    }
}

TEST_F(LoadTest, AnExportedDatabaseLoadsIntoAnotherWithoutALoss)
{
    makeDemo(path("demo.db"));
    const auto demo = open(path("demo.db"));
    for (const TableDef &table : demo->TableDefs()) {
        const QString original = done({"export", path("demo.db"), table.Name});
        done(loading(table.Name, original.toUtf8()));
        EXPECT_TRUE(done({"export", path("c.db"), table.Name}) == original) << table.Name.toStdString();
    }
}

} // namespace
