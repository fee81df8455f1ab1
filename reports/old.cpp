#include "reports/old.h"
#include "data/values/numbers.h"
#include "data/workbook/paths.h"
#include "data/workbook/workbook.h"
#include "reports/handover.h"
#include "toolkit/controls/mousepointer.h"
#include "toolkit/forms/mainmod.h"
#include <QApplication>
#include <QWidget>

namespace {

/// The plant's warehouse: all production comes into it, all transfers leave it.
constexpr const char *PlantWarehouse = "DG699";

/// The rows of one sheet from the top. Where they end is for the loop over them to tell, from the cells just read.
class SheetRows
{
public:
    SheetRows(const Workbook &workbook, int sheet, qint16 firstRow)
        : m_workbook(workbook), m_sheet(sheet), m_row(firstRow)
    {
    }

    QString cell(int column) const { return m_workbook.text(m_sheet, m_row, column); }
    /// The row counter is a 16-bit integer: a sheet without an end mark is error 6 behind row 32767.
    void next() { m_row = CInt(m_row + 1.0); }
    qint16 row() const { return m_row; }

private:
    const Workbook &m_workbook;
    int m_sheet;
    qint16 m_row;
};

void addRow(Recordset &table, std::initializer_list<std::pair<const char *, Value>> fields)
{
    table.AddNew();
    for (const auto &[name, value] : fields)
        table.Fields(name) = value;
    table.Update();
}

/// The row that ends the data is read like any other and falls to the test behind it; a paid invoice is passed over,
/// one without a number ends everything.
void readInvoices(const QString &path)
{
    const Workbook workbook = Workbook::open(path);
    gDatabase->Execute("DELETE * FROM Invoice_Old");
    auto table = gDatabase->OpenRecordset("SELECT * FROM Invoice_Old");
    SheetRows rows(workbook, 2, 3);
    QString InvoiceNo = "temp";
    while (!InvoiceNo.isEmpty()) {
        const QString CustomerNo = rows.cell(2);
        InvoiceNo = rows.cell(4);
        const QString Amount = rows.cell(3);
        const QString Status = rows.cell(5);
        const QString Date = rows.cell(6);
        rows.next();
        if (Status != "Paid" && !CustomerNo.isEmpty() && !InvoiceNo.isEmpty())
            addRow(table, {{"CustomerNo", CustomerNo}, {"InvoiceNo", InvoiceNo}, {"Amount", Amount}, {"Date", Date}});
    }
    table.Close();
}

/// Ends at the first row without a customer number; one with a number and no name is passed over.
void readCustomers(const QString &path)
{
    const Workbook workbook = Workbook::open(path);
    gDatabase->Execute("DELETE * FROM Customer_Old");
    auto table = gDatabase->OpenRecordset("SELECT * FROM Customer_Old");
    SheetRows rows(workbook, 1, 2);
    QString CustomerNo = "temp";
    while (!CustomerNo.isEmpty()) {
        CustomerNo = rows.cell(1);
        const QString Customer = rows.cell(2);
        const QString Add1 = rows.cell(3);
        const QString Add2 = rows.cell(4);
        const QString City = rows.cell(5);
        const QString Zip = rows.cell(6);
        rows.next();
        if (!Customer.isEmpty())
            addRow(table, {{"CustomerNo", CustomerNo},
                           {"Customer", Customer},
                           {"Add1", Add1},
                           {"add2", Add2},
                           {"City", City},
                           {"Zip", Zip}});
    }
    table.Close();
}

/// The main window's caption is all that shows how far a run has come; it keeps the last row's number.
void showProgress(qint16 row)
{
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window->objectName() == "MDI")
            window->setWindowTitle("Tamrick Inventory Managment - " + QString::number(row));
    }
}

/// What a row of a stock workbook says; the quantity as it stands there.
struct StockRow
{
    QString Part, Warehouse, Qty;
};

void addMovement(Recordset &table, const QString &Part, const QString &Warehouse, const char *Tran, const Value &Qty)
{
    addRow(table, {{"Part", Part}, {"Warehouse", Warehouse}, {"Tran", Tran}, {"Qty", Qty}});
}

/// Goes through a stock workbook to the row whose part is `endMark`; what is read of a row and what comes of it is for
/// the two functions to tell. A row without a warehouse is passed over.
void readStock(const QString &path, const QString &endMark, StockRow (*readRow)(const SheetRows &),
               void (*add)(Recordset &, const StockRow &))
{
    const Workbook workbook = Workbook::open(path);
    auto table = gDatabase->OpenRecordset("SELECT * FROM Inventory");
    SheetRows rows(workbook, 1, 2);
    QString Part = "temp";
    while (Part != endMark) {
        const StockRow row = readRow(rows);
        Part = row.Part;
        rows.next();
        // The number of the row to come, as ever.
        showProgress(rows.row());
        if (Part != endMark && !row.Warehouse.isEmpty())
            add(table, row);
    }
    table.Close();
}

/// A row blank in both part cells reads as "-" and ends the production.
void readProduction(const QString &path)
{
    readStock(
        path, "-",
        [](const SheetRows &rows) {
            // Cells are read in this order, as the first one that holds an error value ends the run.
            const QString suffix = rows.cell(3);
            const QString Part = rows.cell(2) + "-" + suffix.right(3);
            return StockRow{Part, PlantWarehouse, rows.cell(4)};
        },
        [](Recordset &table, const StockRow &row) {
            addMovement(table, row.Part, row.Warehouse, "Production", row.Qty);
        });
}

void readTransfers(const QString &path)
{
    readStock(
        path, "",
        [](const SheetRows &rows) {
            return StockRow{rows.cell(2), rows.cell(4), rows.cell(3)};
        },
        [](Recordset &table, const StockRow &row) {
            // The one quantity goes in as the text it is, the other as its leading number: one that is no number fails
            // at the first.
            addMovement(table, row.Part, row.Warehouse, "Transfer", row.Qty);
            addMovement(table, row.Part, PlantWarehouse, "Transfer", Val(row.Qty) * -1);
        });
}

void readSold(const QString &path)
{
    readStock(
        path, "",
        [](const SheetRows &rows) {
            return StockRow{rows.cell(5), rows.cell(9), rows.cell(6)};
        },
        [](Recordset &table, const StockRow &row) {
            addMovement(table, row.Part, row.Warehouse, "Sold", Val(row.Qty) * -1);
        });
}

void reportInventory(const char *designer, const QString &title)
{
    HandOver handOver(HandOver::Pointer::Owned, HandOver::Output::SharedWindow);
    const WorkbookPaths paths = workbookPaths();
    // The opening balances came with the database and stay.
    gDatabase->Execute("DELETE * FROM Inventory WHERE Tran <> 'Beg Bal'");
    readProduction(paths.ProductionWorkbookPath);
    readTransfers(paths.TransferWorkbookPath);
    readSold(paths.SoldWorkbookPath);
    handOver.read(designer, gDatabase->OpenRecordset("SELECT Part,Warehouse,Sum(qty) AS AvailQty From Inventory Group "
                                                     "By Part, Warehouse"));
    handOver.deliver(title);
}

} // namespace

/// Shows nothing, whatever its name says: all that comes of it are the two tables.
void Reports::ReportStatementsOld()
{
    const Hourglass hourglass;
    const WorkbookPaths paths = workbookPaths();
    readInvoices(paths.InvoiceWorkbookPath);
    readCustomers(paths.CustomerWorkbookPath);
    // The rows of the old statement; no layout takes them.
    auto statements = gDatabase->OpenRecordset(
        "SELECT Customer_Old.CustomerNo,Customer_Old.Customer, Customer_Old.Add1, Customer_Old.Add2, "
        "Customer_Old.City, Customer_Old.Zip, Invoice_Old.InvoiceNo, Invoice_Old.Amount, Invoice_Old.Date FROM "
        "Invoice_Old LEFT JOIN Customer_Old ON Invoice_Old.CustomerNo = Customer_Old.CustomerNo ORDER BY "
        "Customer_Old.Customer,Invoice_Old.InvoiceNo");
    statements.Close();
}

void Reports::ReportAvailInvOld()
{
    reportInventory("crptAvailInv", "Available Inventory by Part");
}

void Reports::ReportAvailInv2Old()
{
    reportInventory("crptAvailInv2", "Available Inventory by Warehouse");
}
