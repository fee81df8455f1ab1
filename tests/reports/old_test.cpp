#include "reports/old.h"
#include "tests/reports/reporttest.h"
#include "tests/reports/xlsxfile.h"
#include <QFile>

namespace {

using Sheet = XlsxFile::Sheet;
constexpr std::monostate Blank{};

const Sheet Customers{{"No", "Name", "Address", "", "City", "Zip"},
                      {"  C1 ", "Acme", "1 First St", Blank, "Akron", 1234.0},
                      {17.0, Blank, "nowhere"},
                      {"C3", "Baker", Blank, Blank, "Boise", "01234"},
                      {},
                      {"C9", "Late"}};
const Sheet Invoices{{"Receivables"},
                     {Blank, "Customer", "Amount", "Invoice", "Status", "Date"},
                     {Blank, "C1", 100.5, "I-1", "Open", lxw_datetime{2003, 2, 14, 0, 0, 0}},
                     {Blank, "C1", 50.0, "I-2", "Paid", lxw_datetime{2003, 2, 15, 0, 0, 0}},
                     {Blank, Blank, 5.0, "I-3", "Open", lxw_datetime{2003, 2, 16, 0, 0, 0}},
                     {Blank, 17.0, 12.0, 1001.0, Blank, lxw_datetime{2003, 3, 1, 12, 0, 0}},
                     {Blank, "C1", 5.0, Blank, "Open", lxw_datetime{2003, 3, 2, 0, 0, 0}},
                     {Blank, "C1", 9.0, "I-9", "Open", lxw_datetime{2003, 3, 3, 0, 0, 0}}};

class OldReports : public ReportTest
{
protected:
    ~OldReports() override { QFile::remove(settingsFile()); }

    QString settingsFile() const { return program.filePath("workbooks.txt"); }
    QString path(const QString &file) const { return folder.filePath(file); }

    /// Writes `workbooks.txt` with five paths.
    void name(const QStringList &paths) const
    {
        QFile file(settingsFile());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        for (const QString &path : paths)
            file.write(("Workbook, " + path + "\n").toUtf8());
    }

    ProgramFolder program;
    QTemporaryDir folder;
};

TEST_F(OldReports, StatementsReadWorkbooksOfEveryKind)
{
    XlsxFile::write(path("ledger.xlsx"), {Customers, Invoices});
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
    EXPECT_TRUE(shown.isEmpty());
}

TEST_F(OldReports, AMissingFileOrSheetEndsTheRun)
{
    insert("Invoice_Old", {{"CustomerNo", "kept"}});
    XlsxFile::write(path("one.xlsx"), {Customers});
    QFile text(path("text.xlsx"));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly) && text.write("no workbook") > 0);
    text.close();
    EXPECT_EQ(errorNumberOf(Reports::ReportStatementsOld), 432) << "no settings file";
    for (const QString &file : {QString(), path("missing.xlsx"), path("missing.xls"), path("missing.ods"),
                                path("text.xlsx"), path("book.wk1")}) {
        name({file, "", "", "", ""});
        EXPECT_EQ(errorNumberOf(Reports::ReportStatementsOld), 432) << file.toStdString();
    }
    EXPECT_EQ(database.count("Invoice_Old"), 1) << "nothing is deleted before the workbook is there";
    name({path("one.xlsx"), path("one.xlsx"), "", "", ""});
    EXPECT_EQ(errorNumberOf(Reports::ReportStatementsOld), 9);
    EXPECT_EQ(database.count("Invoice_Old"), 0);
    name({"one.xlsx"});
    EXPECT_EQ(errorNumberOf(Reports::ReportStatementsOld), 62);
}

TEST_F(OldReports, AvailabilityAddsUpOpeningsProductionTransfersAndSales)
{
    insert("Inventory", {{"Part", "P-001"}, {"Warehouse", "DG699"}, {"Tran", "Beg Bal"}, {"Qty", 100}});
    insert("Inventory", {{"Part", "P-001"}, {"Warehouse", "DG699"}, {"Tran", "Sold"}, {"Qty", -77}});
    XlsxFile::write(path("made.xlsx"), {{{"Date", "Stem", "Size", "Qty"},
                                         {Blank, "P", "SIZE001", 10.0},
                                         {Blank, Blank, "x 002", 3.0},
                                         {Blank, "P", Blank, 1.0},
                                         {Blank, Blank, Blank, 99.0},
                                         {Blank, "P", "001", 99.0}}});
    XlsxFile::write(path("moved.xlsx"), {{{"Date", "Part", "Qty", "To"},
                                          {Blank, "P-001", 30.0, "East"},
                                          {Blank, "P-001", "5 boxes", " East "},
                                          {Blank, "P-001", 7.0, Blank},
                                          {},
                                          {Blank, "P-001", 99.0, "East"}}});
    XlsxFile::write(path("sold.xlsx"), {{{"1", "2", "3", "4", "Part", "Qty", "7", "8", "From"},
                                         {Blank, Blank, Blank, Blank, "P-001", 4.0, Blank, Blank, "East"}}});
    name({"", "", path("made.xlsx"), path("moved.xlsx"), path("sold.xlsx")});
    QWidget mainWindow;
    mainWindow.setObjectName("MDI");
    // "5 boxes" is no number where the quantity is stored as read, and ends the run there.
    EXPECT_EQ(errorNumberOf(Reports::ReportAvailInvOld), 3421);
    EXPECT_EQ(mainWindow.windowTitle(), "Tamrick Inventory Managment - 4");
    XlsxFile::write(path("moved.xlsx"), {{{"Date", "Part", "Qty", "To"},
                                          {Blank, "P-001", 30.0, "East"},
                                          {Blank, "P-001", 7.0, Blank},
                                          {},
                                          {Blank, "P-001", 99.0, "East"}}});
    const QStringList expected{"-002|DG699|3", "P-|DG699|1", "P-001|DG699|80", "P-001|East|26"};
    for (const auto routine : {Reports::ReportAvailInvOld, Reports::ReportAvailInv2Old}) {
        routine();
        EXPECT_EQ(rows(), expected);
        EXPECT_EQ(mainWindow.windowTitle(), "Tamrick Inventory Managment - 4");
    }
    EXPECT_EQ(shown.size(), 1) << "both use the one window";
    EXPECT_EQ(database.count("Inventory"), 7);
}

TEST_F(OldReports, TheRowCounterIsASixteenBitInteger)
{
    Sheet endless(32768, {Blank, Blank, Blank, Blank, "P"}); // no warehouse, so no rows are stored
    XlsxFile::write(path("sold.xlsx"), {endless});
    XlsxFile::write(path("empty.xlsx"), {{}});
    name({"", "", path("empty.xlsx"), path("empty.xlsx"), path("sold.xlsx")});
    EXPECT_EQ(errorNumberOf(Reports::ReportAvailInvOld), 6);
}

} // namespace
