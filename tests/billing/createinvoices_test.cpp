#include "billing/billingroutines.h"
#include "reportengine/output/printing.h"
#include "reportengine/report.h"
#include "tests/support/company.h"
#include "tests/support/printers.h"
#include "tests/support/printserver.h"

namespace {

class CreateInvoices : public CompanyTest
{
protected:
    QStringList invoices() const { return table("Invoice"); }
    QStringList marked() const { return database.rows("SELECT ID FROM Shipment WHERE Invoiced = True ORDER BY ID"); }

    /// An order of one line, of which so much is shipped.
    static QString ship(const char *customer, int quantity, double price = 1, Date date = Date(2011, 3, 4))
    {
        return addShipment(addOrder("A-1", customer, {{"AX-100", 10, price}}), {quantity}, date);
    }
    static FormDriver run(const QString &steps = {}) { return FormDriver("frmCreateInvoices", steps + "; btnPrint"); }
};

TEST_F(CreateInvoices, OpensForAllCustomersOfAnyStatusAsOfToday)
{
    FormDriver user("frmCreateInvoices");
    EXPECT_EQ(entries(user, "cmbCustomer"), "*** All Customers ***|Acme Rail|Birch Mill|Cobb Yard");
    EXPECT_EQ(user.shows("cmbCustomer dtCutoff dtDate"), "*** All Customers ***|3/30/2011|3/30/2011");
    expectBox(user, "cmbCustomer:; btnPrint", "Invalid Selection", "You must choose one or more customers.");
    user.act("btnCancel");
    EXPECT_FALSE(user.isLoaded());
}

TEST_F(CreateInvoices, EachCustomerGetsOneInvoiceOverAllItsShipments)
{
    const QString birch = addOrder("B-1", "Birch Mill", {{"BR-200", 1000, 2.2}});
    const QString first = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 4.75}, {"BR-200", 4, 2.2}});
    const QString second = addOrder("A-2", "Acme Rail", {{"AX-100", 2, 5}}, "Void");
    const QString cobb = addOrder("C-1", "Cobb Yard", {{"AX-100", 1, 1}});
    addShipment(first, {4}, Date(2011, 3, 4), 12.5);
    addShipment(birch, {700}, Date(2011, 3, 30));
    addShipment(second, {2}, Date(2011, 3, 5), 0, -3.255);
    addShipment(first, {6, 4}, Date(2011, 3, 6));
    addShipment(cobb, {1}, Date(2011, 3, 7));
    addShipment(cobb, {1}, Date(2011, 3, 31));
    EXPECT_FALSE(run("dtDate: 4/2/2011").isLoaded());
    EXPECT_EQ(invoices(), (QStringList{
                              "1|1|Acme Rail|4/2/2011|5/2/2011|Net 30|1, 3, 4|75.54|35",
                              "2|2|Birch Mill|4/2/2011|4/2/2011|COD|2|1540|875",
                              "3|3|Cobb Yard|4/2/2011|4/12/2011|Net 10|5|1|2.5",
                          }));
    EXPECT_EQ(marked(), (QStringList{"1", "2", "3", "4", "5"})) << "a day after the cut-off stays";
    EXPECT_EQ(database.rows("SELECT Status FROM Orders ORDER BY ID"),
              (QStringList{"Open", "Closed", "Closed", "Closed"}))
        << "a void order comes back";
    for (const char *customer : {"", "cmbCustomer: Birch Mill"}) {
        boxes.expect("Nothing to Invoice", "There is nothing to invoice.");
        EXPECT_FALSE(run(customer).isLoaded());
        boxes.verify();
    }
    EXPECT_EQ(invoices().size(), 3) << "nothing is billed twice";
}

TEST_F(CreateInvoices, OneCustomerLeavesTheOthersAlone)
{
    ship("Acme Rail", 4);
    ship("Birch Mill", 1);
    ship("Birch Mill", 2, 1, Date(2011, 3, 3));
    ship("Birch Mill", 4, 1, Date(2011, 3, 5));
    ship("Cobb Yard", 1);
    addRow("Invoice", {}); // so that number and shipments differ
    QStringList printed;
    setPrintDestination([&](Report &report, int) {
        for (const TextParameter &text : report.layout().parameters)
            if (text.name.startsWith("txtInvoice") || text.name == "txtTerms")
                printed += text.name + " " + text.text;
        printed.sort();
        return true;
    });
    run("cmbCustomer: Birch Mill; dtCutoff: 3/4/2011; dtDate: 4/2/2011");
    setPrintDestination({});
    EXPECT_EQ(printed.join('|'), "txtInvoiceDate 4/2/2011|txtInvoiceNumber 2|txtTerms COD");
    EXPECT_EQ(invoices().mid(1), QStringList{"2|2|Birch Mill|4/2/2011|4/2/2011|COD|2, 3|3|7.5"});
    EXPECT_EQ(marked(), (QStringList{"2", "3"}));
}

TEST_F(CreateInvoices, NamesThatDifferInCaseShareARowOfTermsButNoInvoice)
{
    for (const char *customer : {"Acme Rail", "ACME RAIL", "Acme Rail"})
        ship(customer, 1);
    run();
    EXPECT_EQ(database.rows("SELECT Customer, Terms, Shipment FROM Invoice ORDER BY ID"),
              (QStringList{"Acme Rail|Net 30|1", "ACME RAIL|Net 30|2", "Acme Rail|Net 30|3"}));
}

TEST_F(CreateInvoices, FailureLeavesTheInvoicesBeforeItAndItsOwnNumberSpentOrNot)
{
    ship("Acme Rail", 4);
    ship("Birch Mill", 1);
    const auto fail = [](int error, const QString &steps = {}) {
        expectRuntimeError(error, [&] { run(steps); });
        Forms::unloadAll();
    };
    database.execute("UPDATE Customer SET Days = 99999999 WHERE Customer = 'Acme Rail'");
    fail(6); // terms beyond the calendar
    database.execute("UPDATE Customer SET Days = 30 WHERE Customer = 'Acme Rail'");
    database.execute("DELETE FROM Customer WHERE Customer = 'Birch Mill'");
    fail(3021); // no row for the customer's terms
    EXPECT_EQ(database.rows("SELECT ID FROM Invoice"), QStringList{"1"});
    EXPECT_EQ(marked(), QStringList{"1"});
    EXPECT_EQ(addRow("Invoice", {}), "2") << "both stopped before a number was taken";

    addRow("Customer", {{"Customer", "Birch Mill"}, {"Terms", "COD"}, {"Days", 0}});
    const PrivatePrintServer server(PrivatePrintServer::queue("Office", false, true, true)); // takes no jobs
    fail(482);
    EXPECT_EQ(invoices().size(), 2);
    EXPECT_EQ(marked(), QStringList{"1"}) << "unbilled as before";
    EXPECT_EQ(addRow("Invoice", {}), "4") << "the number 3 is spent, with no row";
    addRow("Customer", {{"Customer", "O'Brien"}});
    fail(3075, "cmbCustomer: O'Brien");
}

TEST_F(CreateInvoices, CostOfShipmentsIsTodaysAndZeroWithoutLines)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 4.75}, {"BR-200", 9, 2}});
    for (const std::vector<int> &quantities : {std::vector{4, 8}, {1}, {}})
        addShipment(order, quantities);
    for (const auto &[shipments, cost] : {std::pair{"1", 20.0}, {"1, 2", 22.5}, {"3", 0.0}, {"77", 0.0}})
        EXPECT_EQ(GetShipmentCost(shipments), cost) << shipments;
    database.execute("UPDATE Part SET Cost = 3 WHERE PartNo = 'AX-100'");
    EXPECT_EQ(GetShipmentCost("2"), 3);
    EXPECT_EQ(errorNumberOf([] { GetShipmentCost(""); }), 3075);
}

} // namespace
