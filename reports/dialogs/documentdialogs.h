#pragma once

#include "reports/dialogs/selectiondialog.h"

/// Prints the pick ticket of an open order.
class frmPickTicket : public KeyedSelectionDialog
{
    Q_OBJECT
public:
    frmPickTicket();

private:
    void formLoad() override;
    void btnPrint_Click() override;
};

/// Previews the packing slip of any shipment, newest first.
class frmPackingSlip : public SelectionDialog
{
    Q_OBJECT
public:
    frmPackingSlip();

private:
    void formLoad() override;
    void btnPrint_Click() override;
};

/// Previews an invoice again, with the figures of today.
class frmInvoiceReport : public SelectionDialog
{
    Q_OBJECT
public:
    frmInvoiceReport();

private:
    void formLoad() override;
    void btnPrint_Click() override;
};
