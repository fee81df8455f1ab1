#include "orders/orderroutines.h"

#include "tests/support/printers.h"
#include "tests/support/rows.h"
#include "tests/support/testclock.h"
#include "tests/support/testdatabase.h"

namespace {

class OrderRoutines : public testing::Test
{
protected:
    static QString invoice(const char *number, Date due, const Value &total, const char *customer = "Acme")
    {
        return addRow("Invoice", {{"Invoice", number},
                                  {"Customer", customer},
                                  {"InvoiceDate", Date(2011, 1, 1)},
                                  {"DueDate", due},
                                  {"Total", total}});
    }
    static void pay(const QString &invoice, const Value &amount, const Value &adjustment = 0.0)
    {
        addRow("Payments", {{"Invoice", invoice}, {"Amount", amount}, {"Adjustment", adjustment}});
    }

    TestDatabase database;
    TestClock m_clock{"2011-03-30 14:05:09"};
    const Date m_yesterday{2011, 3, 29}, m_today{2011, 3, 30};
};

TEST_F(OrderRoutines, OverdueBalanceCountsInvoicesDueBeforeTodayOnly)
{
    EXPECT_EQ(OverdueBalance("Acme"), 0);
    invoice("1", m_yesterday, 100.25);
    invoice("2", m_today, 1000);
    invoice("3", m_yesterday, 5000, "Other");
    EXPECT_EQ(OverdueBalance("acme"), 100.25);
}

TEST_F(OrderRoutines, OverdueBalanceTakesOffPaymentsAndWriteOffsNullBeingNothing)
{
    const QString id = invoice("1", m_yesterday, 100);
    pay(id, 30.5, 1.5);
    pay(id, Value(), 3);
    pay(id, 10.25, Value());
    EXPECT_EQ(OverdueBalance("Acme"), 54.75);
    pay(id, 60);
    EXPECT_EQ(OverdueBalance("Acme"), -5.25) << "an overpaid invoice subtracts";
    invoice("2", m_yesterday, Value());
    EXPECT_EQ(OverdueBalance("Acme"), -5.25);
}

TEST_F(OrderRoutines, OverdueBalanceRoundsThePaymentsThroughTextAndNothingElse)
{
    const QString id = invoice("1", m_yesterday, 0.3);
    pay(id, 0.1);
    pay(id, 0.2);
    EXPECT_EQ(OverdueBalance("Acme"), 0);
    const QString other = invoice("1", m_yesterday, 0.3, "Other");
    pay(other, 0, 0.1);
    pay(other, 0, 0.2);
    EXPECT_EQ(OverdueBalance("Other"), 0.3 - (0.1 + 0.2));
}

TEST_F(OrderRoutines, OverdueBalanceCountsInvoicesAlikeInEveryGroupedColumnOnce)
{
    invoice("1", m_yesterday, 100);
    pay(invoice("1", m_yesterday, 100), 30);
    EXPECT_EQ(OverdueBalance("Acme"), 70);
    invoice("1", m_yesterday, 100.5);
    EXPECT_EQ(OverdueBalance("Acme"), 170.5) << "another total is another row";
}

TEST_F(OrderRoutines, CustomerPriceIsTheSheetsOrMinusOne)
{
    addRow("Customer", {{"Customer", "Acme"}, {"PriceSheet", "Gold"}});
    addRow("Customer", {{"Customer", "Plain"}});
    addRow("PriceSheet", {{"PriceSheet", "Gold"}, {"Part", "P1"}, {"Price", 12.5}});
    addRow("PriceSheet", {{"PriceSheet", "Gold"}, {"Part", "P1"}, {"Price", 99}});
    addRow("PriceSheet", {{"PriceSheet", "Gold"}, {"Part", "Free"}, {"Price", 0}});
    addRow("PriceSheet", {{"PriceSheet", "Gold"}, {"Part", "None"}, {"Price", Value()}});
    addRow("PriceSheet", {{"PriceSheet", "Other"}, {"Part", "P2"}, {"Price", 3}});
    EXPECT_EQ(GetCustomerPrice("P1", "Acme"), "12.5") << "the first of two";
    EXPECT_EQ(GetCustomerPrice("Free", "Acme"), "0");
    EXPECT_EQ(GetCustomerPrice("P2", "Acme"), "-1");
    EXPECT_EQ(GetCustomerPrice("P1", "Plain"), "-1");
    EXPECT_EQ(errorNumberOf([] { GetCustomerPrice("None", "Acme"); }), 94);
}

struct StatusCase
{
    const char *title;
    std::vector<double> ordered;
    std::vector<std::pair<int, int>> shipped; ///< line and quantity
    const char *before, *after;
};

TEST_F(OrderRoutines, StatusFollowsWhatIsShippedWhateverItWas)
{
    const StatusCase cases[] = {
        {"nothing shipped", {5, 2}, {}, "Closed", "Open"},
        {"one line full, one in part", {5, 2}, {{1, 5}, {2, 1}}, "Open", "Open"},
        {"one line in part, one full", {5, 2}, {{1, 1}, {2, 2}}, "Closed", "Open"},
        {"all full, in two shipments", {5, 2}, {{1, 3}, {1, 2}, {2, 2}}, "Open", "Closed"},
        {"more than ordered", {5}, {{1, 6}}, "Open", "Closed"},
        {"a void order comes back", {5}, {{1, 5}}, "Void", "Closed"},
        {"a void order comes back open", {5}, {{1, 4}}, "Void", "Open"},
        {"no lines", {}, {}, "Open", "Closed"},
        {"a line of nothing that never shipped", {0}, {}, "Open", "Open"},
        {"shipment lines of no order line", {5}, {{1, 5}, {7, 1}}, "Open", "Closed"},
    };
    for (const StatusCase &row : cases) {
        const QString id = addRow("Orders", {{"OrderNumber", row.title}, {"Status", row.before}});
        for (size_t i = 0; i < row.ordered.size(); ++i)
            addRow("OrderItem", {{"OrderID", id}, {"ItemNumber", int(i) + 1}, {"Qty", row.ordered[i]}});
        for (const auto &[line, qty] : row.shipped)
            addRow("ShipmentItems", {{"ShipmentID", 1}, {"OrderID", id}, {"OrderLineItem", line}, {"Qty", qty}});
        UpdateOrderStatus(id);
        EXPECT_EQ(database.rows("SELECT Status FROM Orders WHERE ID = " + id), QStringList{row.after}) << row.title;
    }
}

TEST_F(OrderRoutines, StatusOfAnOrderWithoutANumberIsASyntaxError)
{
    EXPECT_EQ(errorNumberOf([] { UpdateOrderStatus(""); }), 3075);
}

} // namespace
