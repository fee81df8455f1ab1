#include "tools/demo/writetables.h"

#include "data/dao/bulkload.h"
#include "tools/demo/company.h"

namespace demo {

namespace {

/// Null for the empty text, as a form leaves a column that nothing was typed into.
Value orNull(const QString &text)
{
    return text.isEmpty() ? Value() : Value(text);
}

/// The words of the status lists.
Value status(bool active)
{
    return active ? "Active" : "InActive";
}

/// A moment in the years before the first order.
Value addedBefore(const Company &company, Random &random)
{
    return Date(QDateTime(company.start.addDays(-random.between(1, 1500)), QTime(8, 0).addSecs(random.below(9 * 3600)),
                          Qt::UTC));
}

} // namespace

void writeWarehouses(const Company &company, BulkLoad &file, Random &random)
{
    auto rows = file.into("Warehouse", {"Warehouse", "Address1", "Address2", "City", "State", "Zip", "Phone", "Fax",
                                        "Contact", "Status", "DateAdded"});
    for (const Warehouse &warehouse : company.warehouses) {
        const Address &at = warehouse.address;
        rows.add({warehouse.name, at.line1, at.line2, at.city, at.state, at.zip, at.phone, at.fax, warehouse.contact,
                  status(true), addedBefore(company, random)});
    }
}

void writeCustomers(const Company &company, BulkLoad &file, Random &random)
{
    auto rows = file.into(
        "Customer", {"Customer",       "Address1",   "Address2",    "City",      "State",          "Zip",
                     "Phone",          "Fax",        "Status",      "DateAdded", "ShipTo",         "ShipToAddress1",
                     "ShipToAddress2", "ShipToCity", "ShipToState", "ShipToZip", "ShipToPhone",    "ShipToFax",
                     "Terms",          "Days",       "PriceSheet",  "Territory", "PrintStatements"});
    for (const Customer &customer : company.customers) {
        const Address &bill = customer.billing, &ship = customer.shipping;
        const bool known = !customer.shipTo.isEmpty();
        // A customer that never said where to ship has Null in all ship-to columns.
        const auto shipping = [known](const QString &text) { return known ? Value(text) : Value(); };
        rows.add({customer.name,
                  bill.line1,
                  bill.line2,
                  bill.city,
                  bill.state,
                  bill.zip,
                  bill.phone,
                  bill.fax,
                  status(customer.active),
                  addedBefore(company, random),
                  shipping(customer.shipTo),
                  shipping(ship.line1),
                  shipping(ship.line2),
                  shipping(ship.city),
                  shipping(ship.state),
                  shipping(ship.zip),
                  shipping(ship.phone),
                  shipping(ship.fax),
                  customer.terms,
                  customer.days,
                  orNull(customer.sheet),
                  customer.hasTerritory ? Value(bill.territory) : Value(),
                  customer.statements});
    }
}

void writeParts(const Company &company, BulkLoad &file, Random &random)
{
    auto rows = file.into("Part", {"PartNo", "Category", "Vendor", "LeadTime", "Superceded", "BinLocation", "MinOnHand",
                                   "ReorderQty", "QtyPerPack", "Cost", "SalePrice", "Status", "DateAdded"});
    auto prices = file.into("PriceSheet", {"PriceSheet", "Part", "Price"});
    for (const Part &part : company.parts) {
        rows.add({part.number, part.category, orNull(part.vendor), orNull(part.leadTime), orNull(part.superceded),
                  part.bin, double(part.minOnHand), double(part.reorderQty), double(part.perPack), part.cost,
                  part.salePrice, status(part.active), addedBefore(company, random)});
        for (size_t sheet = 0; sheet < part.sheetPrices.size(); ++sheet) {
            if (part.sheetPrices[sheet] > 0)
                prices.add({company.sheets[qsizetype(sheet)], part.number, part.sheetPrices[sheet]});
        }
    }
}

void writeOldTables(const Company &company, BulkLoad &file, Random &random)
{
    auto counted = file.into("FebInventory", {"Part", "Qty"});
    for (const Part &part : company.parts) {
        if (random.perMille(850))
            counted.add({part.number, random.between(0, 8) * part.minOnHand / 4});
    }
    // The earlier system had codes for its warehouses; the first was the plant's.
    static constexpr const char *codes[] = {"DG699", "CR214", "RN305"};
    auto balances = file.into("Inventory", {"Part", "Warehouse", "Tran", "Qty"});
    for (size_t i = 0; i < 40; ++i) {
        for (const char *code : codes) {
            if (random.perMille(600))
                balances.add({company.parts[i].number, code, "Beg Bal", double(random.between(1, 60) * 5)});
        }
    }
}

} // namespace demo
