#pragma once

#include "master/masterrecord.h"
#include "toolkit/forms/form.h"

/// Keeps the warehouses, keyed by the name typed: one that exists is changed, another one is added.
class frmWarehouseEntry : public Form
{
    Q_OBJECT
public:
    frmWarehouseEntry();

protected:
    void formLoad() override;

private:
    void layOut();
    void ShowWarehouse();
    void btnSave_Click();

    ComboBox *cmbWarehouse;
    TextBox *txtAddress1, *txtAddress2, *txtCity, *txtState, *txtZip, *txtPhone, *txtFax;
    ComboBox *cmbStatus;
    TextBox *txtContact;
    QPushButton *btnSave, *btnExit;
    MasterRecord m_record;
};
