#include "tests/support/company.h"

namespace {

const char *const Texts = "txtInvoice txtAmount txtBalance txtPayment txtAdjustment txtInvoiceID";

class ReceivePayment : public CompanyTest
{
protected:
    ReceivePayment()
    {
        addRow("Invoice", {});
        addRow("Invoice", {{"Invoice", "1001"}, {"Customer", "Acme Rail"}, {"Total", 100.0}, {"Shipment", "0"}});
        addRow("Invoice", {{"Invoice", "1002"}, {"Customer", "Acme Rail"}, {"Total", 50.25}, {"Shipment", "7"}});
    }
    QStringList payments() const { return table("Payments"); }
    void expectTooMuch(FormDriver &user, const QString &steps)
    {
        expectBox(user, steps, "Invalid Payment Amount",
                  "You may not receive payment greater than the remaining balance on an invoice.");
        EXPECT_EQ(user.focus(), "txtPayment");
    }
};

TEST_F(ReceivePayment, BalanceIsTheTotalLessAllThatWasReceivedOrWrittenOff)
{
    FormDriver user("frmReceivePayment", "txtInvoice: 1001; <Tab>");
    EXPECT_EQ(user.shows(Texts), "1001|100|100|||2") << "the key, not the number people see";
    addRow("Payments", {{"Invoice", 2}, {"Amount", 30.1}, {"Adjustment", 4.2}});
    addRow("Payments", {{"Invoice", 2}, {"Amount", 0.2}, {"Adjustment", Value()}});
    addRow("Payments", {{"Invoice", 3}, {"Amount", 9.0}});
    user.act("txtInvoice: 1001; <Tab>");
    EXPECT_EQ(user.text("txtBalance"), "65.5");
    user.act("txtInvoice: 1002; <Tab>");
    expectBox(user, "txtInvoice: 9999; <Tab>", "Invalid Invoice", "Invalid Invoice Number. Please Re-enter.");
    EXPECT_EQ(user.focus(), "txtInvoice");
    EXPECT_EQ(user.shows(Texts), "9999|50.25|41.25|||3") << "the others stay";
    EXPECT_EQ(user.control<MaskEdBox>("txtAmount")->formattedText(), "$50.25");
    EXPECT_FALSE(user.control<QWidget>("txtInvoiceID")->isVisible());
}

TEST_F(ReceivePayment, PaymentAboveTheBalanceIsRefusedAndSaveDoesNotHappen)
{
    FormDriver user("frmReceivePayment", "txtInvoice: 1002; <Tab>");
    expectTooMuch(user, "txtPayment: 50.26; btnSave");
    EXPECT_EQ(payments(), QStringList()) << "the press that left the box is no click";
    user.act("txtPayment: 50.25; btnSave");
    EXPECT_EQ(payments(), QStringList{"1|3|3/30/2011|50.25|0"}) << "a payment of exactly the balance passes";
    user.act("txtInvoice: 1002; <Tab>");
    EXPECT_EQ(user.text("txtBalance"), "0");
    expectTooMuch(user, "txtPayment: 0.01; <Tab>");
    user.act("txtPayment:; btnExit");
    EXPECT_FALSE(user.isLoaded());
}

TEST_F(ReceivePayment, AdjustmentStartsTheBalanceFromTheAmountAgain)
{
    FormDriver user("frmReceivePayment", "txtInvoice: 1001; txtPayment: 60; btnSave; txtInvoice: 1001; <Tab>");
    EXPECT_EQ(user.text("txtBalance"), "40");
    user.act("txtAdjustment: 5");
    EXPECT_EQ(user.text("txtBalance"), "95") << "what was paid before is left out";
    user.act("txtPayment: 90; btnSave; txtInvoice: 1001; <Tab>");
    EXPECT_EQ(payments(), (QStringList{"1|2|3/30/2011|60|0", "2|2|3/30/2011|90|5"}));
    EXPECT_EQ(user.text("txtBalance"), "-55");
}

TEST_F(ReceivePayment, SaveClearsAllButTheDateAndTheKeyAndTakesAmountsAsTheColumnReadsThem)
{
    FormDriver user("frmReceivePayment",
                    "dtDate: 3/15/2011; txtInvoice: 1001; txtPayment: 0; txtAdjustment: 2.5; btnSave");
    EXPECT_EQ(user.shows(Texts), "|||||2");
    EXPECT_EQ(user.text("dtDate"), "3/15/2011");
    EXPECT_EQ(user.focus(), "txtInvoice");
    user.act("btnSave");
    EXPECT_EQ(payments().size(), 1) << "no payment, nothing happens";
    user.act("txtPayment: -1; btnSave; txtInvoice: 1001; txtPayment: $12.50; txtAdjustment: (2); btnSave;"
             "txtInvoice: 1001; txtPayment: 1; txtAdjustment: none; btnSave");
    EXPECT_EQ(payments(),
              (QStringList{"1|2|3/15/2011|0|2.5", "2|2|3/15/2011|-1|0", "3|2|3/15/2011|12.5|-2", "4|2|3/15/2011|1|0"}))
        << "without a number it goes to the invoice before";
    expectRuntimeError(3421, [&] { user.act("txtInvoice: 1001; txtPayment: five; btnSave"); });
    EXPECT_EQ(payments().size(), 4);
}

} // namespace
