#pragma once

#include "toolkit/forms/form.h"

class Recordset;

/// The search over orders: criteria, the orders found, and the lines of the selected one. A double-click opens an
/// order in frmOrderEntry.
class frmOrderNavigator : public Form
{
    Q_OBJECT
public:
    frmOrderNavigator();

    /// Searches again with the criteria that stand; no row is selected afterwards.
    void UpdateGrids();

protected:
    void formLoad() override;
    void formUnload() override;
    void formResize() override;

private:
    void layOut();
    QString searchStatement() const;
    void fillOrders(Recordset &rs);
    void vsfgOrders_AfterRowColChange(int newRow);
    void vsfgOrders_DblClick(int row);
    void btnClear_Click();

    QGroupBox *Frame1;
    ComboBox *cmbWarehouse, *cmbCustomer, *cmbStatus;
    TextBox *txtOrderNumber;
    QCheckBox *chkOrderDate;
    DTPicker *dtStartDate, *dtEndDate;
    QPushButton *btnFind, *btnClear, *btnAddNew, *btnExit;
    QGroupBox *Frame2;
    FlexGrid *vsfgOrders;
    QGroupBox *Frame3;
    FlexGrid *vsfgItems;
};
