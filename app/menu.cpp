#include "app/menu.h"

#include "app/application.h"
#include "inventory/ledger.h"
#include "reports/listings.h"
#include "reports/old.h"

namespace {
MenuEntry group(int level, const char *name, const char *caption)
{
    return {level, name, caption, MenuEntry::Kind::Group};
}

MenuEntry form(int level, const char *name, const char *caption, const char *form)
{
    return {level, name, caption, MenuEntry::Kind::Form, form};
}

/// An entry that calls a routine.
MenuEntry routine(int level, const char *name, const char *caption, std::function<void()> routine)
{
    return {level, name, caption, MenuEntry::Kind::Routine, nullptr, std::move(routine)};
}

/// An entry greyed for good, though it has its routine.
MenuEntry switchedOff(int level, const char *name, const char *caption, std::function<void()> routine)
{
    return {level, name, caption, MenuEntry::Kind::SwitchedOff, nullptr, std::move(routine)};
}

/// At once, as the platform's own statement: no form unloads, and nothing is asked.
void endProgram()
{
    Application::end(0);
}
} // namespace

const std::vector<MenuEntry> &menuEntries()
{
    static const std::vector<MenuEntry> entries{
        group(0, "File", "File"),
        routine(1, "Exit", "Exit", endProgram),

        group(0, "Orders", "Orders"),
        form(1, "OrdNav", "Order Navigator", "frmOrderNavigator"),
        form(1, "OrderEntry", "Order Entry", "frmOrderEntry"),

        group(0, "Shipping", "Shipping"),
        form(1, "ShipmentNav", "Shipment Navigator", "frmShipmentNavigator"),
        form(1, "ShipmentEntry", "Shipment Entry", "frmShipmentEntry"),

        group(0, "AR", "AR"),
        form(1, "CreateInvoices", "Create Invoices", "frmCreateInvoices"),
        form(1, "ReceivePayment", "Receive Payments", "frmReceivePayment"),

        group(0, "Inventory", "Inventory"),
        form(1, "Adjust", "Adjust Inventory", "frmInventoryAdjust"),
        form(1, "Transfer", "Transfer Inventory", "frmTransfer"),
        routine(1, "RebuildInv", "Rebuild Inventory Values", RebuildAvailInv),

        group(0, "Administrative", "Administrative"),
        form(1, "CustomerEntry", "Customer Entry", "frmCustomerEntry"),
        form(1, "PartEntry", "Part Entry", "frmPartEntry"),
        form(1, "LocationEntry", "Warehouse Entry", "frmWarehouseEntry"),

        group(0, "Reports", "Reports"),
        group(1, "OrderReports", "Orders"),
        routine(2, "OpenOrders", "Open Orders", Reports::ReportOpenOrders),
        form(2, "PickTicket", "Pick Ticket", "frmPickTicket"),
        group(1, "ShippingReports", "Shipping"),
        form(2, "PackingSlip", "Packing Slip", "frmPackingSlip"),
        form(2, "InvoiceReport", "Invoice", "frmInvoiceReport"),
        form(2, "SalesByCustomer", "Sales By Customer", "frmSalesByCustomer"),
        form(2, "SalesByCategory", "Sales By Category", "frmSalesByCategoryCustomer"),
        form(2, "SalesByTerritory", "Sales By Territory", "frmSalesByTerritoryCustomer"),
        form(2, "SalesByPart", "Sales By Part", "frmSalesByPart"),
        form(2, "SalesByWhsePart", "Sales By Whse/Part", "frmSalesByWhsePart"),
        form(2, "InventorySalesReport", "Inventory Sales Report", "frmInventorySalesReport"),
        group(1, "ARReports", "Accounts Receivable"),
        form(2, "OpenInvoice", "Accounts Receivable Listing", "frmOpenInvoicesReport"),
        form(2, "StatementsReport", "Statements", "frmStatementReport"),
        form(2, "ARTran", "Invoice Register", "frmARTranReport"),
        form(2, "CashReceipts", "Cash Receipts Register", "frmCashReceiptsReport"),
        form(2, "CustomerRegister", "Customer Register", "frmCustomerRegister"),
        group(1, "InventoryReport", "Inventory"),
        form(2, "AvailInventory", "Available Inventory By Whse/Part", "frmAvailableInventory"),
        form(2, "AvailableInventoryByPart", "Available Inventory By Part/Whse", "frmAvailableInventoryByPart"),
        form(2, "NewAvailInvWhse", "Quick Available Inv", "frmAvailInvReport"),
        form(2, "ProdByWhsePart", "Production By Whse/Part", "frmProductionByWhsePartReport"),
        form(2, "ProdByPartWhse", "Production By Part/Whse", "frmProductionByPartWhseReport"),
        form(2, "AdjustmentControlReport", "Adjustment Control Report", "frmAdjustmentControlReport"),
        form(2, "TransferControlReport", "Transfer Control Report", "frmTransferControlReport"),
        group(1, "AdminReports", "Administrative"),
        routine(2, "PartListingReport", "Part Listing", Reports::ReportPartListing),
        routine(2, "CustomerListingReport", "Customer Listing", Reports::ReportCustomerListing),
        routine(2, "WarehouseListingReport", "Warehouse Listing", Reports::ReportWarehouseListing),
        group(1, "ARReportsOld", "Accounts Receivable Old"),
        form(2, "Statements", "Statements Old", "frmCustomerStatements"),
        switchedOff(1, "AvailInv", "Available Inventory by Part", Reports::ReportAvailInvOld),
        switchedOff(1, "AvailInv2", "Available Inventory by Warehouse", Reports::ReportAvailInv2Old),

        group(0, "Help", "Help"),
        form(1, "About", "About", "frmAbout"),
    };
    return entries;
}
