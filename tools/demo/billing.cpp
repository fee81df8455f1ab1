#include "tools/demo/company.h"

#include "data/values/numbers.h"
#include <numeric>

namespace demo {

namespace {

/// Freight, adjustments and lines apart from each other, as the invoice adds them up.
void addUp(const Company &company, Invoice &invoice)
{
    double freight = 0, adjustment = 0, lines = 0;
    for (int position : invoice.shipments) {
        const Shipment &shipment = company.shipments[size_t(position)];
        const Order &order = company.orders[size_t(shipment.order)];
        freight += shipment.freight;
        adjustment += shipment.adjustment;
        for (const ShipmentLine &shipped : shipment.lines) {
            const Line &line = order.lines[size_t(shipped.line)];
            lines += shipped.qty * line.price;
            invoice.cost += company.parts[size_t(line.part)].cost * shipped.qty;
        }
    }
    invoice.total = roundTo2(freight + adjustment + lines);
}

/// One run: an invoice for each customer with something to bill, in the order of their names.
void bill(Company &company, std::vector<int> shipments, const std::vector<int> &rankOfCustomer, QDate date)
{
    const auto customerOf = [&](int shipment) {
        return company.orders[size_t(company.shipments[size_t(shipment)].order)].customer;
    };
    // Stable: a customer's shipments stay in the order of their numbers, as the invoice lists them.
    std::stable_sort(shipments.begin(), shipments.end(), [&](int a, int b) {
        return rankOfCustomer[size_t(customerOf(a))] < rankOfCustomer[size_t(customerOf(b))];
    });
    for (size_t i = 0; i < shipments.size();) {
        Invoice invoice;
        invoice.customer = customerOf(shipments[i]);
        invoice.date = date;
        invoice.due = date.addDays(company.customers[size_t(invoice.customer)].days);
        for (; i < shipments.size() && customerOf(shipments[i]) == invoice.customer; ++i) {
            invoice.shipments.push_back(shipments[i]);
            company.shipments[size_t(shipments[i])].invoiced = true;
        }
        addUp(company, invoice);
        company.invoices.push_back(std::move(invoice));
    }
}

/// By customer, the place of its name in the order of the invoice run's query, which does not look at case.
std::vector<int> ranksByName(const std::vector<Customer> &customers)
{
    std::vector<int> order(customers.size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&](int a, int b) {
        return customers[size_t(a)].name.compare(customers[size_t(b)].name, Qt::CaseInsensitive) < 0;
    });
    std::vector<int> ranks(customers.size());
    for (size_t rank = 0; rank < order.size(); ++rank)
        ranks[size_t(order[rank])] = int(rank);
    return ranks;
}

/// Lets customers pay: most once and in full, some in two parts, some a little short with the rest written off.
/// A payment that would come behind the last day is not there yet, and its invoice is open or overdue.
class Receipts
{
public:
    Receipts(Company &company, Random &random) : m_company(company), m_random(random) {}

    void pay(int position)
    {
        const Invoice &invoice = m_company.invoices[size_t(position)];
        // Late and early by the customer's habit, but never before the invoice is out of the house.
        const bool slow = m_company.customers[size_t(invoice.customer)].slowPayer;
        const int late = slow ? m_random.between(15, 75) : m_random.between(-6, 14);
        const QDate date = std::max(invoice.due.addDays(late), invoice.date.addDays(2));
        const int kind = m_random.below(1000);
        if (kind < 15 || invoice.total <= 0)
            return; // never paid
        if (kind < 335) {
            const double first = roundTo2(invoice.total * m_random.between(30, 70) / 100);
            add(position, date, first, 0);
            add(position, date.addDays(m_random.between(20, 45)), roundTo2(invoice.total - first), 0);
        } else if (kind < 375) {
            const double writtenOff = roundTo2(invoice.total * m_random.between(1, 20) / 1000);
            add(position, date, roundTo2(invoice.total - writtenOff), writtenOff);
        } else {
            add(position, date, invoice.total, 0);
        }
    }

private:
    void add(int invoice, QDate date, double amount, double adjustment)
    {
        const QDate received = m_company.businessDayFrom(date);
        if (received.isValid())
            m_company.payments.push_back({invoice, received, amount, adjustment});
    }

    Company &m_company;
    Random &m_random;
};

} // namespace

void makeInvoices(Company &company)
{
    const std::vector<int> ranks = ranksByName(company.customers);
    size_t next = 0;
    for (const QDate run : invoiceRuns(company)) {
        std::vector<int> shipments;
        for (; next < company.shipments.size() && company.shipments[next].date <= run; ++next)
            shipments.push_back(int(next));
        bill(company, std::move(shipments), ranks, run);
    }
}

void makePayments(Company &company, Random &random)
{
    Receipts receipts(company, random);
    for (size_t invoice = 0; invoice < company.invoices.size(); ++invoice)
        receipts.pay(int(invoice));
    std::stable_sort(company.payments.begin(), company.payments.end(),
                     [](const Payment &a, const Payment &b) { return a.date < b.date; });
}

} // namespace demo
