#include "tools/demo/company.h"

namespace demo {

namespace {

constexpr const char *Carriers[] = {"Ground Parcel",   "Ground Parcel", "LTL Freight", "Company Truck",
                                    "Customer Pickup", "Next Day Air",  "Best Way"};

/// To the cent, more for more lines.
double freightFor(int lines, Random &random)
{
    if (random.perMille(250))
        return 0; // prepaid
    return double(random.between(650, 2400) + lines * random.between(150, 900)) / 100;
}

/// A charge, or a reduction where it is negative; rare.
double adjustmentFor(Random &random)
{
    static constexpr double amounts[] = {-50, -25, -12.5, 7.5, 15, 35};
    return random.perMille(30) ? random.pick(amounts) : 0;
}

/// What the first shipment leaves for later: nothing mostly, else a part of some lines.
std::vector<int> backOrdered(const Order &order, Random &random)
{
    std::vector<int> left(order.lines.size(), 0);
    if (!random.perMille(235))
        return left;
    for (size_t i = 0; i < left.size(); ++i) {
        if (random.perMille(400))
            left[i] = order.lines[i].qty * random.between(1, 3) / 3;
    }
    // Something leaves with every shipment.
    if (left[0] == order.lines[0].qty)
        left[0] = 0;
    return left;
}

/// Ships the orders one by one. What would leave behind the company's last day stays open.
class Shipping
{
public:
    Shipping(Company &company, Random &random) : m_company(company), m_random(random) {}

    void ship(int position)
    {
        Order &order = m_company.orders[size_t(position)];
        if (order.isVoid)
            return;
        if (order.dropShip) {
            add(position, order.date, std::vector<int>(order.lines.size(), 0));
            return;
        }
        const QDate first = m_company.businessDaysAfter(order.date, m_random.between(1, 8));
        std::vector<int> left = backOrdered(order, m_random);
        if (!first.isValid())
            return;
        add(position, first, left);
        const QDate second = m_company.businessDaysAfter(first, m_random.between(4, 20));
        // A few back orders are never filled and keep their order open for good.
        const bool forgotten = m_random.perMille(20);
        if (second.isValid() && !forgotten && std::any_of(left.begin(), left.end(), [](int qty) { return qty > 0; }))
            add(position, second, std::vector<int>(left.size(), 0));
    }

private:
    /// Ships of every line what is not shipped yet, but for what is left for later.
    void add(int position, QDate date, const std::vector<int> &left)
    {
        Order &order = m_company.orders[size_t(position)];
        Shipment shipment;
        shipment.order = position;
        shipment.date = date;
        for (size_t i = 0; i < order.lines.size(); ++i) {
            Line &line = order.lines[i];
            const int qty = line.qty - line.shipped - left[i];
            if (qty <= 0)
                continue;
            shipment.lines.push_back({int(i), qty});
            line.shipped += qty;
        }
        shipment.freight = freightFor(int(shipment.lines.size()), m_random);
        if (!order.dropShip) {
            shipment.via = QString::fromLatin1(m_random.pick(Carriers));
            shipment.adjustment = adjustmentFor(m_random);
        }
        m_company.shipments.push_back(std::move(shipment));
    }

    Company &m_company;
    Random &m_random;
};

} // namespace

void makeShipments(Company &company, Random &random)
{
    Shipping shipping(company, random);
    for (size_t order = 0; order < company.orders.size(); ++order)
        shipping.ship(int(order));
    // They are numbered as they leave.
    std::stable_sort(company.shipments.begin(), company.shipments.end(),
                     [](const Shipment &a, const Shipment &b) { return a.date < b.date; });
}

} // namespace demo
