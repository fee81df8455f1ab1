#include "data/schema/schema.h"

namespace {

ColumnDef text(const char *name, int size = 50)
{
    return {QString::fromLatin1(name), ColumnType::Text, size};
}

ColumnDef memo(const char *name)
{
    return {QString::fromLatin1(name), ColumnType::Memo};
}

ColumnDef date(const char *name)
{
    return {QString::fromLatin1(name), ColumnType::Date};
}

ColumnDef number(const char *name)
{
    return {QString::fromLatin1(name), ColumnType::Double};
}

ColumnDef integer(const char *name)
{
    return {QString::fromLatin1(name), ColumnType::Long};
}

ColumnDef yesNo(const char *name)
{
    return {QString::fromLatin1(name), ColumnType::YesNo};
}

ColumnDef autoNumber(const char *name)
{
    return {QString::fromLatin1(name), ColumnType::Long, 0, true};
}

/// A table that keeps the company's data: a new row holds 0 in the numbers that nobody assigned.
TableDef permanent(const char *name, std::vector<ColumnDef> columns)
{
    for (ColumnDef &column : columns) {
        const bool counts = column.type == ColumnType::Long || column.type == ColumnType::Double ||
                            column.type == ColumnType::Currency || column.type == ColumnType::YesNo;
        column.defaultZero = counts && !column.autoNumber;
    }
    return {QString::fromLatin1(name), std::move(columns), true};
}

/// A table that one report fills: what it does not fill is Null.
TableDef scratch(const char *name, std::vector<ColumnDef> columns)
{
    return {QString::fromLatin1(name), std::move(columns), true};
}

/// Records known by their names; the other tables carry those names as text.
std::vector<TableDef> masterTables()
{
    return {
        permanent("Customer",
                  {text("Customer"),       text("Address1"),   text("Address2"),        text("City"),
                   text("State"),          text("Zip"),        text("Phone"),           text("Fax"),
                   text("Status"),         date("DateAdded"),  text("ShipTo"),          text("ShipToAddress1"),
                   text("ShipToAddress2"), text("ShipToCity"), text("ShipToState"),     text("ShipToZip"),
                   text("ShipToPhone"),    text("ShipToFax"),  text("Terms"),           integer("Days"),
                   text("PriceSheet"),     text("Territory"),  yesNo("PrintStatements")}),
        permanent("Part", {text("PartNo"), text("Category"), text("Vendor"), text("LeadTime"), text("Superceded"),
                           text("BinLocation"), number("MinOnHand"), number("ReorderQty"), number("QtyPerPack"),
                           number("Cost"), number("SalePrice"), text("Status"), date("DateAdded")}),
        permanent("Warehouse",
                  {text("Warehouse"), text("Address1"), text("Address2"), text("City"), text("State"), text("Zip"),
                   text("Phone"), text("Fax"), text("Contact"), text("Status"), date("DateAdded")}),
        permanent("PriceSheet", {text("PriceSheet"), text("Part"), number("Price")}),
    };
}

/// Documents number themselves; their lines have the number of the document and none of their own.
std::vector<TableDef> documentTables()
{
    return {
        permanent("Orders", {autoNumber("ID"), text("OrderNumber"), text("Customer"), text("Warehouse"), text("Status"),
                             date("OrderDate"), date("DueDate"), text("ShipTo"), text("ShipToAddress1"),
                             text("ShipToAddress2"), text("ShipToCity"), text("ShipToState"), text("ShipToZip"),
                             text("ShipToPhone"), text("ShipToFax"), date("DateAdded"), number("Total")}),
        permanent("OrderItem",
                  {integer("OrderID"), integer("ItemNumber"), number("Qty"), text("PartNo"), text("Category"),
                   number("PriceEach"), number("PriceExt"), text("CustomerNumber", 100)}),
        permanent("Shipment", {autoNumber("ID"), integer("OrderID"), date("Date"), text("Via"), number("Freight"),
                               number("Adjustment"), yesNo("Invoiced"), date("InvoiceDate")}),
        permanent("ShipmentItems",
                  {integer("ShipmentID"), integer("OrderID"), integer("OrderLineItem"), integer("Qty")}),
        permanent("Invoice", {autoNumber("ID"), text("Invoice"), text("Customer"), date("InvoiceDate"), date("DueDate"),
                              text("Terms"), memo("Shipment"), number("Total"), number("Cost")}),
        permanent("Payments",
                  {autoNumber("ID"), integer("Invoice"), date("Date"), number("Amount"), number("Adjustment")}),
        permanent("AdjustmentHeader", {autoNumber("ID"), date("Date"), date("DateAdded"), text("Warehouse")}),
        permanent("AdjustmentDetail", {integer("AdjustmentID"), text("PartNo"), number("Qty")}),
        permanent("TransferHeader", {autoNumber("ID"), integer("FromID"), integer("ToID")}),
        // No unique key: nothing keeps two workstations from adding a pair at once, and the first row is then the
        // ledger.
        permanent("AvailInv", {text("Whse"), text("Part"), integer("Avail")}),
    };
}

/// What the reports of the earlier bookkeeping read and refill.
std::vector<TableDef> oldTables()
{
    return {
        permanent("Inventory", {text("Part"), text("Warehouse"), text("Tran"), number("Qty")}),
        permanent("Invoice_Old", {text("CustomerNo"), text("InvoiceNo"), number("Amount"), date("Date")}),
        permanent("Customer_Old",
                  {text("CustomerNo"), text("Customer"), text("Add1"), text("Add2"), text("City"), text("Zip")}),
        permanent("FebInventory", {text("Part"), integer("Qty")}),
    };
}

} // namespace

const std::vector<TableDef> &Schema::permanentTables()
{
    static const std::vector<TableDef> tables = [] {
        std::vector<TableDef> all = masterTables();
        for (const std::vector<TableDef> &group : {documentTables(), oldTables()})
            all.insert(all.end(), group.begin(), group.end());
        return all;
    }();
    return tables;
}

const TableDef *Schema::permanentTable(QAnyStringView name)
{
    const auto &tables = permanentTables();
    const auto found = std::find_if(tables.begin(), tables.end(), [name](const TableDef &table) {
        return QAnyStringView::compare(table.Name, name, Qt::CaseInsensitive) == 0;
    });
    return found == tables.end() ? nullptr : &*found;
}

const std::vector<TableDef> &Schema::keptScratchTables()
{
    // Quantities are whole numbers in the registers, so that a fraction of an adjustment is rounded on its way in.
    static const std::vector<ColumnDef> movement = {text("Warehouse"), text("PartNo"), date("Date"),
                                                    integer("Qty"),    number("Cost"), text("Memo")};
    static const std::vector<TableDef> tables = {
        scratch("tmpInventoryRegister", movement),
        scratch("tmpInventoryRegister2", movement),
        scratch("tmpTransferHeaderIDs", {integer("ID")}),
        scratch("tmpProductionSummary", {text("Warehouse"), text("PartNo"), integer("Months"), integer("Req"),
                                         number("QtySold"), number("QtyOnHand"), number("QtyCommitted")}),
        scratch("tmpProductionInventoryRegister", {text("Warehouse"), text("PartNo"), number("Qty")}),
        scratch("tmpSalesByCustomer",
                {text("Category"), text("Territory"), text("Customer"), number("CurrentPeriodSales"),
                 number("CurrentPeriodCosts"), number("LastYearPeriodSales"), number("LastYearPeriodCosts"),
                 number("TYTDSales"), number("TYTDCosts"), number("LYTDSales"), number("LYTDCosts")}),
        scratch("tmpARTran",
                {text("Customer"), text("Invoice"), date("InvoiceDate"), date("DueDate"), text("Terms"),
                 memo("Shipment"), number("Total"), number("Freight"), number("Adjustment"), number("Cost")}),
    };
    return tables;
}

const std::vector<Schema::Index> &Schema::indexes()
{
    // Composite ones on purpose. An index on a line number or a warehouse alone draws the query planner into
    // walking it, and reports over a few years of data then never end.
    static const std::vector<Index> list = {
        {"ixCustomer", "Customer", {"Customer"}, {}},
        {"ixPart", "Part", {"PartNo"}, {}},
        {"ixWarehouse", "Warehouse", {"Warehouse"}, {}},
        {"ixPriceSheet", "PriceSheet", {"Part", "PriceSheet"}, {}},
        {"ixOrdersCustomer", "Orders", {"Customer", "OrderNumber"}, {}},
        {"ixOrdersDate", "Orders", {"OrderDate"}, {}},
        {"ixOrdersOpen", "Orders", {"Customer", "OrderNumber"}, "Status = 'Open'"},
        {"ixOrderItem", "OrderItem", {"OrderID", "ItemNumber"}, {}},
        {"ixOrderItemPart", "OrderItem", {"PartNo"}, {}},
        {"ixShipmentOrder", "Shipment", {"OrderID"}, {}},
        {"ixShipmentDate", "Shipment", {"Date"}, {}},
        {"ixShipmentItems", "ShipmentItems", {"ShipmentID"}, {}},
        {"ixShipmentItemsLine", "ShipmentItems", {"OrderID", "OrderLineItem"}, {}},
        {"ixInvoiceCustomer", "Invoice", {"Customer"}, {}},
        {"ixInvoice", "Invoice", {"Invoice"}, {}},
        {"ixPaymentsInvoice", "Payments", {"Invoice"}, {}},
        {"ixPaymentsDate", "Payments", {"Date"}, {}},
        {"ixAdjustmentDetail", "AdjustmentDetail", {"AdjustmentID"}, {}},
        {"ixAdjustmentDetailPart", "AdjustmentDetail", {"PartNo"}, {}},
        {"ixTransferFrom", "TransferHeader", {"FromID"}, {}},
        {"ixTransferTo", "TransferHeader", {"ToID"}, {}},
        {"ixAvailInv", "AvailInv", {"Part", "Whse"}, {}},
        // A table that a report makes anew; it gets its index then. The listing deletes from it by customer.
        {"ixOpenInvoices", "tmpOpenInvoices", {"Customer"}, {}},
    };
    return list;
}
