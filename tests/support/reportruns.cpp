#include "tests/support/reportruns.h"

#include "reports/inventoryregisters.h"
#include "reports/listings.h"
#include "reports/old.h"
#include "reports/operational.h"
#include "reports/production.h"
#include "reports/receivables.h"
#include "reports/sales.h"

const std::vector<ReportRun> &reportRuns()
{
    using namespace Reports;
    static const std::vector<ReportRun> all{
        {"crptPickTicket", true, [] { PrintPickTicket("1"); }},
        {"crptPackingSlip", true, [] { PrintPackingSlip("1", true); }},
        {"crptInvoice", false, [] { PrintInvoice("1", "1", "1/5/2010", "2/4/2010", "Net 30", true); }},
        {"crptARTranReport", true, [] { ShowInvoiceRegister("1/1/2010", "12/31/2010"); }},
        {"crptCashReceiptsReport", true, [] { ShowCashReceipts("1/1/2010", "12/31/2010"); }},
        {"crptCustomerRegister", true, [] { ShowCustomerRegister("Acme Supply", "1/1/2010", "12/31/2010"); }},
        {"crptOpenInvoicesReport", true, [] { ShowOpenInvoicesReport("12/31/2010", false, ""); }},
        {"crptOpenInvoicesReport", true, [] { ShowOpenInvoicesReport("12/31/2010", true, ""); }},
        {"crptStatementReport", true, [] { ShowStatementReport("12/31/2010"); }},
        {"crptSalesByCustomer", false, [] { ReportSalesByCustomer("1/1/2010", "12/31/2010"); }},
        {"crptSalesByCategoryCustomer", false, [] { ReportSalesByCategoryCustomer("1/1/2010", "12/31/2010"); }},
        {"crptSalesByTerritoryCustomer", false, [] { ReportSalesByTerritoryCustomer("1/1/2010", "12/31/2010"); }},
        {"crptSalesByPart", false, [] { ReportSalesByPart("1/1/2010", "12/31/2010"); }},
        {"crptSalesByWhsePart", false, [] { ReportSalesByWhsePart("1/1/2010", "12/31/2010"); }},
        {"crptSalesByWhsePartExport", false, [] { ReportSalesByWhsePartExport("1/1/2010", "12/31/2010"); }},
        {"crptAvailableInventory", true,
         [] { ReportAvailableInventory("1/1/2010", "12/31/2010", true, "***All Categories***"); }},
        {"crptAvailableInventory", true,
         [] { ReportAvailableInventory("1/1/2010", "12/31/2010", false, "***All Categories***"); }},
        {"crptAvailableInventoryExport", true,
         [] { ReportAvailableInventoryExport("1/1/2010", "12/31/2010", false, "***All Categories***"); }},
        {"crptAvailableInventoryByPart", true,
         [] { ReportAvailableInventoryByPart("1/1/2010", "12/31/2010", true, "***All Categories***"); }},
        {"crptNewAvailInv", true, [] { ReportQuickAvailInv("***All Warehouses***"); }},
        {"crptInventorySalesReport", true, [] { ReportInventorySales("1/1/2010", "12/31/2010"); }},
        {"crptProductionWhsePart", false, [] { ReportProductionByWhsePart(3, 2, true); }},
        {"crptProductionPartWhse", false, [] { ReportProductionByPartWhse(3, 2, true); }},
        {"crptOpenOrders", false, ReportOpenOrders},
        {"crptInventoryAdjustControlReport", true, [] { ReportAdjustmentControl("1"); }},
        {"crptInventoryTransferControlReport", true, [] { ReportTransferControl("1"); }},
        {"crptPartListing", true, ReportPartListing},
        {"crptCustomerListing", true, ReportCustomerListing},
        {"crptWarehouseListing", true, ReportWarehouseListing},
        {"crptAvailInv", true, ReportAvailInvOld},
        {"crptAvailInv2", true, ReportAvailInv2Old},
    };
    return all;
}
