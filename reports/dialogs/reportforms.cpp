#include "reports/dialogs/reportforms.h"
#include "reportengine/viewer/viewer.h"
#include "reports/dialogs/documentdialogs.h"
#include "reports/dialogs/productiondialog.h"
#include "reports/dialogs/receivablesdialogs.h"
#include "reports/dialogs/registerdialogs.h"
#include "reports/dialogs/salesdialogs.h"
#include "reports/dialogs/stockdialogs.h"
#include "reports/old.h"
#include "reports/production.h"
#include "reports/receivables.h"
#include "reports/sales.h"
#include "toolkit/forms/forms.h"

namespace {

using Entry = std::pair<QString, Forms::Factory>;

template <class FormClass> Entry form(const char *name)
{
    return {name, [] { return new FormClass; }};
}

Entry dateRange(const char *name, const char *caption, DateRangeDialog::Pointer pointer,
                DateRangeDialog::Routine routine)
{
    return {name, [=] { return new DateRangeDialog(name, caption, "btnOK", pointer, routine); }};
}

Entry asOf(const char *name, const char *caption, const char *label, AsOfDialog::Routine routine)
{
    return {name, [=] { return new AsOfDialog(name, caption, label, routine); }};
}

Entry production(const char *name, const char *caption, ProductionDialog::Routine routine)
{
    return {name, [=] { return new ProductionDialog(name, caption, routine); }};
}

} // namespace

std::vector<std::pair<QString, Forms::Factory>> reportForms()
{
    // Which dialogs own the pointer follows their reports: where the routine sets it the dialog does not. The inventory
    // sales report sets it twice and clears it twice.
    using enum DateRangeDialog::Pointer;
    return {
        form<Viewer>("Viewer"),
        form<frmPickTicket>("frmPickTicket"),
        form<frmPackingSlip>("frmPackingSlip"),
        form<frmInvoiceReport>("frmInvoiceReport"),
        dateRange("frmSalesByCustomer", "Sales By Customer Report", Owned, Reports::ReportSalesByCustomer),
        dateRange("frmSalesByCategoryCustomer", "Sales By Category Report", Owned,
                  Reports::ReportSalesByCategoryCustomer),
        dateRange("frmSalesByTerritoryCustomer", "Sales By Territory Report", Owned,
                  Reports::ReportSalesByTerritoryCustomer),
        dateRange("frmSalesByPart", "Sales By Part Report", Owned, Reports::ReportSalesByPart),
        form<frmSalesByWhsePart>("frmSalesByWhsePart"),
        form<frmInventorySalesReport>("frmInventorySalesReport"),
        form<frmOpenInvoicesReport>("frmOpenInvoicesReport"),
        asOf("frmStatementReport", "Customer Statements", "As Of", Reports::ShowStatementReport),
        dateRange("frmARTranReport", "Invoice Register Report", NotOwned, Reports::ShowInvoiceRegister),
        dateRange("frmCashReceiptsReport", "Cash Receipts Register Report", NotOwned, Reports::ShowCashReceipts),
        form<frmCustomerRegister>("frmCustomerRegister"),
        form<frmAvailableInventory>("frmAvailableInventory"),
        form<frmAvailableInventoryByPart>("frmAvailableInventoryByPart"),
        form<frmAvailInvReport>("frmAvailInvReport"),
        production("frmProductionByWhsePartReport", "Production By Whse/Part Rpt", Reports::ReportProductionByWhsePart),
        production("frmProductionByPartWhseReport", "Production By Part/Whse Rpt", Reports::ReportProductionByPartWhse),
        form<frmAdjustmentControlReport>("frmAdjustmentControlReport"),
        form<frmTransferControlReport>("frmTransferControlReport"),
        // The old statements take no date; the dialog asks for one all the same.
        asOf("frmCustomerStatements", "Customer Statements", "Statement Date",
             [](const QString &) { Reports::ReportStatementsOld(); }),
    };
}
