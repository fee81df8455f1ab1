#pragma once

#include "toolkit/forms/form.h"

class Recordset;

/// Takes a new order or changes a saved one. Everything lives in the controls until "Save and Close", which writes
/// header and lines, and opens the pick ticket or books the drop shipment.
class frmOrderEntry : public Form
{
    Q_OBJECT
public:
    frmOrderEntry();

    /// Shows a saved order, whose customer, number and dates can't be changed any more. Of an unknown ID the fields
    /// stay as they are. Error 383 when its customer or warehouse is not active.
    void OpenOrder(qint16 ID);

protected:
    void formLoad() override;
    void formUnload() override;

private:
    /// The columns of vsfgItems.
    enum Column { ItemNumber, Qty, PartNo, Category, PriceEach, PriceExt, CustomerNumber };

    // frmorderentry_layout.cpp
    void makeControls();
    void connectEvents();
    void layOut();
    void layOutHeader();
    void layOutLines();

    // frmorderentry.cpp: header and status
    void cmbCustomer_Click();
    void cmbCustomer_LostFocus();
    void chkDropShip_Click();
    void btnClose_Click();
    void btnOpenOrder_Click();
    void btnVoidOrder_Click();
    void RefreshGrid();
    void loadParts();
    void showShipTo(const Recordset &rs);

    // frmorderentry_lines.cpp
    void cmbPart_LostFocus();
    void showLineAmount();
    void UpdateTotal();
    void vsfgItems_AfterRowColChange(int newRow);
    void btnSaveItem_Click();
    void btnDeleteItem_Click();
    void addLine();
    void changeLine();
    void clearLineFields();
    bool mayDeleteLine() const;

    // frmorderentry_save.cpp
    void btnSave_Click();
    void saveHeader();
    void saveLines();
    void bookDropShipment();

    QGroupBox *Frame1;
    ComboBox *cmbCustomer;
    TextBox *txtOrderNumber;
    DTPicker *dtOrderDate, *dtDueDate;
    ComboBox *cmbWarehouse;
    QLabel *lblID, *lblStatus;
    TextBox *txtShipTo, *txtAddress1, *txtAddress2, *txtCity, *txtState, *txtZip, *txtPhone, *txtFax;
    QCheckBox *chkDropShip;
    MaskEdBox *txtFreight, *txtOverDue, *lblTotal;

    QGroupBox *Frame2;
    QLabel *lblItem;
    ComboBox *cmbPart, *cmbCategory, *cmbPrice;
    TextBox *txtQty;
    QLabel *lblQtyAvail;
    MaskEdBox *txtPriceEach, *lblPriceExt;
    TextBox *txtCustomerNumber;
    QPushButton *btnSaveItem, *btnDeleteItem;
    FlexGrid *vsfgItems;

    QPushButton *btnSave, *btnExit, *btnClose, *btnOpenOrder, *btnVoidOrder;
};
