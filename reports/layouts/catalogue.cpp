#include "reports/layouts/catalogue.h"

#include "reports/layouts/layouts.h"

/// T text, T100 longer text, N number, I whole number, C money, D date, DT date and time, M text of any length. The
/// fields are those of the routine's SELECT, in its order; two layouts that share a definition file may give a field
/// two types.
const std::vector<ReportDesign> &reportCatalogue()
{
    static const std::vector<ReportDesign> catalogue{
        {"crptInvoice", "InvoiceReport",
         datasetOf("Orders.ID I, OrderNumber T, OrderDate D, Warehouse T, Customer T, Address1 T, Address2 T, "
                   "City T, State T, Zip T, ShipTo T, ShipToAddress1 T, ShipToAddress2 T, ShipToCity T, "
                   "ShipToState T, ShipToZip T, SHIPMENT.ID I, Date D, Via T, ItemNumber I, OrderItem.Qty N, "
                   "ShipmentItems.Qty I, PartNo T, Category T, PriceEach N, Freight N, Adjustment N, "
                   "CustomerNumber T100"),
         crptInvoice},
        {"crptPackingSlip", "PackingSlipRpt",
         datasetOf("Orders.ID I, OrderNumber T, OrderDate D, Customer T, Address1 T, Address2 T, City T, State T, "
                   "Zip T, ShipTo T, ShipToAddress1 T, ShipToAddress2 T, ShipToCity T, ShipToState T, ShipToZip T, "
                   "SHIPMENT.ID I, Date D, ItemNumber I, OrderItem.Qty N, ShipmentItems.Qty I, PartNo T, "
                   "Category T, CustomerNumber T100"),
         crptPackingSlip},
        {"crptPickTicket", "PickTicketRpt",
         datasetOf("Warehouse T, ID I, OrderNumber T, Customer T, OrderDate D, DueDate D, ShipTo T, "
                   "ShipToAddress1 T, ShipToAddress2 T, ShipToCity T, ShipToState T, ShipToZip T, ShipToPhone T, "
                   "ShipToFax T, ItemNumber I, Qty N, PartNo T, Category T, BinLocation T"),
         crptPickTicket},
        {"crptARTranReport", "ARTranReport",
         datasetOf("Customer T, Invoice T, InvoiceDate DT, DueDate DT, Terms T, Shipment M, Total N, Freight N, "
                   "Adjustment N, Cost N"),
         crptARTranReport},
        {"crptCashReceiptsReport", "CashRecReport",
         datasetOf("ID I, Invoice T, Customer T, Date DT, Total N, Adjustment N, Amount N"), crptCashReceiptsReport},
        {"crptCustomerRegister", "CustomerRegister",
         datasetOf("TranDate D, TranType T, InvoiceNumber T, ID T, Amount C"), crptCustomerRegister},
        {"crptOpenInvoicesReport", "OpenInvoicesReport",
         datasetOf("Customer T, Phone T, Fax T, Invoice T, InvoiceDate D, DueDate D, Terms T, Shipment M, Total N, "
                   "Adjustment N, Received N"),
         crptOpenInvoicesReport},
        {"crptStatementReport", "OpenInvoicesReport",
         datasetOf("Customer T, Address1 T, Address2 T, City T, State T, Zip T, Invoice T, InvoiceDate DT, "
                   "DueDate DT, Terms T, Shipment M, Total N, Adjustment N, Received N"),
         crptStatementReport},
        {"crptSalesByCustomer", "SalesByCustomer",
         datasetOf("Customer T, CPS N, CPC N, LPS N, LPC N, TYTDS N, TYTDC N, LYTDS N, LYTDC N"), crptSalesByCustomer},
        {"crptSalesByCategoryCustomer", "SalesByCustomer",
         datasetOf("Category T, Customer T, CPS N, CPC N, LPS N, LPC N, TYTDS N, TYTDC N, LYTDS N, LYTDC N"),
         crptSalesByCategoryCustomer},
        {"crptSalesByTerritoryCustomer", "SalesByCustomer",
         datasetOf("Territory T, Customer T, CPS N, CPC N, LPS N, LPC N, TYTDS N, TYTDC N, LYTDS N, LYTDC N"),
         crptSalesByTerritoryCustomer},
        {"crptSalesByPart", "SalesByPart",
         datasetOf("PartNo T, Customer T, ID I, Date DT, Qty I, PriceExt N, CostExt N"), crptSalesByPart},
        {"crptSalesByWhsePart", "SalesByPart",
         datasetOf("Warehouse T, PartNo T, Customer T, ID I, Date DT, Qty I, PriceExt N, CostExt N"),
         crptSalesByWhsePart},
        {"crptSalesByWhsePartExport", "SalesByPart",
         datasetOf("Warehouse T, PartNo T, Customer T, ID I, Date DT, Qty I, PriceExt N, CostExt N"),
         crptSalesByWhsePartExport},
        {"crptAvailableInventory", "AvailableInventoryReport",
         datasetOf("Warehouse T, PartNo T, Date D, Qty I, Cost N, Memo T"), crptAvailableInventory},
        {"crptAvailableInventoryExport", "AvailableInventoryReport",
         datasetOf("Warehouse T, PartNo T, Date D, Qty I, Cost N, Memo T"), crptAvailableInventoryExport},
        {"crptAvailableInventoryByPart", "AvailableInventoryReport",
         datasetOf("Warehouse T, PartNo T, Date D, Qty I, Cost N, Memo T"), crptAvailableInventoryByPart},
        {"crptNewAvailInv", "NewAvailInvByWhse", datasetOf("Warehouse T, PartNo T, Avail I"), crptNewAvailInv},
        {"crptInventorySalesReport", "InventorySalesReport",
         datasetOf("Part T, Cost N, Qty I, MonthSalesQty N, PrevSalesQty N, CurrentInventory N"),
         crptInventorySalesReport},
        {"crptProductionWhsePart", "ProductionByWhsePartReport",
         datasetOf("Warehouse T, PartNo T, Months N, Req N, SumQtySold N, SumQtyOnHand N, SumQtyCommitted N"),
         crptProductionWhsePart},
        {"crptProductionPartWhse", "ProductionByWhsePartReport",
         datasetOf("Warehouse T, PartNo T, Months I, Req I, SumQtySold N, SumQtyOnHand N, SumQtyCommitted N"),
         crptProductionPartWhse},
        {"crptOpenOrders", "OpenOrdersRpt",
         datasetOf("ID I, OrderNumber T, OrderDate D, Customer T, Address1 T, Address2 T, City T, State T, Zip T, "
                   "ShipTo T, ShipToAddress1 T, ShipToAddress2 T, ShipToCity T, ShipToState T, ShipToZip T, "
                   "ItemNumber I, PartNo T, Category T, CustomerNumber T100, Qty N, Shipped N"),
         crptOpenOrders},
        {"crptInventoryAdjustControlReport", "AdjustmentControlRpt",
         datasetOf("ID I, Date DT, DateAdded DT, Warehouse T, PartNo T, Qty N, Category T"),
         crptInventoryAdjustControlReport},
        {"crptInventoryTransferControlReport", "TransferControlRpt",
         datasetOf("ID I, FromID I, Date DT, DateAdded DT, Warehouse T, PartNo T, Qty N, Category T, Address1 T, "
                   "Address2 T, City T, State T, Zip T"),
         crptInventoryTransferControlReport},
        {"crptPartListing", "PartListing",
         datasetOf("PartNo T, Category T, Vendor T, LeadTime T, Superceded T, BinLocation T, MinOnHand N, "
                   "ReorderQty N, QtyPerPack N, Cost N, SalePrice N, Status T, DateAdded D"),
         crptPartListing},
        {"crptCustomerListing", "CustomerListing",
         datasetOf("Customer T, Address1 T, Address2 T, City T, State T, Zip T, Phone T, Fax T, Status T, "
                   "DateAdded DT, ShipTo T, ShipToAddress1 T, ShipToAddress2 T, ShipToCity T, ShipToState T, "
                   "ShipToZip T, ShipToPhone T, ShipToFax T, Terms T, Days I, PriceSheet T, Territory T"),
         crptCustomerListing},
        {"crptWarehouseListing", "WarehouseListing",
         datasetOf("WareHouse T, Address1 T, Address2 T, City T, State T, Zip T, Phone T, Fax T, Contact T, "
                   "Status T, DateAdded DT"),
         crptWarehouseListing},
        {"crptAvailInv", "AvailInv", datasetOf("Part T, Warehouse T, AvailQty N"), crptAvailInv},
        {"crptAvailInv2", "AvailInv", datasetOf("Part T, Warehouse T, AvailQty N"), crptAvailInv2},
    };
    return catalogue;
}

const ReportDesign &reportDesign(const QString &designer)
{
    const auto &catalogue = reportCatalogue();
    const auto found = std::find_if(catalogue.begin(), catalogue.end(),
                                    [&](const ReportDesign &design) { return design.designer == designer; });
    Q_ASSERT(found != catalogue.end());
    return *found;
}

Report newReport(const QString &designer)
{
    const ReportDesign &design = reportDesign(designer);
    // Formulas name the fields by the definition file's table, which several layouts share.
    return Report(design.layout(), design.definitionFile + "_ttx", design.dataset);
}
