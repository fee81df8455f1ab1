#pragma once

#include "master/masterrecord.h"
#include "toolkit/forms/form.h"

/// Keeps the parts, keyed by the number typed: one that exists is changed, another one is added. Most columns are
/// written only when their control is not empty, so they can be changed but never cleared.
class frmPartEntry : public Form
{
    Q_OBJECT
public:
    frmPartEntry();

protected:
    void formLoad() override;

private:
    void layOut();
    void fillVendors();
    void ShowPart();
    void btnSave_Click();

    ComboBox *cmbPartNo, *cmbCategory, *cmbVendor;
    TextBox *txtLeadTime, *txtSuperceded, *txtBinLocation, *txtMinOnHand, *txtReorderQty, *txtQtyPerPack;
    MaskEdBox *txtCost, *txtSalePrice;
    ComboBox *cmbStatus;
    QPushButton *btnSave, *btnExit;
    MasterRecord m_record;
};
