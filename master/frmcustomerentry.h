#pragma once

#include "master/masterrecord.h"
#include "toolkit/forms/form.h"

/// Keeps the customers, keyed by the name typed: one that exists is changed, another one is added. Any change of
/// the name shows that customer, or blanks the form.
class frmCustomerEntry : public Form
{
    Q_OBJECT
public:
    frmCustomerEntry();

protected:
    void formLoad() override;

private:
    void layOut();
    void ShowCustomer();
    void txtDays_LostFocus();
    void btnSave_Click();

    ComboBox *cmbCustomer;
    TextBox *txtAddress1, *txtAddress2, *txtCity, *txtState, *txtZip, *txtPhone, *txtFax;
    ComboBox *cmbStatus;
    TextBox *txtShipTo, *txtShipToAddress1, *txtShipToAddress2, *txtShipToCity, *txtShipToState, *txtShipToZip,
        *txtShipToPhone, *txtShipToFax;
    TextBox *txtTerms, *txtDays, *txtPriceSheet, *txtTerritory;
    QCheckBox *chkStatements;
    QPushButton *btnSave, *btnExit;
    MasterRecord m_record;
};
