#pragma once

#include "reports/dialogs/daterangedialog.h"

/// Asks for the period, the category and the form of a stock register.
class RegisterDialog : public DateRangeDialog
{
    Q_OBJECT
protected:
    RegisterDialog(const QString &name, const QString &caption);
    void formLoad() override;
    void placeControls() override;

    ComboBox *cmbCategory;
    QCheckBox *chkDetails;
};

/// By warehouse and part; the spreadsheet form never shows details.
class frmAvailableInventory : public RegisterDialog
{
    Q_OBJECT
public:
    frmAvailableInventory();

private:
    void placeControls() override;

    QCheckBox *chkExport;
};

/// By part and warehouse.
class frmAvailableInventoryByPart : public RegisterDialog
{
    Q_OBJECT
public:
    frmAvailableInventoryByPart();
};
