#include "billing/frmreceivepayment.h"

#include "data/values/numbers.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/formlayout.h"
#include "toolkit/forms/mainmod.h"

frmReceivePayment::frmReceivePayment()
    : Form("frmReceivePayment", "Receive Payments"), txtInvoice(addText("txtInvoice")),
      txtInvoiceID(add<TextBox>("txtInvoiceID")), dtDate(addDate("dtDate")), txtAmount(add<MaskEdBox>("txtAmount")),
      txtBalance(add<MaskEdBox>("txtBalance")), txtPayment(addMoney("txtPayment")),
      txtAdjustment(addMoney("txtAdjustment")), btnSave(addButton("btnSave", "Save")),
      btnExit(addButton("btnExit", "Cancel"))
{
    // The number that payments refer to; the one typed is only what stands on the paper.
    txtInvoiceID->hide();
    connect(txtInvoice, &TextBox::lostFocus, this, &frmReceivePayment::txtInvoice_LostFocus);
    connect(txtPayment, &MaskEdBox::lostFocus, this, &frmReceivePayment::txtPayment_LostFocus);
    connect(txtAdjustment, &MaskEdBox::change, this, &frmReceivePayment::txtAdjustment_Change);
    connect(btnSave, &QPushButton::clicked, this, &frmReceivePayment::btnSave_Click);
    connect(btnExit, &QPushButton::clicked, this, &frmReceivePayment::unload);
    layOut();
}

void frmReceivePayment::formLoad()
{
    dtDate->setValue(Date::today());
}

void frmReceivePayment::txtInvoice_LostFocus()
{
    if (txtInvoice->text().isEmpty())
        return;
    Recordset invoice =
        gDatabase->OpenRecordset("SELECT ID,Total FROM Invoice WHERE Invoice = '" + txtInvoice->text() + "'");
    if (invoice.Bof() && invoice.Eof()) {
        MsgBox("Invalid Invoice Number. Please Re-enter.", "Invalid Invoice");
        setFocusTo(txtInvoice);
    } else {
        txtAmount->setText(invoice.Fields("Total").text());
        txtInvoiceID->setText(invoice.Fields("ID").text());
        showBalance();
    }
    invoice.Close();
}

/// The invoice's amount less everything stored against it.
void frmReceivePayment::showBalance()
{
    Recordset payments = gDatabase->OpenRecordset(
        "SELECT SUM(Adjustment) AS Adj, SUM(Amount) AS Total FROM Payments WHERE Invoice =" + txtInvoiceID->text());
    // Sums over nothing are Null, which counts as 0.
    const double paid = Val(payments.Fields("Total").joined());
    const double adjusted = Val(payments.Fields("Adj").joined());
    payments.Close();
    txtBalance->setText(textOf(Val(txtAmount->text()) - adjusted - paid));
}

/// Holds against the balance as the box shows it, and only when the box is left; the save looks at nothing again.
void frmReceivePayment::txtPayment_LostFocus()
{
    if (Val(txtBalance->text()) < Val(txtPayment->text())) {
        MsgBox("You may not receive payment greater than the remaining balance on an invoice.",
               "Invalid Payment Amount");
        setFocusTo(txtPayment);
    }
}

/// Starts from the invoice's amount again and leaves out what was paid before, so the balance can rise. Meant so.
void frmReceivePayment::txtAdjustment_Change()
{
    txtBalance->setText(textOf(Val(txtAmount->text()) - Val(txtAdjustment->text())));
}

/// txtInvoiceID and the date stay: the date serves a batch of receipts, and a payment saved with no invoice number
/// goes to the invoice of the receipt before.
void frmReceivePayment::btnSave_Click()
{
    if (txtPayment->text().isEmpty())
        return;
    const QString adjustment = txtAdjustment->text();
    Recordset payments = gDatabase->OpenRecordset("SELECT * FROM Payments");
    payments.AddNew();
    payments.Fields("Invoice") = txtInvoiceID->text();
    payments.Fields("Date") = dtDate->value();
    payments.Fields("Amount") = txtPayment->text();
    // An adjustment that is no number counts as none, while such a payment fails.
    payments.Fields("Adjustment") = IsNumeric(adjustment) ? Value(adjustment) : Value(0);
    payments.Update();
    payments.Close();
    for (TextBox *box : std::initializer_list<TextBox *>{txtInvoice, txtPayment, txtAmount, txtAdjustment, txtBalance})
        box->clear();
    setFocusTo(txtInvoice);
}

void frmReceivePayment::layOut()
{
    auto *form = new QVBoxLayout(this);
    auto *fields = new FieldLayout;
    form->addLayout(fields);
    for (QWidget *field :
         std::initializer_list<QWidget *>{txtInvoice, dtDate, txtAmount, txtBalance, txtPayment, txtAdjustment})
        setFieldWidth(field, 18);
    fields->add("Invoice Number", txtInvoice);
    fields->add("Date", dtDate);
    fields->add("Invoice Amount", txtAmount);
    fields->add("Invoice Balance", txtBalance);
    fields->add("Payment Amount", txtPayment);
    fields->add("Adjustments", txtAdjustment);
    form->addStretch(1);
    form->addLayout(buttonRow({btnSave, btnExit}));
    setTabOrder({txtInvoice, dtDate, txtAmount, txtBalance, txtPayment, txtAdjustment, btnSave, btnExit});
    resize(320, 260);
}
