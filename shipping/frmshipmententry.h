#pragma once

#include "toolkit/forms/form.h"

/// Records what leaves the warehouse against one order: the shipment, its lines, the ledger, the packing slip and
/// the order's status. Opens empty, or through OpenShipment as the view of a shipment that exists.
class frmShipmentEntry : public Form
{
    Q_OBJECT
public:
    frmShipmentEntry();

    /// Shows an existing shipment; nothing for the empty text or an unknown number. An invoiced one can't be saved.
    /// Error 383 when its customer is no longer active.
    void OpenShipment(const QString &ShipmentID);

private:
    void formLoad() override;
    void cmbCustomer_Change();
    void cmbCustomer_Click();
    void cmbOrder_Click();
    void vsfgItems_BeforeEdit(int row, int col, bool &cancel);
    void vsfgItems_AfterEdit(int row, int col);
    void btnShipAll_Click();
    void btnSave_Click();

    void FillOrder(const QString &OrderID);
    void fillLines(const QString &OrderID);
    void fillShipped(const QString &ShipmentID);
    bool hasItems() const;
    QString saveHeader();
    void saveLines();
    /// The order picked in the list, or, for an order that is not in the list, the one whose number the box holds.
    QString shownOrderID() const;
    /// The leading number of a grid cell.
    double number(int row, int col) const;
    void layOut();

    QGroupBox *Frame1, *Frame2;
    ComboBox *cmbCustomer;
    ComboBox *cmbOrder;
    ComboBox *cmbOrderID; ///< the order behind each entry of cmbOrder, at the same index
    TextBox *txtID;
    DTPicker *dtDate;
    TextBox *txtShipVia;
    MaskEdBox *txtFreight, *txtAdjustment;
    TextBox *txtShipTo, *txtAddress1, *txtAddress2, *txtCity, *txtState, *txtZip;
    FlexGrid *vsfgItems;
    QPushButton *btnShipAll, *btnSave, *btnExit;
};
