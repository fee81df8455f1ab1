#include "tools/demo/company.h"

namespace demo {

namespace {

/// Business grows over the years: a late day sees more orders than an early one.
std::vector<int> orderDays(const Company &company, int count, Random &random)
{
    const int days = int(company.businessDays.size());
    WeightedPick pick;
    for (int day = 0; day < days; ++day)
        pick.add(1000 + 400 * day / days);
    std::vector<int> chosen;
    for (int i = 0; i < count; ++i)
        chosen.push_back(pick(random));
    std::sort(chosen.begin(), chosen.end());
    return chosen;
}

/// Customers and parts by how often they come up.
class Demand
{
public:
    explicit Demand(const Company &company) : m_company(company)
    {
        for (const Customer &customer : company.customers)
            m_customers.add(customer.weight);
        for (const std::vector<int> &parts : company.carried) {
            m_parts.emplace_back();
            for (int part : parts)
                m_parts.back().add(company.parts[size_t(part)].weight);
        }
    }

    /// One that has gone inactive has no orders in the later half of the time.
    int customer(bool later, Random &random) const
    {
        for (;;) {
            const int customer = m_customers(random);
            if (!later || m_company.customers[size_t(customer)].active)
                return customer;
        }
    }

    int part(int warehouse, Random &random) const
    {
        return m_company.carried[size_t(warehouse)][size_t(m_parts[size_t(warehouse)](random))];
    }

private:
    const Company &m_company;
    WeightedPick m_customers;
    std::vector<WeightedPick> m_parts;
};

/// The customer's sheet price, else the list price, as order entry finds it.
double priceFor(const Customer &customer, const Part &part, const QStringList &sheets, Random &random)
{
    const qsizetype sheet = sheets.indexOf(customer.sheet);
    const double listed = sheet < 0 ? 0 : part.sheetPrices[size_t(sheet)];
    const double price = listed > 0 ? listed : part.salePrice;
    // Now and then the order desk types a price of its own.
    return random.perMille(30) ? double(qRound64(price * 95)) / 100 : price;
}

/// One to nine lines, of different parts that the warehouse carries.
std::vector<Line> makeLines(const Company &company, const Order &order, const Demand &demand, Random &random)
{
    // Four on average.
    static constexpr int counts[] = {1, 1, 2, 2, 2, 3, 3, 3, 4, 4, 5, 5, 6, 7, 8, 9};
    const int count = random.pick(counts);
    std::vector<Line> lines;
    while (int(lines.size()) < count) {
        Line line;
        line.part = demand.part(order.warehouse, random);
        // The desk adds to a line that is there and enters no second one.
        if (std::any_of(lines.begin(), lines.end(), [&](const Line &other) { return other.part == line.part; }))
            continue;
        const Part &part = company.parts[size_t(line.part)];
        line.qty = part.perPack * random.between(1, part.mostPacks);
        line.price = priceFor(company.customers[size_t(order.customer)], part, company.sheets, random);
        lines.push_back(line);
    }
    return lines;
}

} // namespace

void makeOrders(Company &company, Random &random)
{
    const int count = 2000 * company.options.scale;
    const Demand demand(company);
    const std::vector<QDate> runs = invoiceRuns(company);
    const std::vector<int> days = orderDays(company, count, random);
    company.orders.reserve(size_t(count));
    for (int i = 0; i < count; ++i) {
        Order order;
        order.date = company.businessDays[size_t(days[size_t(i)])];
        order.due = order.date.addDays(random.between(7, 21));
        order.customer = demand.customer(days[size_t(i)] * 2 > int(company.businessDays.size()), random);
        // The desk numbers most orders itself; some customers want their own number on it.
        order.number =
            random.perMille(80) ? QString("PO-%1").arg(random.between(100000, 999999)) : QString::number(10001 + i);
        const bool usual = random.perMille(920);
        order.warehouse = usual ? company.customers[size_t(order.customer)].warehouse : 0;
        order.lines = makeLines(company, order, demand, random);
        order.isVoid = random.perMille(12);
        // A drop shipment closes its order when it is billed, so the youngest ones are left out.
        order.dropShip = random.perMille(15) && !order.isVoid && order.date <= runs.back();
        company.orders.push_back(std::move(order));
    }
}

} // namespace demo
