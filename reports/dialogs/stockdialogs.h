#pragma once

#include "reports/dialogs/selectiondialog.h"

/// The quick availability of one warehouse or of all.
class frmAvailInvReport : public KeyedSelectionDialog
{
    Q_OBJECT
public:
    frmAvailInvReport();

private:
    void formLoad() override;
    void btnPrint_Click() override;
};

/// The control report of any adjustment, those behind transfers included.
class frmAdjustmentControlReport : public KeyedSelectionDialog
{
    Q_OBJECT
public:
    frmAdjustmentControlReport();

private:
    void formLoad() override;
    void btnPrint_Click() override;
};

/// The control report of a transfer, listed with the date of its outgoing half.
class frmTransferControlReport : public KeyedSelectionDialog
{
    Q_OBJECT
public:
    frmTransferControlReport();

private:
    void formLoad() override;
    void btnPrint_Click() override;
};
