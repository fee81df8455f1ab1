#include "tests/support/company.h"

namespace {

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
    void expectTooMuch()
    {
        boxes.expect("Invalid Payment Amount",
                     "You may not receive payment greater than the remaining balance on an invoice.");
    }
    static void enter(FormDriver &user, const QString &invoice)
    {
        user.type("txtInvoice", invoice);
        user.key(Qt::Key_Tab);
    }
    static void pay(FormDriver &user, const QString &invoice, const QString &amount, const QString &adjustment = {})
    {
        enter(user, invoice);
        user.type("txtPayment", amount);
        if (!adjustment.isEmpty())
            user.type("txtAdjustment", adjustment);
        user.click("btnSave");
    }
};

TEST_F(ReceivePayment, BalanceIsTheTotalLessAllThatWasReceivedOrWrittenOff)
{
    FormDriver user("frmReceivePayment");
    enter(user, "1001");
    EXPECT_EQ(user.text("txtAmount"), "100");
    EXPECT_EQ(user.text("txtInvoiceID"), "2") << "the key, not the number people see";
    EXPECT_EQ(user.text("txtBalance"), "100");
    addRow("Payments", {{"Invoice", 2}, {"Amount", 30.1}, {"Adjustment", 4.2}});
    addRow("Payments", {{"Invoice", 2}, {"Amount", 0.2}, {"Adjustment", Value()}});
    addRow("Payments", {{"Invoice", 3}, {"Amount", 9.0}});
    enter(user, "1001");
    EXPECT_EQ(user.text("txtBalance"), "65.5");
}

TEST_F(ReceivePayment, UnknownInvoiceKeepsTheFocusAndTheOtherFields)
{
    FormDriver user("frmReceivePayment");
    enter(user, "1002");
    boxes.expect("Invalid Invoice", "Invalid Invoice Number. Please Re-enter.");
    enter(user, "9999");
    EXPECT_EQ(user.focus(), "txtInvoice");
    EXPECT_EQ(user.text("txtAmount"), "50.25");
    EXPECT_EQ(user.text("txtInvoiceID"), "3");
}

TEST_F(ReceivePayment, PaymentAboveTheBalanceIsRefusedAndSaveDoesNotHappen)
{
    FormDriver user("frmReceivePayment");
    enter(user, "1002");
    expectTooMuch();
    user.type("txtPayment", "50.26");
    user.click("btnSave");
    boxes.verify();
    EXPECT_EQ(user.focus(), "txtPayment");
    EXPECT_EQ(payments(), QStringList()) << "the press that left the box is no click";
    user.type("txtPayment", "50.25");
    user.click("btnSave");
    EXPECT_EQ(payments(), QStringList{"1|3|3/30/2011|50.25|0"}) << "a payment of exactly the balance passes";
    enter(user, "1002");
    EXPECT_EQ(user.text("txtBalance"), "0");
    expectTooMuch();
    user.type("txtPayment", "0.01");
    user.key(Qt::Key_Tab);
    boxes.verify();
    user.type("txtPayment", "");
}

TEST_F(ReceivePayment, AdjustmentStartsTheBalanceFromTheAmountAgain)
{
    FormDriver user("frmReceivePayment");
    pay(user, "1001", "60");
    enter(user, "1001");
    EXPECT_EQ(user.text("txtBalance"), "40");
    user.type("txtAdjustment", "5");
    EXPECT_EQ(user.text("txtBalance"), "95") << "what was paid before is left out";
    user.type("txtPayment", "90");
    user.click("btnSave");
    EXPECT_EQ(payments(), (QStringList{"1|2|3/30/2011|60|0", "2|2|3/30/2011|90|5"}));
    enter(user, "1001");
    EXPECT_EQ(user.text("txtBalance"), "-55");
}

TEST_F(ReceivePayment, SaveClearsAllButTheDateAndTheKey)
{
    FormDriver user("frmReceivePayment");
    user.control<DTPicker>("dtDate")->setValue(Date(2011, 3, 15));
    pay(user, "1001", "0", "2.5");
    EXPECT_TRUE(user.isLoaded());
    for (const char *box : {"txtInvoice", "txtAmount", "txtBalance", "txtPayment", "txtAdjustment"})
        EXPECT_EQ(user.text(box), "") << box;
    EXPECT_EQ(user.text("dtDate"), "3/15/2011");
    EXPECT_EQ(user.text("txtInvoiceID"), "2");
    EXPECT_EQ(user.focus(), "txtInvoice");

    user.click("btnSave");
    EXPECT_EQ(payments().size(), 1) << "no payment, nothing happens";
    user.type("txtPayment", "-1");
    user.click("btnSave");
    EXPECT_EQ(payments(), (QStringList{"1|2|3/15/2011|0|2.5", "2|2|3/15/2011|-1|0"}))
        << "without a number it goes to the invoice before";
}

TEST_F(ReceivePayment, AmountsAreTakenAsTheColumnReadsThem)
{
    FormDriver user("frmReceivePayment");
    pay(user, "1001", "$12.50", "(2)");
    pay(user, "1001", "1", "none");
    EXPECT_EQ(payments(), (QStringList{"1|2|3/30/2011|12.5|-2", "2|2|3/30/2011|1|0"}));
    enter(user, "1001");
    user.type("txtPayment", "five");
    expectRuntimeError(3421, [&] { user.click("btnSave"); });
    EXPECT_EQ(payments().size(), 2);
}

TEST_F(ReceivePayment, MoneyShowsFormattedWhileTheTextStaysRaw)
{
    FormDriver user("frmReceivePayment");
    enter(user, "1002");
    EXPECT_EQ(user.control<MaskEdBox>("txtAmount")->formattedText(), "$50.25");
    EXPECT_EQ(user.text("txtAmount"), "50.25");
    EXPECT_FALSE(user.control<QWidget>("txtInvoiceID")->isVisible());
    user.click("btnExit");
    EXPECT_FALSE(user.isLoaded());
}

} // namespace
