#include "reports/dialogs/stockdialogs.h"
#include "reports/inventoryregisters.h"
#include "reports/listings.h"
#include "toolkit/forms/fillcombo.h"
#include "toolkit/forms/mainmod.h"

// Its hidden list stays empty, since a warehouse's name is its key. With none picked the report is empty.
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

// All adjustments, both halves of every transfer among them; the newest first.
void frmAdjustmentControlReport::formLoad()
{
    auto adjustments = gDatabase->OpenRecordset("SELECT * FROM AdjustmentHeader ORDER BY ID DESC,Date DESC");
    QStringList entries, ids;
    while (!adjustments.Eof()) {
        const QString ID = adjustments.Fields("ID").joined();
        entries += ID + " - " + adjustments.Fields("Date").joined();
        ids += ID;
        adjustments.MoveNext();
    }
    adjustments.Close();
    fill(entries, ids);
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

// The date shown is that of the sending half.
void frmTransferControlReport::formLoad()
{
    auto transfers = gDatabase->OpenRecordset("SELECT * FROM TransferHeader LEFT JOIN AdjustmentHeader ON "
                                              "TransferHeader.FromID = AdjustmentHeader.ID ORDER BY "
                                              "TransferHeader.ID DESC");
    QStringList entries, ids;
    while (!transfers.Eof()) {
        const QString ID = transfers.Fields("TransferHeader.ID").joined();
        entries += ID + " - " + transfers.Fields("Date").joined();
        ids += ID;
        transfers.MoveNext();
    }
    transfers.Close();
    fill(entries, ids);
}

void frmTransferControlReport::btnPrint_Click()
{
    Reports::ReportTransferControl(selectedID());
    unload();
}
