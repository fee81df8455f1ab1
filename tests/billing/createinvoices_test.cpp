#include "billing/billingroutines.h"
#include "reportengine/output/printing.h"
#include "reportengine/report.h"
#include "tests/support/company.h"
#include "tests/support/printserver.h"

namespace {

class CreateInvoices : public CompanyTest
{
protected:
    QStringList invoices() const { return table("Invoice"); }
    QStringList marked() const { return database.rows("SELECT ID FROM Shipment WHERE Invoiced = True ORDER BY ID"); }
    QStringList statuses() const { return database.rows("SELECT Status FROM Orders ORDER BY ID"); }

    static FormDriver run(const QString &customer = {})
    {
        FormDriver user("frmCreateInvoices");
        if (!customer.isEmpty())
            pick(user, "cmbCustomer", customer);
        user.click("btnPrint");
        return user;
    }
};

TEST_F(CreateInvoices, OpensForAllCustomersOfAnyStatusAsOfToday)
{
    FormDriver user("frmCreateInvoices");
    EXPECT_EQ(entries(user, "cmbCustomer"),
              (QStringList{"*** All Customers ***", "Acme Rail", "Birch Mill", "Cobb Yard"}));
    EXPECT_EQ(user.text("cmbCustomer"), "*** All Customers ***");
    EXPECT_EQ(user.text("dtCutoff"), "3/30/2011");
    EXPECT_EQ(user.text("dtDate"), "3/30/2011");
    user.click("btnCancel");
    EXPECT_FALSE(user.isLoaded());
}

TEST_F(CreateInvoices, EachCustomerGetsOneInvoiceOverAllItsShipments)
{
    const QString birch = addOrder("B-1", "Birch Mill", {{"BR-200", 1000, 2.2}});
    const QString first = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 4.75}, {"BR-200", 4, 2.2}});
    const QString second = addOrder("A-2", "Acme Rail", {{"AX-100", 2, 5}}, "Void");
    const QString cobb = addOrder("C-1", "Cobb Yard", {{"AX-100", 1, 1}});
    addShipment(first, Date(2011, 3, 4), {4}, 12.5);
    addShipment(birch, Date(2011, 3, 30), {700});
    addShipment(second, Date(2011, 3, 5), {2}, 0, -3.255);
    addShipment(first, Date(2011, 3, 6), {6, 4});
    addShipment(cobb, Date(2011, 3, 7), {1});
    addShipment(cobb, Date(2011, 3, 31), {1});
    FormDriver user("frmCreateInvoices");
    user.control<DTPicker>("dtDate")->setValue(Date(2011, 4, 2));
    user.click("btnPrint");
    EXPECT_FALSE(user.isLoaded());
    EXPECT_EQ(invoices(), (QStringList{
                              "1|1|Acme Rail|4/2/2011|5/2/2011|Net 30|1, 3, 4|75.54|35",
                              "2|2|Birch Mill|4/2/2011|4/2/2011|COD|2|1540|875",
                              "3|3|Cobb Yard|4/2/2011|4/12/2011|Net 10|5|1|2.5",
                          }));
    EXPECT_EQ(marked(), (QStringList{"1", "2", "3", "4", "5"})) << "a day after the cut-off stays";
    EXPECT_EQ(statuses(), (QStringList{"Open", "Closed", "Closed", "Closed"})) << "a void order comes back";
}

TEST_F(CreateInvoices, OneCustomerLeavesTheOthersAlone)
{
    addShipment(addOrder("A-1", "Acme Rail", {{"AX-100", 10, 4.75}}), Date(2011, 3, 4), {4});
    addShipment(addOrder("B-1", "Birch Mill", {{"AX-100", 10, 1}}), Date(2011, 3, 4), {1});
    addShipment(addOrder("B-2", "Birch Mill", {{"AX-100", 10, 1}}), Date(2011, 3, 3), {2});
    addShipment("3", Date(2011, 3, 5), {4});
    FormDriver user("frmCreateInvoices");
    pick(user, "cmbCustomer", "Birch Mill");
    user.control<DTPicker>("dtCutoff")->setValue(Date(2011, 3, 4));
    user.control<DTPicker>("dtDate")->setValue(Date(2011, 4, 2));
    addRow("Invoice", {}); // so that number and shipments differ
    QStringList printed;
    setPrintDestination([&](Report &report, int) {
        for (const TextParameter &text : report.layout().parameters)
            if (text.name.startsWith("txtInvoice") || text.name == "txtTerms")
                printed += text.name + " " + text.text;
        printed.sort();
        return true;
    });
    user.click("btnPrint");
    setPrintDestination({});
    EXPECT_EQ(printed.join('|'), "txtInvoiceDate 4/2/2011|txtInvoiceNumber 2|txtTerms COD");
    EXPECT_EQ(invoices().mid(1), QStringList{"2|2|Birch Mill|4/2/2011|4/2/2011|COD|2, 3|3|7.5"});
    EXPECT_EQ(marked(), (QStringList{"2", "3"}));
}

TEST_F(CreateInvoices, NamesThatDifferInCaseShareARowOfTermsButNoInvoice)
{
    for (const char *customer : {"Acme Rail", "ACME RAIL", "Acme Rail"})
        addShipment(addOrder("A-1", customer, {{"AX-100", 1, 1}}), Date(2011, 3, 4), {1});
    run();
    EXPECT_EQ(database.rows("SELECT Customer, Terms, Shipment FROM Invoice ORDER BY ID"),
              (QStringList{"Acme Rail|Net 30|1", "ACME RAIL|Net 30|2", "Acme Rail|Net 30|3"}));
}

TEST_F(CreateInvoices, NothingIsBilledTwiceAndAnEmptyRunSaysSo)
{
    addShipment(addOrder("A-1", "Acme Rail", {{"AX-100", 10, 4.75}}), Date(2011, 3, 4), {4});
    run();
    for (int i = 0; i < 2; ++i)
        boxes.expect("Nothing to Invoice", "There is nothing to invoice.");
    FormDriver user = run();
    EXPECT_FALSE(user.isLoaded());
    run("Birch Mill");
    EXPECT_EQ(invoices().size(), 1);
}

TEST_F(CreateInvoices, EmptyChoiceIsRefusedAndTheFormStays)
{
    FormDriver user("frmCreateInvoices");
    user.control<ComboBox>("cmbCustomer")->setListIndex(-1);
    boxes.expect("Invalid Selection", "You must choose one or more customers.");
    user.click("btnPrint");
    EXPECT_TRUE(user.isLoaded());
}

TEST_F(CreateInvoices, FailureLeavesTheInvoicesBeforeItAndItsOwnNumberSpentOrNot)
{
    addShipment(addOrder("A-1", "Acme Rail", {{"AX-100", 10, 4.75}}), Date(2011, 3, 4), {4});
    addShipment(addOrder("B-1", "Birch Mill", {{"AX-100", 10, 1}}), Date(2011, 3, 4), {1});
    database.execute("DELETE FROM Customer WHERE Customer = 'Birch Mill'");
    expectRuntimeError(3021, [] { run(); }); // no row for the customer's terms
    EXPECT_EQ(invoices().size(), 1);
    EXPECT_EQ(marked(), QStringList{"1"});
    EXPECT_EQ(addRow("Invoice", {}), "2") << "stopped before a number was taken";
    Forms::unloadAll();

    addRow("Customer", {{"Customer", "Birch Mill"}, {"Terms", "COD"}, {"Days", 0}});
    const PrivatePrintServer server(PrivatePrintServer::queue("Office", false, true, true)); // takes no jobs
    expectRuntimeError(482, [] { run(); });
    EXPECT_EQ(invoices().size(), 2);
    EXPECT_EQ(marked(), QStringList{"1"}) << "unbilled as before";
    EXPECT_EQ(addRow("Invoice", {}), "4") << "the number 3 is spent, with no row";
}

TEST_F(CreateInvoices, ApostropheInTheCustomerBreaksTheStatement)
{
    addRow("Customer", {{"Customer", "O'Brien"}});
    expectRuntimeError(3075, [] { run("O'Brien"); });
}

TEST_F(CreateInvoices, CostOfShipmentsIsTodaysAndZeroWithoutLines)
{
    const QString order = addOrder("A-1", "Acme Rail", {{"AX-100", 10, 4.75}, {"BR-200", 9, 2}});
    addShipment(order, Date(2011, 3, 4), {4, 8});
    addShipment(order, Date(2011, 3, 4), {1});
    addShipment(order, Date(2011, 3, 4), {});
    EXPECT_EQ(GetShipmentCost("1"), 20);
    EXPECT_EQ(GetShipmentCost("1, 2"), 22.5);
    EXPECT_EQ(GetShipmentCost("3"), 0);
    EXPECT_EQ(GetShipmentCost("77"), 0);
    database.execute("UPDATE Part SET Cost = 3 WHERE PartNo = 'AX-100'");
    EXPECT_EQ(GetShipmentCost("2"), 3);
    EXPECT_EQ(errorNumberOf([] { GetShipmentCost(""); }), 3075);
}

TEST_F(CreateInvoices, TermsBeyondTheCalendarFailBeforeANumberIsSpent)
{
    addShipment(addOrder("A-1", "Acme Rail", {{"AX-100", 10, 4.75}}), Date(2011, 3, 4), {4});
    database.execute("UPDATE Customer SET Days = 99999999 WHERE Customer = 'Acme Rail'");
    expectRuntimeError(6, [] { run(); });
    Forms::unloadAll();
    settle();
    database.execute("UPDATE Customer SET Days = 30 WHERE Customer = 'Acme Rail'");
    run();
    EXPECT_EQ(database.rows("SELECT ID FROM Invoice"), QStringList{"1"});
}
} // namespace
