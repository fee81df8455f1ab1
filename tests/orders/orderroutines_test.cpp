#include "orders/orderroutines.h"

#include "tests/support/company.h"
#include "tests/support/printers.h"

namespace {

class OrderRoutines : public CompanyTest
{
protected:
    static QString invoice(Date due, const Value &total, const char *customer = "Acme Rail")
    {
        return addRow("Invoice", {{"Invoice", "1"}, {"Customer", customer}, {"DueDate", due}, {"Total", total}});
    }
    static void pay(const QString &invoice, const Value &amount, const Value &adjustment = 0.0)
    {
        addRow("Payments", {{"Invoice", invoice}, {"Amount", amount}, {"Adjustment", adjustment}});
    }

    const Date m_yesterday{2011, 3, 29}, m_today{2011, 3, 30};
};

TEST_F(OrderRoutines, OverdueBalanceIsOfInvoicesDueBeforeTodayLessPaymentsAndWriteOffs)
{
    EXPECT_EQ(OverdueBalance("Acme Rail"), 0);
    const QString id = invoice(m_yesterday, 100);
    invoice(m_today, 1000);
    invoice(m_yesterday, 100, "Birch Mill");
    pay(invoice(m_yesterday, 100, "Birch Mill"), 30);
    invoice(m_yesterday, 100.5, "Birch Mill");
    EXPECT_EQ(OverdueBalance("Birch Mill"), 170.5) << "two alike in every grouped column count once";
    EXPECT_EQ(OverdueBalance("acme rail"), 100);
    pay(id, 30.5, 1.5);
    pay(id, Value(), 3);
    pay(id, 10.25, Value());
    EXPECT_EQ(OverdueBalance("Acme Rail"), 54.75) << "Null is nothing";
    pay(id, 60);
    EXPECT_EQ(OverdueBalance("Acme Rail"), -5.25) << "an overpaid invoice subtracts";
    invoice(m_yesterday, Value());
    EXPECT_EQ(OverdueBalance("Acme Rail"), -5.25);
}

TEST_F(OrderRoutines, OverdueBalanceRoundsThePaymentsThroughTextAndNothingElse)
{
    const QString id = invoice(m_yesterday, 0.3), other = invoice(m_yesterday, 0.3, "Birch Mill");
    for (const double part : {0.1, 0.2}) {
        pay(id, part);
        pay(other, 0, part);
    }
    EXPECT_EQ(OverdueBalance("Acme Rail"), 0);
    EXPECT_EQ(OverdueBalance("Birch Mill"), 0.3 - (0.1 + 0.2));
}

TEST_F(OrderRoutines, CustomerPriceIsTheSheetsOrMinusOne)
{
    for (const auto &[sheet, part, price] :
         {std::tuple{"Gold", "AX-100", Value(99)}, {"Gold", "None", Value()}, {"Other", "BR-200", Value(3)}})
        addRow("PriceSheet", {{"PriceSheet", sheet}, {"Part", part}, {"Price", price}});
    EXPECT_EQ(GetCustomerPrice("AX-100", "Acme Rail"), "8.75") << "the first of two";
    EXPECT_EQ(GetCustomerPrice("CX-300", "Acme Rail"), "0");
    EXPECT_EQ(GetCustomerPrice("BR-200", "Acme Rail"), "-1");
    EXPECT_EQ(GetCustomerPrice("AX-100", "Birch Mill"), "-1");
    EXPECT_EQ(errorNumberOf([] { GetCustomerPrice("None", "Acme Rail"); }), 94);
}

TEST_F(OrderRoutines, StatusFollowsWhatIsShippedWhateverItWas)
{
    const struct
    {
        const char *title;
        std::vector<double> ordered;
        std::vector<std::vector<int>> shipments; ///< quantities by line
        const char *before, *after;
    } cases[] = {
        {"nothing shipped", {5, 2}, {}, "Closed", "Open"},
        {"one line full, one in part", {5, 2}, {{5, 1}}, "Open", "Open"},
        {"one line in part, one full", {5, 2}, {{1, 2}}, "Closed", "Open"},
        {"all full, in two shipments", {5, 2}, {{3}, {2, 2}}, "Open", "Closed"},
        {"more than ordered", {5}, {{6}}, "Open", "Closed"},
        {"a void order comes back", {5}, {{5}}, "Void", "Closed"},
        {"a void order comes back open", {5}, {{4}}, "Void", "Open"},
        {"no lines", {}, {}, "Open", "Closed"},
        {"a line of nothing that never shipped", {0}, {}, "Open", "Open"},
        {"shipment lines of no order line", {5}, {{5, 1}}, "Open", "Closed"},
    };
    for (const auto &row : cases) {
        std::vector<Line> lines;
        for (const double qty : row.ordered)
            lines.push_back({"AX-100", qty, 1});
        const QString id = addOrder(row.title, "Acme Rail", lines, row.before);
        for (const std::vector<int> &quantities : row.shipments)
            addShipment(id, quantities);
        UpdateOrderStatus(id);
        EXPECT_EQ(status(id), row.after) << row.title;
    }
    EXPECT_EQ(errorNumberOf([] { UpdateOrderStatus(""); }), 3075);
}

} // namespace
