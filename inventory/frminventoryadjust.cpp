#include "inventory/frminventoryadjust.h"

#include "data/values/numbers.h"
#include "inventory/ledger.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/fillcombo.h"
#include "toolkit/forms/mainmod.h"

frmInventoryAdjust::frmInventoryAdjust()
    : StockForm("frmInventoryAdjust", "Inventory Adjustment", "Adjustment Information", "Inventory Adjustment"),
      cmbWarehouse(addList("cmbWarehouse"))
{
    setTypeAhead(cmbWarehouse);
    connect(cmbWarehouse, &ComboBox::lostFocus, this, &frmInventoryAdjust::cmbWarehouse_LostFocus);
    layOut({{"Warehouse", cmbWarehouse}});
}

void frmInventoryAdjust::fillWarehouses()
{
    fillCombo(cmbWarehouse, "SELECT * FROM Warehouse WHERE Status = 'Active' ORDER BY Warehouse", "Warehouse");
}

/// Leaving the box empty again does not take the line entry away.
void frmInventoryAdjust::cmbWarehouse_LostFocus()
{
    if (!cmbWarehouse->text().isEmpty())
        enterLines();
}

/// Runs whenever the focus leaves a filled box, so passing through the box of a loaded adjustment drops line
/// changes that were not saved.
void frmInventoryAdjust::txtID_LostFocus()
{
    if (txtID->text().isEmpty())
        return;
    Recordset lines = gDatabase->OpenRecordset(
        "SELECT * FROM ((AdjustmentHeader LEFT JOIN AdjustmentDetail ON AdjustmentHeader.ID = "
        "AdjustmentDetail.AdjustmentID) LEFT JOIN Part ON AdjustmentDetail.PartNo = Part.PartNo) WHERE "
        "AdjustmentHeader.ID = " +
        txtID->text());
    if (lines.Bof() && lines.Eof()) {
        MsgBox("Invalid Adjustment ID. Please Re-enter.", "Invalid Adjustment ID");
        txtID->clear();
        setFocusTo(txtID);
    } else {
        dtDate->setValue(lines.Fields("Date").value());
        cmbWarehouse->setText(lines.Fields("Warehouse").text());
        showLines(lines);
    }
    lines.Close();
}

/// Nothing of an earlier save is taken back: the lines are replaced, and all of them are posted to the ledger once
/// more, under the warehouse now shown. Only a rebuild puts the ledger right; both are meant.
void frmInventoryAdjust::btnSave_Click()
{
    if (vsfgAdjustment->rows() <= 1 || cmbWarehouse->text().isEmpty()) {
        MsgBox("You must select a Warehouse and add atleast one adjustment.", "Not Enough Data");
        return;
    }
    saveHeader();
    gDatabase->Execute("DELETE * FROM AdjustmentDetail WHERE AdjustmentID = " + txtID->text());
    Recordset details = gDatabase->OpenRecordset("SELECT * FROM AdjustmentDetail");
    for (int row = 1; row < vsfgAdjustment->rows(); ++row) {
        details.AddNew();
        details.Fields("AdjustmentID") = txtID->text();
        details.Fields("PartNo") = vsfgAdjustment->textMatrix(row, PartColumn);
        details.Fields("Qty") = vsfgAdjustment->textMatrix(row, QtyColumn);
        details.Update();
        // Overflows beyond 16 bits, when the line has been written already.
        UpdateAvailInv(cmbWarehouse->text(), vsfgAdjustment->textMatrix(row, PartColumn), CInt(quantity(row)));
    }
    details.Close();
    unload();
}

/// Writes the header and, for a new adjustment, shows the number it took.
void frmInventoryAdjust::saveHeader()
{
    const bool existing = !txtID->text().isEmpty();
    Recordset header = gDatabase->OpenRecordset(existing ? "SELECT * FROM AdjustmentHeader WHERE ID = " + txtID->text()
                                                         : QString("SELECT * FROM AdjustmentHeader"));
    if (existing) {
        header.Edit();
    } else {
        header.AddNew();
        // The number is drawn by AddNew; behind Update the record at hand would be another.
        txtID->setText(header.Fields("ID").text());
    }
    header.Fields("Date") = dtDate->value();
    // Always the last save, unlike the same column of customers and parts.
    header.Fields("DateAdded") = Date::now();
    header.Fields("Warehouse") = cmbWarehouse->text();
    header.Update();
    header.Close();
}
