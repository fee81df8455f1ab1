#include "reports/old.h"
#include "app/toolkit/mainmod.h"
#include "app/toolkit/mousepointer.h"
#include "data/values/conversions.h"
#include "reports/handover.h"
#include "reports/workbook/paths.h"
#include "reports/workbook/workbook.h"
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

Recordset openInventory()
{
    return gDatabase->OpenRecordset("SELECT * FROM Inventory");
}

void addMovement(Recordset &table, const QString &Part, const QString &Warehouse, const char *Tran, const Value &Qty)
{
    addRow(table, {{"Part", Part}, {"Warehouse", Warehouse}, {"Tran", Tran}, {"Qty", Qty}});
}

/// A row blank in both part cells reads as "-" and ends the production.
void readProduction(const QString &path)
{
    const Workbook workbook = Workbook::open(path);
    auto table = openInventory();
    SheetRows rows(workbook, 1, 2);
    QString Part = "temp";
    while (Part != "-") {
        const QString suffix = rows.cell(3);
        Part = rows.cell(2) + "-" + suffix.right(3);
        const QString Qty = rows.cell(4);
        rows.next();
        showProgress(rows.row());
        if (Part != "-")
            addMovement(table, Part, PlantWarehouse, "Production", Qty);
    }
    table.Close();
}

void readTransfers(const QString &path)
{
    const Workbook workbook = Workbook::open(path);
    auto table = openInventory();
    SheetRows rows(workbook, 1, 2);
    QString Part = "temp";
    while (!Part.isEmpty()) {
        Part = rows.cell(2);
        const QString Warehouse = rows.cell(4);
        const QString Qty = rows.cell(3);
        rows.next();
        showProgress(rows.row());
        if (!Part.isEmpty() && !Warehouse.isEmpty()) {
            addMovement(table, Part, Warehouse, "Transfer", Qty);
            addMovement(table, Part, PlantWarehouse, "Transfer", Val(Qty) * -1);
        }
    }
    table.Close();
}

void readSold(const QString &path)
{
    const Workbook workbook = Workbook::open(path);
    auto table = openInventory();
    SheetRows rows(workbook, 1, 2);
    QString Part = "temp";
    while (!Part.isEmpty()) {
        Part = rows.cell(5);
        const QString Warehouse = rows.cell(9);
        const QString Qty = rows.cell(6);
        rows.next();
        showProgress(rows.row());
        if (!Part.isEmpty() && !Warehouse.isEmpty())
            addMovement(table, Part, Warehouse, "Sold", Val(Qty) * -1);
    }
    table.Close();
}

void reportInventory(const char *designer)
{
    HandOver handOver(HandOver::Pointer::Owned, HandOver::Output::SharedWindow);
    const WorkbookPaths paths = workbookPaths();
    gDatabase->Execute("DELETE * FROM Inventory WHERE Tran <> 'Beg Bal'");
    readProduction(paths.ProductionWorkbookPath);
    readTransfers(paths.TransferWorkbookPath);
    readSold(paths.SoldWorkbookPath);
    handOver.read(designer, gDatabase->OpenRecordset("SELECT Part,Warehouse,Sum(qty) AS AvailQty From Inventory Group "
                                                     "By Part, Warehouse"));
    handOver.deliver();
}

} // namespace

void Reports::ReportStatementsOld()
{
    setHourglass();
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
    setDefaultPointer();
}

void Reports::ReportAvailInvOld()
{
    reportInventory("crptAvailInv");
}

void Reports::ReportAvailInv2Old()
{
    reportInventory("crptAvailInv2");
}
