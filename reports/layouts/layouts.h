#pragma once

#include "reportengine/pages/layout.h"

// The layouts, one file each.

Layout crptInvoice();
Layout crptPackingSlip();
Layout crptPickTicket();
Layout crptARTranReport();
Layout crptCashReceiptsReport();
Layout crptCustomerRegister();
Layout crptOpenInvoicesReport();
Layout crptStatementReport();
Layout crptSalesByCustomer();
Layout crptSalesByCategoryCustomer();
Layout crptSalesByTerritoryCustomer();
Layout crptSalesByPart();
Layout crptSalesByWhsePart();
Layout crptSalesByWhsePartExport();
Layout crptAvailableInventory();
Layout crptAvailableInventoryExport();
Layout crptAvailableInventoryByPart();
Layout crptNewAvailInv();
Layout crptInventorySalesReport();
Layout crptProductionWhsePart();
Layout crptProductionPartWhse();
Layout crptOpenOrders();
Layout crptInventoryAdjustControlReport();
Layout crptInventoryTransferControlReport();
Layout crptPartListing();
Layout crptCustomerListing();
Layout crptWarehouseListing();
Layout crptAvailInv();
Layout crptAvailInv2();
