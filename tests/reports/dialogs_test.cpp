#include "reportengine/report.h"
#include "reportengine/rows/rowstore.h"
#include "reportengine/viewer/crviewer.h"
#include "reportengine/viewer/viewer.h"
#include "reports/layouts/catalogue.h"
#include "tests/reports/reporttest.h"
#include "tests/support/company.h"
#include "toolkit/forms/mainmod.h"
#include <QGuiApplication>

namespace {

class Dialogs : public DeskTest
{
protected:
    QList<Viewer *> viewers() const { return mdi->findChildren<Viewer *>(); }
    const Report &report() const { return *viewers().last()->viewer()->reportSource(); }
    QString parameter(const QString &name) const
    {
        for (const TextParameter &parameter : report().layout().parameters) {
            if (parameter.name == name)
                return parameter.text;
        }
        return "no such text";
    }
    TestClock clock{"2010-05-15 09:30:00"};
};

TEST_F(Dialogs, ADateRangeGoesToItsReportAsPicked)
{
    const struct
    {
        const char *form, *button, *title, *window;
    } dialogs[] = {
        {"frmSalesByCustomer", "btnOK", "crptSalesByCustomer", "Sales By Customer"},
        {"frmSalesByCategoryCustomer", "btnOK", "crptSalesByCategoryCustomer", "Sales By Category"},
        {"frmSalesByTerritoryCustomer", "btnOK", "crptSalesByTerritoryCustomer", "Sales By Territory"},
        {"frmSalesByPart", "btnOK", "crptSalesByPart", "Sales By Part"},
        {"frmSalesByWhsePart", "btnOK", "crptSalesByWhsePart", "Sales By Whse/Part"},
        {"frmInventorySalesReport", "btnOK", "crptInventorySalesReport", "Inventory Sales Report"},
        {"frmARTranReport", "btnOK", "crptARTranReport", "Invoice Register"},
        {"frmCashReceiptsReport", "btnOK", "crptCashReceiptsReport", "Cash Receipts Register"},
        {"frmAvailableInventory", "btnOk", "crptAvailableInventory", "Available Inventory By Whse/Part"},
        {"frmAvailableInventoryByPart", "btnOk", "crptAvailableInventoryByPart", "Available Inventory By Part/Whse"}};
    for (const auto &dialog : dialogs) {
        FormDriver form(dialog.form);
        form.setDate("dtStart", "4/30/2010");
        form.setDate("dtEnd", "3/1/2010");
        form.click(dialog.button);
        EXPECT_EQ(viewers().last()->windowTitle(), QString(dialog.window) + ", 4/30/2010 to 3/1/2010");
        EXPECT_EQ(parameter("txtBeginDate"), "4/30/2010") << dialog.form;
        EXPECT_EQ(parameter("txtEndDate"), "3/1/2010") << dialog.form;
        EXPECT_EQ(report().layout().title, newReport(dialog.title).layout().title);
        EXPECT_FALSE(form.isLoaded());
        EXPECT_FALSE(QGuiApplication::overrideCursor());
    }
    EXPECT_EQ(viewers().size(), int(std::size(dialogs)));
}

TEST_F(Dialogs, TheStatementDialogsRunTheirReports)
{
    FormDriver statements("frmStatementReport");
    statements.setDate("dtDate", "4/30/2010");
    statements.click("btnOk");
    EXPECT_EQ(parameter("txtAsOfDate"), "4/30/2010");
    EXPECT_EQ(report().layout().title, newReport("crptStatementReport").layout().title);
    EXPECT_FALSE(statements.isLoaded());

    const ProgramFolder program;
    EXPECT_FALSE(QFile::exists(program.filePath("workbooks.txt")));
    FormDriver old("frmCustomerStatements");
    expectRuntimeError(432, [&] { old.click("btnOk"); });
    EXPECT_EQ(viewers().size(), 1);
}

TEST_F(Dialogs, ExportFriendlyChoosesTheOtherLayout)
{
    FormDriver sales("frmSalesByWhsePart");
    sales.tick("chkExport");
    sales.click("btnOK");
    EXPECT_TRUE(report().layout().exportAsTable);
    FormDriver stock("frmAvailableInventory");
    EXPECT_EQ(entries(stock, "cmbCategory"), "***All Categories***|Pumps|Valves");
    EXPECT_EQ(stock.text("cmbCategory"), "***All Categories***");
    stock.tick("chkExport");
    stock.tick("chkDetails");
    stock.click("btnOk");
    EXPECT_TRUE(report().layout().exportAsTable);
    for (const Section &section : report().layout().sections) {
        if (section.name == "secDetail") {
            EXPECT_TRUE(section.suppress) << "never with details";
        }
    }
}

TEST_F(Dialogs, SelectionsListTheNewestFirstAndPrintTheOnePicked)
{
    const int order = addOrder("Baker Tools", "Main");
    addLine(order, 1, "A-100", 5, 10);
    addOrder("Acme Supply", "Main");
    addOrder("Acme Supply", "Main", "Closed");
    const int adjustment = addAdjustment("Main", "2/1/2010", "A-100", -5);
    const int other = addAdjustment("East", "2/2/2010", "A-100", 5);
    insert("TransferHeader", {{"FromID", adjustment}, {"ToID", other}});
    for (int shipped : {2, 3})
        ship(addShipment(order, "2/3/2010", false, 1), order, 1, shipped);
    const struct
    {
        const char *form, *entries, *picked, *field;
        Value value;
    } selections[] = {
        {"frmPickTicket", "Acme Supply - N|Baker Tools - N", "Baker Tools - N", "Customer", "Baker Tools"},
        {"frmPackingSlip", "2|1", "1", "ShipmentItems.Qty", 2.0},
        {"frmAdjustmentControlReport", "2 - 2/2/2010|1 - 2/1/2010", "1 - 2/1/2010", "Qty", -5.0},
        {"frmTransferControlReport", "1 - 2/1/2010", "1 - 2/1/2010", "Qty", 5.0},
    };
    for (const auto &selection : selections) {
        SCOPED_TRACE(selection.form);
        FormDriver form(selection.form);
        EXPECT_EQ(entries(form, "cmbReport"), selection.entries);
        EXPECT_EQ(form.control<ComboBox>("cmbReport")->listIndex(), -1);
        form.choose("cmbReport", selection.picked);
        form.click("btnPrint");
        EXPECT_EQ(report().rows().rowCount(), 1);
        EXPECT_EQ(report().rows().value(0, report().rows().fieldIndex(selection.field)), selection.value);
        EXPECT_FALSE(form.isLoaded());

        FormDriver none(selection.form);
        expectRuntimeError(3075, [&] { none.click("btnPrint"); });
    }
    FormDriver stock("frmAvailInvReport");
    EXPECT_EQ(entries(stock, "cmbReport"), "***All Warehouses***|East|Main|Old Hall");
    stock.click("btnPrint");
    EXPECT_EQ(report().rows().rowCount(), 0) << "nothing picked is an empty warehouse";
}

TEST_F(Dialogs, AnInvoiceWithoutShipmentsIsRefused)
{
    const int order = addOrder("Acme Supply", "Main");
    const int shipment = addShipment(order, "2/3/2010", true, 7);
    for (int i = 0; i < 9; ++i)
        addInvoice("Acme Supply", "2/4/2010", "0", 0);
    addInvoice("Acme Supply", "2/4/2010", QString::number(shipment), 7);

    FormDriver none("frmInvoiceReport");
    EXPECT_TRUE(entries(none, "cmbReport").startsWith("9|8|")) << "numbers sort as text";
    none.click("btnPrint");
    EXPECT_FALSE(none.isLoaded()) << "an unknown invoice closes without a word";
    database.execute("UPDATE Invoice SET Shipment = NULL WHERE Invoice = '8'");
    FormDriver missing("frmInvoiceReport");
    missing.choose("cmbReport", "8");
    missing.click("btnPrint");
    EXPECT_FALSE(missing.isLoaded()) << "and so does one whose list of shipments is missing";
    FormDriver without("frmInvoiceReport");
    without.choose("cmbReport", "9");
    boxes.expect("Unable to Print", "You cannot Print this Invoice.");
    without.click("btnPrint");
    EXPECT_FALSE(without.isLoaded());
    EXPECT_TRUE(viewers().isEmpty());
    FormDriver invoice("frmInvoiceReport");
    invoice.choose("cmbReport", "10");
    invoice.click("btnPrint");
    EXPECT_EQ(viewers().size(), 1);
    EXPECT_EQ(parameter("txtInvoiceDate"), "2/4/2010") << "its own, not the day it is printed again";
}

TEST_F(Dialogs, TheListingChecksDaysOnlyWhenToldAndFiltersByTheirText)
{
    addInvoice("Acme Supply", "5/1/2010", "0", 10);
    FormDriver form("frmOpenInvoicesReport");
    form.tick("chkOver");
    form.type("txtDays", "soon");
    boxes.expect("Enter Days to Age", "You must enter a number of days to be aging.");
    form.click("btnOk");
    EXPECT_TRUE(form.isLoaded());
    EXPECT_FALSE(QGuiApplication::overrideCursor());
    form.tick("chkOver", false);
    form.type("txtDays", "30");
    form.click("btnOk");
    EXPECT_FALSE(form.isLoaded());
    EXPECT_EQ(report().rows().rowCount(), 0) << "days count though the box is clear";
    EXPECT_EQ(parameter("txtAsOfDate"), "5/15/2010");
    EXPECT_FALSE(viewers().last()->windowTitle().contains("summary"));
}

TEST_F(Dialogs, ProductionAsksForTwoNumbers)
{
    FormDriver form("frmProductionByWhsePartReport");
    EXPECT_EQ(form.text("txtMonths"), "3");
    for (const char *req : {"", "two"}) {
        form.type("txtReq", req);
        boxes.expect("Invalid Months", "You must enter a number of months and Requirements.");
        form.click("btnOK");
        EXPECT_TRUE(form.isLoaded());
    }
    form.type("txtReq", "40000");
    expectRuntimeError(6, [&] { form.click("btnOK"); });
    form.type("txtMonths", "2.5"); // halves go to the even number
    form.type("txtReq", "$5");     // numeric, but its leading number is 0
    form.click("btnOK");
    EXPECT_EQ(parameter("txtMonths"), "2");
    EXPECT_EQ(parameter("txtReq"), "0");
}

TEST_F(Dialogs, TheCustomerRegisterListsAllCustomersAndTakesBothDates)
{
    for (const char *date : {"3/1/2010", "4/30/2010", "5/1/2010"})
        addInvoice("Acme Supply", date, "0", 10);
    for (const char *customer : {"", "Acme Supply"}) { // none need be picked
        FormDriver form("frmCustomerRegister");
        EXPECT_EQ(entries(form, "cmbCustomer"), "Acme Supply|Baker Tools|Bolt & Sons|Closed Works");
        if (*customer)
            form.choose("cmbCustomer", customer);
        form.setDate("dtBeginDate", "3/2/2010");
        form.setDate("dtEndDate", "4/30/2010");
        form.click("btnPrint");
        EXPECT_EQ(parameter("txtCustomer"), customer);
        EXPECT_EQ(report().rows().rowCount(), *customer ? 1 : 0);
    }
}

} // namespace
