#include "reports/dialogs/stockdialogs.h"
#include "reports/inventoryregisters.h"
#include "reports/listings.h"
#include "toolkit/forms/fillcombo.h"

/// Its hidden list stays empty, since a warehouse's name is its key. With none picked the report is empty.
frmAvailInvReport::frmAvailInvReport() : KeyedSelectionDialog("frmAvailInvReport", "Warehouse") {}

void frmAvailInvReport::formLoad()
{
    cmbReport->addItem("***All Warehouses***");
    fillCombo(cmbReport, "SELECT Warehouse FROM Warehouse ORDER BY Warehouse", "Warehouse");
}

void frmAvailInvReport::btnPrint_Click()
{
    Reports::ReportQuickAvailInv(cmbReport->text());
    unload();
}

frmAdjustmentControlReport::frmAdjustmentControlReport()
    : KeyedSelectionDialog("frmAdjustmentControlReport", "Control Report")
{
}

/// All adjustments, both halves of every transfer among them; the newest first.
void frmAdjustmentControlReport::formLoad()
{
    fill("SELECT * FROM AdjustmentHeader ORDER BY ID DESC,Date DESC", "ID", "Date", "ID");
}

void frmAdjustmentControlReport::btnPrint_Click()
{
    Reports::ReportAdjustmentControl(selectedID());
    unload();
}

frmTransferControlReport::frmTransferControlReport()
    : KeyedSelectionDialog("frmTransferControlReport", "Control Report")
{
}

/// The date shown is that of the sending half.
void frmTransferControlReport::formLoad()
{
    fill("SELECT * FROM TransferHeader LEFT JOIN AdjustmentHeader ON TransferHeader.FromID = AdjustmentHeader.ID ORDER "
         "BY TransferHeader.ID DESC",
         "TransferHeader.ID", "Date", "TransferHeader.ID");
}

void frmTransferControlReport::btnPrint_Click()
{
    Reports::ReportTransferControl(selectedID());
    unload();
}
