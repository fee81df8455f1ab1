#pragma once

#include "toolkit/forms/form.h"

/// The invoice run: one invoice for each customer over the shipments not billed yet, up to a cut-off date. Each
/// invoice prints before its row is stored.
class frmCreateInvoices : public Form
{
    Q_OBJECT
public:
    frmCreateInvoices();

private:
    /// What an invoice takes from its customer.
    struct Conditions
    {
        QString DueDate, Terms;
    };

    void formLoad() override;
    void btnPrint_Click();

    bool allCustomers() const;
    QString shipmentStatement() const;
    void createInvoice(const QString &customer, const QString &shipmentIDs);
    Conditions conditionsOf(const QString &customer) const;
    void markInvoiced(const QString &shipmentIDs);
    void layOut();

    ComboBox *cmbCustomer;
    DTPicker *dtCutoff, *dtDate;
    QPushButton *btnPrint, *btnCancel;
};
