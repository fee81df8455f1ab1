#include "tools/demo/company.h"

namespace demo {

namespace {

constexpr int Plant = 0;

/// Keeps the warehouses stocked while the orders come in: production goes into the plant, transfers go out of it.
class Stock
{
public:
    Stock(Company &company, Random &random)
        : m_company(company), m_random(random), m_unsold(company.warehouses.size() * company.parts.size(), 0),
          m_made(m_unsold.size(), 0)
    {
        company.avail.assign(m_unsold.size(), 0);
        company.moved.assign(m_unsold.size(), false);
    }

    /// What each warehouse held on the first day.
    void open()
    {
        for (int warehouse = 0; warehouse < int(m_company.warehouses.size()); ++warehouse) {
            std::vector<StockLine> lines;
            for (int part : m_company.carried[size_t(warehouse)]) {
                const Part &kind = m_company.parts[size_t(part)];
                lines.push_back({part, kind.minOnHand * m_random.between(10, 30) / 10});
            }
            adjust(warehouse, m_company.start, std::move(lines));
        }
    }

    /// Takes orders up to a day off what can still be sold, then fills up what ran low.
    void replenish(QDate day)
    {
        std::vector<std::vector<int>> low(m_company.warehouses.size());
        for (; m_nextOrder < m_company.orders.size() && m_company.orders[m_nextOrder].date <= day; ++m_nextOrder)
            sell(m_company.orders[m_nextOrder], low);
        for (int warehouse = 1; warehouse < int(low.size()); ++warehouse)
            transfer(warehouse, day, fillUp(warehouse, low[size_t(warehouse)]), low[Plant]);
        // The plant last: what the others take out of it may have brought it below its minimum.
        adjust(Plant, day, fillUp(Plant, low[Plant]));
    }

    /// A count finds some parts more and some less than the books have.
    void count(QDate day)
    {
        for (int warehouse = 0; warehouse < int(m_company.warehouses.size()); ++warehouse) {
            std::vector<StockLine> lines;
            for (int part : m_company.carried[size_t(warehouse)]) {
                if (const int found = m_random.perMille(8) ? m_random.between(-4, 3) : 0)
                    lines.push_back({part, found});
            }
            adjust(warehouse, day, std::move(lines));
        }
    }

    /// Leaves the ledger as a rebuild does: shipments with minus, drop shipments too, and the outgoing halves of
    /// transfers added back.
    void rebuildLedger()
    {
        std::vector<int> sign(m_company.adjustments.size(), 1);
        for (const Transfer &transfer : m_company.transfers)
            sign[size_t(transfer.from)] = -1;
        for (size_t i = 0; i < sign.size(); ++i) {
            for (const StockLine &line : m_company.adjustments[i].lines)
                post(m_company.pair(m_company.adjustments[i].warehouse, line.part), sign[i] * line.qty);
        }
        for (const Shipment &shipment : m_company.shipments) {
            const Order &order = m_company.orders[size_t(shipment.order)];
            for (const ShipmentLine &line : shipment.lines)
                post(m_company.pair(order.warehouse, order.lines[size_t(line.line)].part), -line.qty);
        }
    }

private:
    /// A pair has a row from its first movement on, also when it is back at 0.
    void post(size_t pair, int qty)
    {
        m_company.avail[pair] += qty;
        m_company.moved[pair] = true;
    }

    /// An order takes its goods when it is entered, not when they are shipped.
    void sell(const Order &order, std::vector<std::vector<int>> &low)
    {
        if (order.isVoid)
            return;
        for (const Line &line : order.lines) {
            int &unsold = m_unsold[m_company.pair(order.warehouse, line.part)];
            unsold -= line.qty;
            if (unsold < m_company.parts[size_t(line.part)].minOnHand)
                low[size_t(order.warehouse)].push_back(line.part);
        }
    }

    /// What brings each part back above its minimum, a whole number of reorder quantities.
    std::vector<StockLine> fillUp(int warehouse, std::vector<int> parts)
    {
        std::sort(parts.begin(), parts.end());
        parts.erase(std::unique(parts.begin(), parts.end()), parts.end());
        std::vector<StockLine> lines;
        for (int part : parts) {
            const Part &kind = m_company.parts[size_t(part)];
            const int missing = kind.minOnHand - m_unsold[m_company.pair(warehouse, part)];
            const int lots = std::max(1, (missing + kind.reorderQty - 1) / kind.reorderQty);
            const int qty = lots * kind.reorderQty;
            // A rebuild of the ledger adds up what came into a warehouse and must stay within 16 bits.
            int &made = m_made[m_company.pair(warehouse, part)];
            if (made + qty > 30000)
                continue;
            made += qty;
            lines.push_back({part, qty});
        }
        return lines;
    }

    /// Stores an adjustment with these lines and returns its position.
    int add(int warehouse, QDate day, std::vector<StockLine> lines)
    {
        for (const StockLine &line : lines)
            m_unsold[m_company.pair(warehouse, line.part)] += line.qty;
        // In UTC, where the clock never jumps: the file is the same in every time zone.
        const QDateTime saved(day, QTime(8, 0).addSecs(m_random.below(9 * 3600)), Qt::UTC);
        m_company.adjustments.push_back({warehouse, saved, std::move(lines)});
        return int(m_company.adjustments.size()) - 1;
    }

    void adjust(int warehouse, QDate day, std::vector<StockLine> lines)
    {
        if (!lines.empty())
            add(warehouse, day, std::move(lines));
    }

    /// Out of the plant, which may run low by it.
    void transfer(int to, QDate day, std::vector<StockLine> lines, std::vector<int> &lowInPlant)
    {
        if (lines.empty())
            return;
        std::vector<StockLine> out = lines;
        for (StockLine &line : out)
            line.qty = -line.qty;
        const int from = add(Plant, day, out);
        m_company.transfers.push_back({from, add(to, day, std::move(lines))});
        for (const StockLine &line : out) {
            if (m_unsold[m_company.pair(Plant, line.part)] < m_company.parts[size_t(line.part)].minOnHand)
                lowInPlant.push_back(line.part);
        }
    }

    Company &m_company;
    Random &m_random;
    std::vector<int> m_unsold; ///< adjustments less orders, by pair: what the order desk sees as available
    std::vector<int> m_made;   ///< brought in since the opening, by pair
    size_t m_nextOrder = 0;
};

} // namespace

void makeStock(Company &company, Random &random)
{
    Stock stock(company, random);
    stock.open();
    int weeks = 0;
    for (const QDate day : company.businessDays) {
        if (day.dayOfWeek() != Qt::Friday)
            continue;
        stock.replenish(day);
        // Four times a year.
        if (++weeks % 13 == 0)
            stock.count(day);
    }
    stock.rebuildLedger();
}

} // namespace demo
