#pragma once

#include "inventory/stockform.h"

/// Stock adjustments: the only way stock enters the system. A saved one is opened again by its number and saved
/// as a whole; what it posted to the ledger before is not taken back.
class frmInventoryAdjust : public StockForm
{
    Q_OBJECT
public:
    frmInventoryAdjust();

private:
    void fillWarehouses() override;
    void cmbWarehouse_LostFocus();
    void txtID_LostFocus() override;
    void btnSave_Click() override;
    void saveHeader();

    ComboBox *cmbWarehouse;
};
