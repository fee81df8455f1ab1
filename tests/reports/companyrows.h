#pragma once

#include "data/values/value.h"
#include <QHash>
#include <QStringList>
#include <vector>

// What the reports must show, worked out from the bare rows of the tables by loops, with no SQL but "all rows of".

using TableRow = QHash<QString, Value>;

struct Company
{
    /// Reads every table of `gDatabase`.
    Company();

    std::vector<TableRow> orders, items, shipments, shipmentItems, invoices, payments, adjustments, adjustmentLines,
        transfers, parts, customers, warehouses, availInv, counts;
};

// The rows of each report in any order, as texts. Dates are of midnight, both ends inclusive.
QStringList expectedSalesDetails(const Company &company, const Date &begin, const Date &end, bool withWarehouse);

enum class SalesKey { Customer, Category, Territory };
struct Period
{
    Date from, to;
};
/// The four periods' sums per customer, or per category or territory and customer.
QStringList expectedComparison(const Company &company, SalesKey key, const std::array<Period, 4> &periods);

QStringList expectedRegister(const Company &company, const Date &begin, const Date &end, const QString &category);
QStringList expectedInventorySales(const Company &company, const Date &begin, const Date &end);
QStringList expectedProduction(const Company &company, int months, int req, const Date &start, const Date &end);
/// With days given, of the customers alone that owe something of an invoice older than that.
QStringList expectedOpenInvoices(const Company &company, const Date &asOf, int overDays = -1);
QStringList expectedStatements(const Company &company, const Date &asOf);
QStringList expectedCashReceipts(const Company &company, const Date &begin, const Date &end);
QStringList expectedInvoiceRegister(const Company &company, const Date &begin, const Date &end);
QStringList expectedCustomerRegister(const Company &company, const QString &customer, const Date &begin,
                                     const Date &end);
/// `Shipment.InvoiceDate` of every shipment that an invoice names.
QHash<int, Date> invoiceDates(const Company &company);
