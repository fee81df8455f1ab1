#pragma once

#include "tools/demo/options.h"
#include "tools/demo/random.h"
#include <QStringList>

/// The made-up company while it is being made: everything that goes into the file, with IDs already given.
/// Documents refer to each other, to customers, parts and warehouses by position in these lists; an ID is the
/// position plus 1.
namespace demo {

/// As Customer and Warehouse hold it; `territory` goes by the state.
struct Address
{
    QString line1, line2, city, state, zip, phone, fax, territory;
};

/// One of the places that hold stock. All of them are active.
struct Warehouse
{
    QString name, contact;
    Address address;
};

/// With the habits by which orders and payments come out of it.
struct Customer
{
    QString name, shipTo, terms, sheet;
    Address billing, shipping; ///< no ship-to at all when `shipTo` is empty
    int days = 0;
    int warehouse = 0; ///< the one it usually orders from
    int weight = 1;    ///< how often it orders, against the others
    bool active = true, statements = false, slowPayer = false, hasTerritory = true, usesOwnNumbers = false;
};

/// Prices are to the cent. An inactive part has no orders and no stock.
struct Part
{
    QString number, category, vendor, leadTime, superceded, bin;
    int perPack = 1, mostPacks = 1; ///< what an order takes of it
    int minOnHand = 0, reorderQty = 0;
    int weight = 1; ///< how often it is ordered, against the others
    double cost = 0, salePrice = 0;
    bool active = true;
    std::vector<double> sheetPrices; ///< by sheet; 0 when the sheet does not name the part
};

/// An order line; its ItemNumber is its position in the order plus 1.
struct Line
{
    int part = 0;
    int qty = 0;
    int shipped = 0;
    double price = 0;
};

/// In the list by date, and so numbered by date.
struct Order
{
    QString number;
    int customer = 0, warehouse = 0;
    QDate date, due;
    bool isVoid = false, dropShip = false;
    std::vector<Line> lines;

    /// The rule that closes an order. A void order has nothing shipped and is not complete.
    bool complete() const
    {
        return std::all_of(lines.begin(), lines.end(), [](const Line &line) { return line.shipped >= line.qty; });
    }
};

/// What one shipment takes of one line.
struct ShipmentLine
{
    int line = 0; ///< position in the order
    int qty = 0;
};

/// A drop shipment leaves from the vendor on the day of its order.
struct Shipment
{
    int order = 0;
    QDate date;
    QString via; ///< none on a drop shipment
    double freight = 0, adjustment = 0;
    bool invoiced = false;
    std::vector<ShipmentLine> lines;
};

/// Covers everything unbilled of one customer at one run; `shipments` ascend.
struct Invoice
{
    int customer = 0;
    QDate date, due;
    std::vector<int> shipments;
    double total = 0, cost = 0;
};

/// Money received, or written off, against one invoice.
struct Payment
{
    int invoice = 0;
    QDate date;
    double amount = 0, adjustment = 0;
};

/// A quantity with its sign: out of the warehouse is negative.
struct StockLine
{
    int part = 0;
    int qty = 0;
};

/// A stock adjustment or one half of a transfer.
struct Adjustment
{
    int warehouse = 0;
    QDateTime saved; ///< the day is the document's date
    std::vector<StockLine> lines;
};

struct Transfer
{
    int from = 0, to = 0; ///< its halves
};

/// All lists stand in the order in which the rows go into the tables.
struct Company
{
    DemoOptions options;
    QDate start;
    std::vector<QDate> businessDays;

    QStringList sheets;
    std::vector<Warehouse> warehouses; ///< the plant first
    std::vector<Part> parts;
    std::vector<std::vector<int>> carried; ///< by warehouse, the parts it stocks
    std::vector<Customer> customers;

    std::vector<Order> orders;
    std::vector<Shipment> shipments;
    std::vector<Invoice> invoices;
    std::vector<Payment> payments;
    std::vector<Adjustment> adjustments;
    std::vector<Transfer> transfers;
    std::vector<int> avail;  ///< by warehouse * number of parts + part, as a rebuild leaves it
    std::vector<bool> moved; ///< the pairs that have a row

    size_t pair(int warehouse, int part) const { return size_t(warehouse) * parts.size() + size_t(part); }

    /// The first business day on or after a date; invalid behind the last one.
    QDate businessDayFrom(QDate date) const;
    /// The business day that many days behind another; invalid behind the last one.
    QDate businessDaysAfter(QDate date, int count) const;
};

// The steps, in order.
void makeCalendar(Company &company);
void makeMasters(Company &company, Random &random);
void makeParts(Company &company, Random &random);
void makeOrders(Company &company, Random &random);
void makeShipments(Company &company, Random &random);
void makeInvoices(Company &company);
void makePayments(Company &company, Random &random);
void makeStock(Company &company, Random &random);

/// The days on which shipments are billed: the middle and the end of each month.
std::vector<QDate> invoiceRuns(const Company &company);

} // namespace demo
