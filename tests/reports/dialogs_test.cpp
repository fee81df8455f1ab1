#include "reports/layouts/catalogue.h"
#include "tests/reports/reporttest.h"

namespace {

using Dialogs = ReportTest;

TEST_F(Dialogs, HandWhatWasPickedToTheirReport)
{
    addInvoice("Acme Rail", "3/1/2011", "0", 10);
    addInvoice("Acme Rail", "3/20/2011", "0", 20);
    const QString period = "dtStart: 4/30/2010; dtEnd: 3/1/2010; ", span = ", 4/30/2010 to 3/1/2010",
                  dates = "txtBeginDate txtEndDate", picked = "4/30/2010|3/1/2010";
    const struct
    {
        const char *form;
        QString steps;
        const char *designer;
        QString title, texts, shown;
        int rows = 0;
    } dialogs[] = {
        {"frmSalesByCustomer", period + "btnOK", "crptSalesByCustomer", "Sales By Customer" + span, dates, picked},
        {"frmSalesByCategoryCustomer", period + "btnOK", "crptSalesByCategoryCustomer", "Sales By Category" + span,
         dates, picked},
        {"frmSalesByTerritoryCustomer", period + "btnOK", "crptSalesByTerritoryCustomer", "Sales By Territory" + span,
         dates, picked},
        {"frmSalesByPart", period + "btnOK", "crptSalesByPart", "Sales By Part" + span, dates, picked},
        {"frmSalesByWhsePart", period + "btnOK", "crptSalesByWhsePart", "Sales By Whse/Part" + span, dates, picked},
        {"frmSalesByWhsePart", period + "chkExport; btnOK", "crptSalesByWhsePartExport", "Sales By Whse/Part" + span,
         dates, picked},
        {"frmInventorySalesReport", period + "btnOK", "crptInventorySalesReport", "Inventory Sales Report" + span,
         dates, picked},
        {"frmARTranReport", period + "btnOK", "crptARTranReport", "Invoice Register" + span, dates, picked},
        {"frmCashReceiptsReport", period + "btnOK", "crptCashReceiptsReport", "Cash Receipts Register" + span, dates,
         picked},
        {"frmAvailableInventory", period + "chkDetails; btnOk", "crptAvailableInventory",
         "Available Inventory By Whse/Part" + span, dates + " secDetail", picked + "|shown"},
        {"frmAvailableInventory", period + "cmbCategory: Axles; chkExport; chkDetails; btnOk",
         "crptAvailableInventoryExport", "Available Inventory By Whse/Part" + span + ", Axles",
         dates + " txtCategory secDetail", picked + "|Axles|hidden"}, // never with details
        {"frmAvailableInventoryByPart", period + "btnOk", "crptAvailableInventoryByPart",
         "Available Inventory By Part/Whse" + span, dates + " secDetail", picked + "|hidden"},
        {"frmStatementReport", "dtDate: 4/30/2010; btnOk", "crptStatementReport", "Statements, as of 4/30/2010",
         "txtAsOfDate", "4/30/2010"},
        {"frmOpenInvoicesReport", "btnOk", "crptOpenInvoicesReport", "Accounts Receivable Listing, as of 3/30/2011",
         "txtAsOfDate Details txtDays", "3/30/2011|shown|hidden", 2},
        // Days count though the box is clear; the customer's newer invoice stands with the old one.
        {"frmOpenInvoicesReport", "dtDate: 3/25/2011; txtDays: 20; chkSummary; btnOk", "crptOpenInvoicesReport",
         "Accounts Receivable Listing, as of 3/25/2011, over 20 days, summary", "txtAsOfDate Details txtOverDays",
         "3/25/2011|hidden|20", 2},
        {"frmCustomerRegister", "dtBeginDate: 3/2/2011; btnPrint", "crptCustomerRegister",
         "Customer Register, 3/2/2011 to 3/30/2011", "txtCustomer " + dates, "|3/2/2011|3/30/2011"}, // none picked
        {"frmCustomerRegister", "cmbCustomer: Acme Rail; dtBeginDate: 3/2/2011; dtEndDate: 4/1/2011; btnPrint",
         "crptCustomerRegister", "Customer Register, Acme Rail, 3/2/2011 to 4/1/2011", "txtCustomer " + dates,
         "Acme Rail|3/2/2011|4/1/2011", 1},
        {"frmProductionByPartWhseReport", "txtReq: 2; btnOK", "crptProductionPartWhse",
         "Production By Part/Whse, 3 months, requirements 2", "txtMonths txtReq", "3|2"},
        // Halves go to the even number; "$5" is numeric, but its leading number is 0.
        {"frmProductionByWhsePartReport", "txtMonths: 2.5; txtReq: $5; btnOK", "crptProductionWhsePart",
         "Production By Whse/Part, 2 months, requirements 0", "txtMonths txtReq", "2|0"},
        {"frmAvailInvReport", "cmbReport: North; btnPrint", "crptNewAvailInv", "Quick Available Inv, North", "secTitle",
         "shown", 4},
        {"frmAvailInvReport", "btnPrint", "crptNewAvailInv", "Quick Available Inv, ", "secTitle", "shown"},
    };
    for (const auto &dialog : dialogs) {
        SCOPED_TRACE(dialog.form);
        FormDriver form(dialog.form);
        form.act(dialog.steps);
        EXPECT_EQ(window()->windowTitle(), dialog.title);
        const Layout layout = newReport(dialog.designer).layout();
        EXPECT_EQ(report().layout().title, layout.title);
        EXPECT_EQ(report().layout().exportAsTable, layout.exportAsTable);
        EXPECT_EQ(shown(dialog.texts), dialog.shown);
        EXPECT_EQ(rows().size(), dialog.rows);
        EXPECT_FALSE(form.isLoaded());
        EXPECT_FALSE(QGuiApplication::overrideCursor());
    }
}

TEST_F(Dialogs, ListWhatThereIs)
{
    addRow("Part", {{"PartNo", "no category"}});
    const std::tuple<const char *, const char *, const char *> lists[] = {
        {"frmAvailableInventory", "cmbCategory", "***All Categories***|Axles|Brackets"},
        {"frmAvailInvReport", "cmbReport", "***All Warehouses***|Main|North|Old"},
        {"frmCustomerRegister", "cmbCustomer", "Acme Rail|Birch Mill|Cobb Yard"}};
    for (const auto &[form, combo, listed] : lists)
        EXPECT_EQ(entries(FormDriver(form), combo), listed);
    EXPECT_EQ(FormDriver("frmAvailableInventory").text("cmbCategory"), "***All Categories***");
}

TEST_F(Dialogs, SelectionsListTheNewestFirstAndPrintTheOnePicked)
{
    const QString order = addOrder("B-1", "Birch Mill", {{"AX-100", 5, 10}});
    addOrder("A-1", "Acme Rail");
    addOrder("A-2", "Acme Rail", {}, "Closed");
    addTransfer("Main", "North", "2/1/2010", "AX-100", 5);
    for (int shipped : {2, 3})
        addShipment(order, {shipped});
    const struct
    {
        const char *form, *entries, *picked, *title;
        int column;
        const char *value;
    } selections[] = {
        {"frmPickTicket", "Acme Rail - A-1|Birch Mill - B-1", "Birch Mill - B-1", "Pick Ticket, order ID 1", 2, "B-1"},
        {"frmPackingSlip", "2|1", "1", "Packing Slip, shipment 1", 19, "2"},
        {"frmAdjustmentControlReport", "2 - 2/1/2010|1 - 2/1/2010", "1 - 2/1/2010", "Adjustment Control Report 1", 5,
         "-5"},
        {"frmTransferControlReport", "1 - 2/1/2010", "1 - 2/1/2010", "Transfer Control Report 1", 6, "5"},
    };
    for (const auto &selection : selections) {
        SCOPED_TRACE(selection.form);
        FormDriver form(selection.form);
        EXPECT_EQ(entries(form, "cmbReport"), selection.entries);
        EXPECT_EQ(form.control<ComboBox>("cmbReport")->listIndex(), -1);
        form.act(QString("cmbReport: %1; btnPrint").arg(selection.picked));
        EXPECT_EQ(window()->windowTitle(), selection.title);
        EXPECT_EQ(rows(selection.column, selection.column), QStringList(selection.value));
        EXPECT_FALSE(form.isLoaded());

        FormDriver none(selection.form);
        expectRuntimeError(3075, [&] { none.click("btnPrint"); });
    }
}

TEST_F(Dialogs, AnInvoiceWithoutShipmentsIsRefused)
{
    const QString shipment = addShipment(addOrder("A-1", "Acme Rail"), {}, Date(2010, 2, 3), 7);
    for (int i = 0; i < 9; ++i)
        addInvoice("Acme Rail", "2/4/2010", "0", 0);
    addInvoice("Acme Rail", "2/4/2010", shipment, 7);
    database.execute("UPDATE Invoice SET Shipment = NULL WHERE Invoice = '8'");
    EXPECT_TRUE(entries(FormDriver("frmInvoiceReport"), "cmbReport").startsWith("9|8|")) << "numbers sort as text";
    for (const char *silent : {"btnPrint", "cmbReport: 8; btnPrint"}) { // an unknown one, and one without its list
        FormDriver form("frmInvoiceReport");
        form.act(silent);
        EXPECT_FALSE(form.isLoaded());
    }
    FormDriver without("frmInvoiceReport");
    expectBox(without, "cmbReport: 9; btnPrint", "Unable to Print", "You cannot Print this Invoice.");
    EXPECT_FALSE(without.isLoaded());
    EXPECT_EQ(viewers(), 0);
    FormDriver("frmInvoiceReport").act("cmbReport: 10; btnPrint");
    EXPECT_EQ(shown("txtInvoiceNumber txtInvoiceDate txtTerms"), "10|2/4/2010|Net 30") << "not the day of the reprint";
    EXPECT_EQ(window()->windowTitle(), "Invoice 10");
}

TEST_F(Dialogs, AskForNumbers)
{
    FormDriver production("frmProductionByWhsePartReport");
    for (const char *steps : {"btnOK", "txtReq: two; btnOK", "txtReq: 2; txtMonths: x; btnOK"})
        expectBox(production, steps, "Invalid Months", "You must enter a number of months and Requirements.");
    production.act("txtMonths: 40000");
    expectRuntimeError(6, [&] { production.click("btnOK"); });
    FormDriver invoices("frmOpenInvoicesReport");
    expectBox(invoices, "chkOver; txtDays: soon; btnOk", "Enter Days to Age",
              "You must enter a number of days to be aging.");
    EXPECT_TRUE(production.isLoaded() && invoices.isLoaded());
    EXPECT_FALSE(QGuiApplication::overrideCursor());

    const ProgramFolder program;
    EXPECT_FALSE(QFile::exists(program.filePath("workbooks.txt")));
    FormDriver old("frmCustomerStatements");
    expectRuntimeError(432, [&] { old.click("btnOk"); }); // runs the old report, whatever the date
}

} // namespace
