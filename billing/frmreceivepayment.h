#pragma once

#include "toolkit/forms/form.h"

/// Receipt of money against one invoice at a time; stays open for the next. Writes only a row of payments: what an
/// invoice still owes is always computed.
class frmReceivePayment : public Form
{
    Q_OBJECT
public:
    frmReceivePayment();

private:
    void formLoad() override;
    void txtInvoice_LostFocus();
    void txtPayment_LostFocus();
    void txtAdjustment_Change();
    void btnSave_Click();

    void showBalance();
    void layOut();

    TextBox *txtInvoice;
    TextBox *txtInvoiceID; ///< never seen: the key of the invoice found for txtInvoice
    DTPicker *dtDate;
    MaskEdBox *txtAmount, *txtBalance, *txtPayment, *txtAdjustment;
    QPushButton *btnSave, *btnExit;
};
