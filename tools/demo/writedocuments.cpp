#include "tools/demo/writetables.h"

#include "data/dao/bulkload.h"
#include "tools/demo/company.h"

namespace demo {

namespace {

/// As the program computes it; nobody closed one by hand.
Value statusOf(const Order &order)
{
    if (order.isVoid)
        return "Void";
    return order.complete() ? "Closed" : "Open";
}

/// The number a customer has for a part of ours; empty where it uses our own.
QString customerNumber(const Customer &customer, int part, Random &random)
{
    if (!customer.usesOwnNumbers || random.perMille(300))
        return "";
    return QString("%1-%2").arg(100 + part / 97).arg(1000 + part * 37 % 9000);
}

} // namespace

void writeOrders(const Company &company, BulkLoad &file, Random &random)
{
    auto orders = file.into("Orders", {"ID", "OrderNumber", "Customer", "Warehouse", "Status", "OrderDate", "DueDate",
                                       "ShipTo", "ShipToAddress1", "ShipToAddress2", "ShipToCity", "ShipToState",
                                       "ShipToZip", "ShipToPhone", "ShipToFax", "DateAdded", "Total"});
    auto lines = file.into(
        "OrderItem", {"OrderID", "ItemNumber", "Qty", "PartNo", "Category", "PriceEach", "PriceExt", "CustomerNumber"});
    int id = 0;
    for (const Order &order : company.orders) {
        ++id;
        const Customer &customer = company.customers[size_t(order.customer)];
        // Amounts are summed unrounded, line by line, like the form's total.
        double total = 0;
        int item = 0;
        for (const Line &line : order.lines) {
            const Part &part = company.parts[size_t(line.part)];
            const double amount = line.price * line.qty;
            total += amount;
            lines.add({id, ++item, double(line.qty), part.number, part.category, line.price, amount,
                       customerNumber(customer, line.part, random)});
        }
        // Of a customer that never said where to ship, the desk types what it is billed by.
        const bool known = !customer.shipTo.isEmpty();
        const Address &ship = known ? customer.shipping : customer.billing;
        orders.add({id, order.number, customer.name, company.warehouses[size_t(order.warehouse)].name, statusOf(order),
                    Date(order.date), Date(order.due), known ? customer.shipTo : customer.name, ship.line1, ship.line2,
                    ship.city, ship.state, ship.zip, ship.phone, ship.fax, Date(order.date), total});
    }
}

void writeShipments(const Company &company, BulkLoad &file)
{
    auto shipments = file.into("Shipment", {"ID", "OrderID", "Date", "Via", "Freight", "Adjustment", "Invoiced"});
    auto lines = file.into("ShipmentItems", {"ShipmentID", "OrderID", "OrderLineItem", "Qty"});
    int id = 0;
    for (const Shipment &shipment : company.shipments) {
        ++id;
        const Value via = shipment.via.isEmpty() ? Value() : Value(shipment.via);
        shipments.add({id, shipment.order + 1, Date(shipment.date), via, shipment.freight, shipment.adjustment,
                       shipment.invoiced});
        for (const ShipmentLine &line : shipment.lines)
            lines.add({id, shipment.order + 1, line.line + 1, line.qty});
    }
}

void writeBilling(const Company &company, BulkLoad &file)
{
    auto invoices = file.into(
        "Invoice", {"ID", "Invoice", "Customer", "InvoiceDate", "DueDate", "Terms", "Shipment", "Total", "Cost"});
    int id = 0;
    for (const Invoice &invoice : company.invoices) {
        ++id;
        QStringList shipments;
        for (int shipment : invoice.shipments)
            shipments += QString::number(shipment + 1);
        const Customer &customer = company.customers[size_t(invoice.customer)];
        invoices.add({id, QString::number(id), customer.name, Date(invoice.date), Date(invoice.due), customer.terms,
                      shipments.join(", "), invoice.total, invoice.cost});
    }
    auto payments = file.into("Payments", {"ID", "Invoice", "Date", "Amount", "Adjustment"});
    id = 0;
    for (const Payment &payment : company.payments)
        payments.add({++id, payment.invoice + 1, Date(payment.date), payment.amount, payment.adjustment});
}

void writeStock(const Company &company, BulkLoad &file)
{
    auto headers = file.into("AdjustmentHeader", {"ID", "Date", "DateAdded", "Warehouse"});
    auto lines = file.into("AdjustmentDetail", {"AdjustmentID", "PartNo", "Qty"});
    int id = 0;
    for (const Adjustment &adjustment : company.adjustments) {
        headers.add({++id, Date(adjustment.saved.date()), Date(adjustment.saved),
                     company.warehouses[size_t(adjustment.warehouse)].name});
        for (const StockLine &line : adjustment.lines)
            lines.add({id, company.parts[size_t(line.part)].number, double(line.qty)});
    }
    // Nothing but this marks an adjustment as half of a transfer.
    auto transfers = file.into("TransferHeader", {"ID", "FromID", "ToID"});
    id = 0;
    for (const Transfer &transfer : company.transfers)
        transfers.add({++id, transfer.from + 1, transfer.to + 1});

    auto ledger = file.into("AvailInv", {"Whse", "Part", "Avail"});
    for (int warehouse = 0; warehouse < int(company.warehouses.size()); ++warehouse) {
        for (int part = 0; part < int(company.parts.size()); ++part) {
            const size_t pair = company.pair(warehouse, part);
            if (company.moved[pair])
                ledger.add({company.warehouses[size_t(warehouse)].name, company.parts[size_t(part)].number,
                            company.avail[pair]});
        }
    }
}

} // namespace demo
