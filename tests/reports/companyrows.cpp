#include "tests/reports/companyrows.h"
#include "tests/reports/reporttest.h"
#include "toolkit/forms/mainmod.h"

namespace {

std::vector<TableRow> all(const char *table)
{
    std::vector<TableRow> result;
    for (auto rows = gDatabase->OpenRecordset(QString("SELECT * FROM ") + table); !rows.Eof(); rows.MoveNext()) {
        TableRow row;
        for (int column = 0; column < rows.fieldCount(); ++column)
            row[rows.Fields(column).Name()] = rows.Fields(column).value();
        result.push_back(row);
    }
    return result;
}

double number(const TableRow &row, const char *column)
{
    const Value value = row[column];
    return value.isNull() ? 0 : value.toDouble();
}

int id(const TableRow &row, const char *column = "ID")
{
    return int(number(row, column));
}

QString name(const TableRow &row, const char *column)
{
    return row[column].joined();
}

using ById = QHash<int, const TableRow *>;

ById byId(const std::vector<TableRow> &rows)
{
    ById index;
    for (const TableRow &row : rows)
        index[id(row)] = &row;
    return index;
}

QHash<QString, const TableRow *> byName(const std::vector<TableRow> &rows, const char *column)
{
    QHash<QString, const TableRow *> index;
    for (const TableRow &row : rows)
        index[name(row, column)] = &row;
    return index;
}

/// Order lines by (order, line).
QHash<std::pair<int, int>, const TableRow *> linesOf(const Company &company)
{
    QHash<std::pair<int, int>, const TableRow *> index;
    for (const TableRow &item : company.items)
        index[{id(item, "OrderID"), id(item, "ItemNumber")}] = &item;
    return index;
}

/// One shipped line with all that belongs to it.
struct ShippedLine
{
    const TableRow &line, &shipment, &order, &item;
    const TableRow *part;
    double qty() const { return number(line, "Qty"); }
    QString partNo() const { return name(item, "PartNo"); }
};

std::vector<ShippedLine> shippedLines(const Company &company)
{
    const ById shipments = byId(company.shipments), orders = byId(company.orders);
    const auto lines = linesOf(company);
    const auto parts = byName(company.parts, "PartNo");
    std::vector<ShippedLine> result;
    for (const TableRow &line : company.shipmentItems) {
        const TableRow *shipment = shipments.value(id(line, "ShipmentID"));
        const TableRow *order = shipment ? orders.value(id(*shipment, "OrderID")) : nullptr;
        const TableRow *item = order ? lines.value({id(*order), id(line, "OrderLineItem")}) : nullptr;
        if (item)
            result.push_back({line, *shipment, *order, *item, parts.value(name(*item, "PartNo"))});
    }
    return result;
}

bool within(const Value &date, const Date &begin, const Date &end)
{
    return !date.isNull() && date.toDate() >= begin && date.toDate() <= end;
}

struct Movement
{
    QString warehouse, part, memo;
    Date date;
    double qty;
    Value cost;
    Value category;
};

std::vector<Movement> movementsUpTo(const Company &company, const Date &end)
{
    const auto parts = byName(company.parts, "PartNo");
    QHash<int, QStringList> transfersOf; // by adjustment
    for (const TableRow &transfer : company.transfers) {
        for (const char *side : {"FromID", "ToID"})
            transfersOf[id(transfer, side)] += "Transfer ID - " + name(transfer, "ID");
    }
    std::vector<Movement> result;
    const auto add = [&](const QString &warehouse, const QString &partNo, const Value &date, double qty,
                         const QString &memo) {
        const TableRow *part = parts.value(partNo);
        if (date.toDate() <= end)
            result.push_back({warehouse, partNo, memo, date.toDate(), qty, part ? (*part)["Cost"] : Value(),
                              part ? (*part)["Category"] : Value()});
    };
    const ById headers = byId(company.adjustments);
    for (const TableRow &line : company.adjustmentLines) {
        const TableRow &header = *headers[id(line, "AdjustmentID")];
        const QStringList memos = transfersOf.contains(id(header))
                                      ? transfersOf[id(header)]
                                      : QStringList("Adjustment ID - " + name(header, "ID"));
        for (const QString &memo : memos)
            add(name(header, "Warehouse"), name(line, "PartNo"), header["Date"], number(line, "Qty"), memo);
    }
    for (const ShippedLine &line : shippedLines(company))
        add(name(line.order, "Warehouse"), line.partNo(), line.shipment["Date"], -line.qty(),
            "Shipment ID - " + name(line.shipment, "ID"));
    return result;
}

/// Payments of an invoice up to a day.
std::pair<double, double> receivedAndAdjusted(const Company &company, int invoice, const Date &asOf)
{
    double received = 0, adjusted = 0;
    for (const TableRow &payment : company.payments) {
        if (id(payment, "Invoice") == invoice && payment["Date"].toDate() <= asOf) {
            received += number(payment, "Amount");
            adjusted += number(payment, "Adjustment");
        }
    }
    return {received, adjusted};
}

} // namespace

QHash<int, Date> invoiceDates(const Company &company)
{
    std::vector<const TableRow *> invoices;
    for (const TableRow &invoice : company.invoices) {
        if (!invoice["Shipment"].isNull() && name(invoice, "Shipment") != "0")
            invoices.push_back(&invoice);
    }
    std::stable_sort(invoices.begin(), invoices.end(),
                     [](const TableRow *a, const TableRow *b) { return name(*a, "Shipment") < name(*b, "Shipment"); });
    QHash<int, Date> dates;
    for (const TableRow *invoice : invoices) {
        for (const QString &shipment : name(*invoice, "Shipment").split(", "))
            dates[shipment.toInt()] = (*invoice)["InvoiceDate"].toDate();
    }
    return dates;
}

Company::Company()
    : orders(all("Orders")), items(all("OrderItem")), shipments(all("Shipment")), shipmentItems(all("ShipmentItems")),
      invoices(all("Invoice")), payments(all("Payments")), adjustments(all("AdjustmentHeader")),
      adjustmentLines(all("AdjustmentDetail")), transfers(all("TransferHeader")), parts(all("Part")),
      customers(all("Customer")), warehouses(all("Warehouse")), availInv(all("AvailInv")), counts(all("FebInventory"))
{
}

QStringList expectedSalesDetails(const Company &company, const Date &begin, const Date &end, bool withWarehouse)
{
    const auto dates = invoiceDates(company);
    QStringList result;
    for (const ShippedLine &line : shippedLines(company)) {
        const int shipment = id(line.shipment);
        if (!line.part || !dates.contains(shipment) || !within(dates[shipment], begin, end))
            continue;
        std::vector<Value> row;
        if (withWarehouse)
            row.push_back(line.order["Warehouse"]);
        row.insert(row.end(), {line.partNo(), line.order["Customer"], shipment, line.shipment["Date"], line.qty(),
                               line.qty() * number(line.item, "PriceEach"), line.qty() * number(*line.part, "Cost")});
        result += rowText(row);
    }
    return result;
}

QStringList expectedComparison(const Company &company, SalesKey key, const std::array<Period, 4> &periods)
{
    const auto dates = invoiceDates(company);
    const auto customers = byName(company.customers, "Customer");
    std::map<std::pair<QString, QString>, std::vector<Value>> sums;
    for (const ShippedLine &line : shippedLines(company)) {
        if (!dates.contains(id(line.shipment)))
            continue;
        const Date date = dates[id(line.shipment)];
        const QString customer = name(line.order, "Customer");
        QString group;
        if (key == SalesKey::Category && line.part)
            group = name(*line.part, "Category");
        if (key == SalesKey::Territory && customers.contains(customer))
            group = name(*customers[customer], "Territory");
        for (size_t period = 0; period < periods.size(); ++period) {
            if (!within(date, periods[period].from, periods[period].to))
                continue;
            auto &amounts = sums[{group, customer}];
            amounts.resize(8);
            const auto add = [&](size_t column, double amount) {
                amounts[column] = (amounts[column].isNull() ? 0 : amounts[column].toDouble()) + amount;
            };
            add(2 * period, line.qty() * number(line.item, "PriceEach"));
            add(2 * period + 1, line.qty() * (line.part ? number(*line.part, "Cost") : 0));
        }
    }
    QStringList result;
    for (const auto &[keys, amounts] : sums) {
        const QString text = keys.second + "|" + rowText(amounts);
        result += key == SalesKey::Customer ? text : keys.first + "|" + text;
    }
    return result;
}

QStringList expectedRegister(const Company &company, const Date &begin, const Date &end, const QString &category)
{
    QStringList result;
    std::map<std::tuple<QString, QString, QString>, double> balances;
    for (const Movement &movement : movementsUpTo(company, end)) {
        if (!category.isEmpty() && movement.category.joined() != category)
            continue;
        if (movement.date < begin)
            balances[{movement.warehouse, movement.part, movement.cost.joined()}] += movement.qty;
        else
            result +=
                rowText({movement.warehouse, movement.part, movement.date, movement.qty, movement.cost, movement.memo});
    }
    for (const auto &[key, qty] : balances) {
        const auto &[warehouse, part, cost] = key;
        result += rowText(
            {warehouse, part, begin, qty, cost.isEmpty() ? Value() : Value(cost.toDouble()), "*Beginning Balance"});
    }
    return result;
}

QStringList expectedInventorySales(const Company &company, const Date &begin, const Date &end)
{
    const auto parts = byName(company.parts, "PartNo");
    QHash<QString, double> inPeriod, before, stock;
    for (const ShippedLine &line : shippedLines(company)) {
        const Date date = line.shipment["Date"].toDate();
        if (date >= begin && date <= end)
            inPeriod[line.partNo()] += line.qty();
        if (date >= Date(2003, 2, 28) && date < begin)
            before[line.partNo()] += line.qty();
    }
    for (const Movement &movement : movementsUpTo(company, end))
        stock[movement.part] += movement.qty;
    const auto sum = [](const QHash<QString, double> &sums, const QString &part) {
        return sums.contains(part) ? Value(sums[part]) : Value();
    };
    QStringList result;
    for (const TableRow &count : company.counts) {
        const QString part = name(count, "Part");
        result += rowText({part, parts.contains(part) ? (*parts[part])["Cost"] : Value(), count["Qty"],
                           sum(inPeriod, part), sum(before, part), sum(stock, part)});
    }
    return result;
}

QStringList expectedProduction(const Company &company, int months, int req, const Date &start, const Date &end)
{
    using Key = std::pair<QString, QString>;
    std::map<Key, std::vector<Value>> sums;
    const auto add = [&](const QString &warehouse, const QString &part, size_t column, double qty) {
        auto &row = sums[{warehouse, part}];
        row.resize(3);
        row[column] = (row[column].isNull() ? 0 : row[column].toDouble()) + qty;
    };
    const auto dates = invoiceDates(company);
    for (const ShippedLine &line : shippedLines(company)) {
        const QString warehouse = name(line.order, "Warehouse");
        const int shipment = id(line.shipment);
        if (dates.contains(shipment) && within(dates[shipment], start, end))
            add(warehouse, line.partNo(), 0, line.qty());
        if (line.shipment["Invoiced"].toBoolean())
            add(warehouse, line.partNo(), 1, -line.qty());
    }
    const ById headers = byId(company.adjustments);
    for (const TableRow &line : company.adjustmentLines)
        add(name(*headers[id(line, "AdjustmentID")], "Warehouse"), name(line, "PartNo"), 1, number(line, "Qty"));

    // Per order: its lines when nothing was shipped, else all that was shipped, once per uninvoiced shipment.
    QHash<int, int> shipments, uninvoiced;
    for (const TableRow &shipment : company.shipments) {
        ++shipments[id(shipment, "OrderID")];
        uninvoiced[id(shipment, "OrderID")] += !shipment["Invoiced"].toBoolean();
    }
    const ById orders = byId(company.orders);
    for (const TableRow &item : company.items) {
        const TableRow *order = orders.value(id(item, "OrderID"));
        if (order && shipments.value(id(*order)) == 0)
            add(name(*order, "Warehouse"), name(item, "PartNo"), 2, number(item, "Qty"));
    }
    const auto lines = linesOf(company);
    for (const TableRow &line : company.shipmentItems) {
        const int order = id(line, "OrderID");
        const TableRow *item = lines.value({order, id(line, "OrderLineItem")});
        for (int times = 0; item && times < uninvoiced.value(order); ++times)
            add(name(*orders[order], "Warehouse"), name(*item, "PartNo"), 2, number(line, "Qty"));
    }
    QStringList result;
    for (const auto &[key, row] : sums)
        result += rowText({key.first, key.second, months, req, row[0], row[1], row[2]});
    return result;
}

QStringList expectedOpenInvoices(const Company &company, const Date &asOf, int overDays)
{
    const auto customers = byName(company.customers, "Customer");
    QStringList result;
    QSet<QString> overdue;
    for (const TableRow &invoice : company.invoices) {
        if (invoice["InvoiceDate"].toDate() > asOf)
            continue;
        const auto [received, adjusted] = receivedAndAdjusted(company, id(invoice), asOf);
        if (invoice["InvoiceDate"].toDate() < asOf.addDays(-overDays) &&
            number(invoice, "Total") - received - adjusted > 0.001)
            overdue += name(invoice, "Customer");
        const TableRow *customer = customers.value(name(invoice, "Customer"));
        result +=
            rowText({invoice["Customer"], customer ? (*customer)["Phone"] : Value(),
                     customer ? (*customer)["Fax"] : Value(), invoice["Invoice"], invoice["InvoiceDate"],
                     invoice["DueDate"], invoice["Terms"], invoice["Shipment"], invoice["Total"], adjusted, received});
    }
    if (overDays >= 0)
        result.removeIf([&](const QString &row) { return !overdue.contains(row.section('|', 0, 0)); });
    return result;
}

QStringList expectedStatements(const Company &company, const Date &asOf)
{
    const auto customers = byName(company.customers, "Customer");
    QStringList result;
    for (const TableRow &invoice : company.invoices) {
        const TableRow *customer = customers.value(name(invoice, "Customer"));
        if (!customer || !(*customer)["PrintStatements"].toBoolean() || invoice["InvoiceDate"].toDate() > asOf)
            continue;
        const auto [received, adjusted] = receivedAndAdjusted(company, id(invoice), asOf);
        std::vector<Value> row;
        for (const char *column : {"Customer", "Address1", "Address2", "City", "State", "Zip"})
            row.push_back((*customer)[column]);
        for (const char *column : {"Invoice", "InvoiceDate", "DueDate", "Terms", "Shipment", "Total"})
            row.push_back(invoice[column]);
        row.insert(row.end(), {adjusted, received});
        result += rowText(row);
    }
    return result;
}

QStringList expectedCustomerRegister(const Company &company, const QString &customer, const Date &begin,
                                     const Date &end)
{
    QStringList result;
    const ById invoices = byId(company.invoices);
    for (const TableRow &invoice : company.invoices) {
        if (name(invoice, "Customer") == customer && within(invoice["InvoiceDate"], begin, end))
            result += rowText({invoice["InvoiceDate"], "Invoice", invoice["Invoice"], invoice["ID"], invoice["Total"]});
    }
    for (const TableRow &payment : company.payments) {
        const TableRow *invoice = invoices.value(id(payment, "Invoice"));
        if (!invoice || name(*invoice, "Customer") != customer || !within(payment["Date"], begin, end))
            continue;
        const auto add = [&](const char *type, const Value &amount) {
            result += rowText({payment["Date"], type, (*invoice)["ID"], payment["ID"], amount});
        };
        add("Payment", payment["Amount"]);
        if (number(payment, "Adjustment") != 0)
            add("Adjustment", payment["Adjustment"]);
    }
    return result;
}

QStringList expectedCashReceipts(const Company &company, const Date &begin, const Date &end)
{
    const ById invoices = byId(company.invoices);
    QStringList result;
    for (const TableRow &payment : company.payments) {
        if (!within(payment["Date"], begin, end))
            continue;
        const TableRow none, *invoice = invoices.value(id(payment, "Invoice"), &none);
        result += rowText({payment["ID"], (*invoice)["Invoice"], (*invoice)["Customer"], payment["Date"],
                           (*invoice)["Total"], payment["Adjustment"], payment["Amount"]});
    }
    return result;
}

QStringList expectedInvoiceRegister(const Company &company, const Date &begin, const Date &end)
{
    const ById shipments = byId(company.shipments);
    QStringList result;
    for (const TableRow &invoice : company.invoices) {
        if (!within(invoice["InvoiceDate"], begin, end))
            continue;
        double freight = 0, adjustment = 0;
        for (const QString &shipment : name(invoice, "Shipment").split(", ")) {
            const TableRow *row = shipments.value(shipment.toInt());
            freight += row ? number(*row, "Freight") : 0;
            adjustment += row ? number(*row, "Adjustment") : 0;
        }
        result +=
            rowText({invoice["Customer"], invoice["Invoice"], invoice["InvoiceDate"], invoice["DueDate"],
                     invoice["Terms"], invoice["Shipment"], invoice["Total"], freight, adjustment, invoice["Cost"]});
    }
    return result;
}
