#pragma once

#include "toolkit/forms/form.h"

/// The search over shipments: filters, a grid of shipments and the lines of the one selected. Writes nothing; a
/// double-click opens the shipment.
class frmShipmentNavigator : public Form
{
    Q_OBJECT
public:
    frmShipmentNavigator();

private:
    void formLoad() override;
    void formUnload() override;
    void formResize() override;
    void btnFind_Click();
    void btnClear_Click();
    void vsfgShipments_AfterRowColChange(int oldRow, int oldCol, int newRow, int newCol);
    void vsfgShipments_DblClick(int row);

    void UpdateGrids();
    QString searchStatement() const;
    void fillShipments(const QString &sql);
    void layOut();

    QGroupBox *Frame1, *Frame2, *Frame3;
    ComboBox *cmbCustomer;
    TextBox *txtOrderNumber;
    QCheckBox *chkShipDate;
    DTPicker *dtStartDate, *dtEndDate;
    QPushButton *btnFind, *btnClear, *btnExit;
    FlexGrid *vsfgShipments, *vsfgItems;
};
