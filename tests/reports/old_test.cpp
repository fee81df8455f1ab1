#include "reports/old.h"
#include "tests/reports/oldworkbooks.h"

namespace {

using OldReports = OldWorkbooks;

TEST_F(OldReports, StatementsReadWorkbooksOfEveryKind)
{
    write("ledger.xlsx", {{"No|Name|Address||City|Zip", "  C1 |Acme|1 First St||Akron|1234", "17||nowhere",
                           "C3|Baker|||Boise|'01234", "", "C9|Late"},
                          {"Receivables", "|Customer|Amount|Invoice|Status|Date",
                           "|C1|100.5|I-1|Open|2003-02-14T00:00:00Z", "|C1|50|I-2|Paid|2003-02-15T00:00:00Z",
                           "||5|I-3|Open|2003-02-16T00:00:00Z", "|17|12|1001||2003-03-01T12:00:00Z",
                           "|C1|5||Open|2003-03-02T00:00:00Z", "|C1|9|I-9|Open|2003-03-03T00:00:00Z"}});
    const QString fixtures = QString(TAMRICK_TEST_DATA) + "/reports/workbooks/";
    for (const QString &file : {path("ledger.xlsx"), fixtures + "ledger.xls", fixtures + "ledger.ods"}) {
        name({file, file, "", "", ""});
        Reports::ReportStatementsOld();
        EXPECT_EQ(database.rows("SELECT * FROM Invoice_Old"),
                  QStringList({"C1|I-1|100.5|2/14/2003", "17|1001|12|3/1/2003 12:00:00 PM"}))
            << file.toStdString();
        EXPECT_EQ(database.rows("SELECT * FROM Customer_Old"),
                  QStringList({"C1|Acme|1 First St||Akron|1234", "C3|Baker|||Boise|01234"}))
            << file.toStdString();
    }
    EXPECT_EQ(viewers(), 0);
}

TEST_F(OldReports, AMissingFileOrSheetEndsTheRun)
{
    addRow("Invoice_Old", {{"CustomerNo", "kept"}});
    write("one.xlsx", {{"No|Name", "C1|Acme"}});
    QFile text(path("text.xlsx"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly) && text.write("no workbook") > 0);
    text.close();
    expectRuntimeError(432, Reports::ReportStatementsOld); // no settings file
    for (const char *file : {"", "missing.xlsx", "missing.xls", "missing.ods", "text.xlsx", "book.wk1"}) {
        SCOPED_TRACE(file);
        name({*file ? path(file) : "", "", "", "", ""});
        expectRuntimeError(432, Reports::ReportStatementsOld);
    }
    EXPECT_EQ(database.count("Invoice_Old"), 1) << "nothing is deleted before the workbook is there";
    name({path("one.xlsx"), path("one.xlsx"), "", "", ""});
    expectRuntimeError(9, Reports::ReportStatementsOld);
    EXPECT_EQ(database.count("Invoice_Old"), 0);
    name({"one.xlsx"});
    expectRuntimeError(62, Reports::ReportStatementsOld);
}

TEST_F(OldReports, AvailabilityAddsUpOpeningsProductionTransfersAndSales)
{
    addRow("Inventory", {{"Part", "P-001"}, {"Warehouse", "DG699"}, {"Tran", "Beg Bal"}, {"Qty", 100}});
    addRow("Inventory", {{"Part", "P-001"}, {"Warehouse", "DG699"}, {"Tran", "Sold"}, {"Qty", -77}});
    write("made.xlsx", {{"Date|Stem|Size|Qty", "|P|SIZE001|10", "||x 002|3", "|P||1", "|||99", "|P|'001|99"}});
    write("moved.xlsx", {{"Date|Part|Qty|To", "|P-001|30|East", "|P-001|5 boxes| East "}});
    write("sold.xlsx", {{"1|2|3|4|Part|Qty|7|8|From", "||||P-001|4|||East"}});
    name({"", "", path("made.xlsx"), path("moved.xlsx"), path("sold.xlsx")});
    // "5 boxes" is no number where the quantity is stored as read, and ends the run there.
    expectRuntimeError(3421, Reports::ReportAvailInvOld);
    EXPECT_EQ(mdi->windowTitle(), "Tamrick Inventory Managment - 4");
    write("moved.xlsx", {{"Date|Part|Qty|To", "|P-001|30|East", "|P-001|7", "", "|P-001|99|East"}});
    const std::pair<void (*)(), const char *> routines[] = {
        {Reports::ReportAvailInvOld, "Available Inventory by Part"},
        {Reports::ReportAvailInv2Old, "Available Inventory by Warehouse"}};
    for (const auto &[routine, title] : routines) {
        routine();
        EXPECT_EQ(window()->windowTitle(), title);
        EXPECT_EQ(rows(), QStringList({"-002|DG699|3", "P-|DG699|1", "P-001|DG699|80", "P-001|East|26"}));
        EXPECT_EQ(mdi->windowTitle(), "Tamrick Inventory Managment - 4");
    }
    EXPECT_EQ(viewers(), 1) << "both use the one window";
    EXPECT_EQ(database.count("Inventory"), 7);
}

TEST_F(OldReports, TheRowCounterIsASixteenBitInteger)
{
    write("empty.xlsx", {{}});
    write("sold.xlsx", {QStringList(32768, "||||P")}); // no warehouse, so no rows are stored
    name({"", "", path("empty.xlsx"), path("empty.xlsx"), path("sold.xlsx")});
    expectRuntimeError(6, Reports::ReportAvailInvOld);
}

} // namespace
