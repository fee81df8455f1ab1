#include "inventory/frmtransfer.h"

#include "data/values/numbers.h"
#include "inventory/ledger.h"
#include "toolkit/controls/msgbox.h"
#include "toolkit/forms/mainmod.h"

frmTransfer::frmTransfer()
    : StockForm("frmTransfer", "Transfer Inventory", "Transfer Information", "Inventory to Transfer"),
      cmbFrom(addList("cmbFrom")), cmbTo(addList("cmbTo"))
{
    setTypeAhead(cmbFrom);
    setTypeAhead(cmbTo);
    connect(cmbFrom, &ComboBox::lostFocus, this, &frmTransfer::cmbFrom_LostFocus);
    connect(cmbTo, &ComboBox::lostFocus, this, &frmTransfer::cmbTo_LostFocus);
    layOut({{"From", cmbFrom}, {"To", cmbTo}});
}

/// One walk fills both lists, so that they hold the same warehouses.
void frmTransfer::fillWarehouses()
{
    Recordset warehouses =
        gDatabase->OpenRecordset("SELECT * FROM Warehouse WHERE Status = 'Active' ORDER BY Warehouse");
    while (!warehouses.Eof()) {
        cmbFrom->addItem(warehouses.Fields("Warehouse").value());
        cmbTo->addItem(warehouses.Fields("Warehouse").value());
        warehouses.MoveNext();
    }
    warehouses.Close();
}

/// The two may be one warehouse; nothing objects, and the two postings of each line cancel out.
void frmTransfer::cmbFrom_LostFocus()
{
    if (!cmbFrom->text().isEmpty() && !cmbTo->text().isEmpty())
        enterLines();
}

void frmTransfer::cmbTo_LostFocus()
{
    cmbFrom_LostFocus();
}

void frmTransfer::txtID_LostFocus()
{
    if (txtID->text().isEmpty())
        return;
    Recordset transfer = gDatabase->OpenRecordset("SELECT * FROM TransferHeader WHERE ID = " + txtID->text());
    if (transfer.Bof() && transfer.Eof()) {
        transfer.Close();
        MsgBox("Invalid Transfer ID. Please Re-enter.", "Invalid Transfer ID");
        txtID->clear();
        setFocusTo(txtID);
        return;
    }
    // Only the outgoing half is held in 16 bits: above 32767 a transfer can be saved but not opened again. Meant so.
    const qint16 FromID = transfer.Fields("FromID").value().toInteger();
    const Value ToID = transfer.Fields("ToID").value();
    transfer.Close();
    showHalves(FromID, ToID);
}

/// Shows both warehouses, and the date and lines of the incoming half, which read positive.
void frmTransfer::showHalves(qint16 FromID, const Value &ToID)
{
    Recordset from = gDatabase->OpenRecordset("SELECT * FROM AdjustmentHeader WHERE ID = " + QString::number(FromID));
    if (!(from.Bof() && from.Eof()))
        cmbFrom->setText(from.Fields("Warehouse").text());
    from.Close();

    Recordset to = gDatabase->OpenRecordset(
        "SELECT * FROM ((AdjustmentHeader LEFT JOIN AdjustmentDetail ON AdjustmentHeader.ID = "
        "AdjustmentDetail.AdjustmentID) LEFT JOIN Part ON AdjustmentDetail.PartNo = Part.PartNo) WHERE "
        "AdjustmentHeader.ID = " +
        ToID.joined());
    // An incoming half that is gone leaves the form as it stands, with the outgoing warehouse filled in.
    if (!(to.Bof() && to.Eof())) {
        dtDate->setValue(to.Fields("Date").value());
        cmbTo->setText(to.Fields("Warehouse").text());
        showLines(to);
    }
    to.Close();
}

void frmTransfer::btnSave_Click()
{
    if (cmbFrom->text().isEmpty() || cmbTo->text().isEmpty() || vsfgAdjustment->rows() < 2) {
        MsgBox("You must select a To and From Location and add atleast one adjustment.", "Not Enough Data");
        return;
    }
    const Halves halves = txtID->text().isEmpty() ? addHeaders() : editHeaders();
    saveFromLines(halves.FromID);
    saveToLines(halves.ToID);
    unload();
}

/// The halves keep their numbers for life: adjustments and registers know a transfer by these alone.
frmTransfer::Halves frmTransfer::editHeaders()
{
    Recordset transfer = gDatabase->OpenRecordset("SELECT * FROM TransferHeader WHERE ID = " + txtID->text());
    const Halves halves{transfer.Fields("FromID").joined(), transfer.Fields("ToID").joined()};
    transfer.Close();

    Recordset from = gDatabase->OpenRecordset("SELECT * FROM AdjustmentHeader WHERE ID =" + halves.FromID);
    from.Edit();
    assignHeader(from, cmbFrom);
    from.Update();
    from.Close();

    Recordset to = gDatabase->OpenRecordset("SELECT * FROM AdjustmentHeader WHERE ID =" + halves.ToID);
    to.Edit();
    assignHeader(to, cmbTo);
    to.Update();
    to.Close();
    return halves;
}

/// Adds both halves, then the transfer that names them; stopped in between, they stay behind as plain adjustments.
frmTransfer::Halves frmTransfer::addHeaders()
{
    Halves halves;
    Recordset header = gDatabase->OpenRecordset("SELECT * FROM AdjustmentHeader");
    header.AddNew();
    halves.FromID = header.Fields("ID").text();
    assignHeader(header, cmbFrom);
    header.Update();
    header.AddNew();
    halves.ToID = header.Fields("ID").text();
    assignHeader(header, cmbTo);
    header.Update();
    header.Close();

    Recordset transfer = gDatabase->OpenRecordset("SELECT * FROM TransferHeader");
    transfer.AddNew();
    txtID->setText(transfer.Fields("ID").text());
    transfer.Fields("FromID") = halves.FromID;
    transfer.Fields("ToID") = halves.ToID;
    transfer.Update();
    transfer.Close();
    return halves;
}

void frmTransfer::assignHeader(Recordset &header, const ComboBox *warehouse)
{
    header.Fields("Date") = dtDate->value();
    header.Fields("DateAdded") = Date::now();
    header.Fields("Warehouse") = warehouse->text();
}

/// The outgoing half takes the leading number of what was typed, the incoming half the text itself: a quantity that
/// is no number is 0 here and fails there.
void frmTransfer::saveFromLines(const QString &FromID)
{
    gDatabase->Execute("DELETE * FROM AdjustmentDetail WHERE AdjustmentID = " + FromID);
    Recordset details = gDatabase->OpenRecordset("SELECT * FROM AdjustmentDetail");
    for (int row = 1; row < vsfgAdjustment->rows(); ++row) {
        details.AddNew();
        details.Fields("AdjustmentID") = FromID;
        details.Fields("PartNo") = vsfgAdjustment->textMatrix(row, PartColumn);
        details.Fields("Qty") = quantity(row) * -1;
        details.Update();
    }
    details.Close();
}

void frmTransfer::saveToLines(const QString &ToID)
{
    gDatabase->Execute("DELETE * FROM AdjustmentDetail WHERE AdjustmentID = " + ToID);
    Recordset details = gDatabase->OpenRecordset("SELECT * FROM AdjustmentDetail");
    for (int row = 1; row < vsfgAdjustment->rows(); ++row) {
        const QString part = vsfgAdjustment->textMatrix(row, PartColumn);
        details.AddNew();
        details.Fields("AdjustmentID") = ToID;
        details.Fields("PartNo") = part;
        // As typed, so that the column converts it: text that is no number fails here, when the outgoing half stands
        // already.
        details.Fields("Qty") = vsfgAdjustment->textMatrix(row, QtyColumn);
        details.Update();
        // Both halves are posted here and not where the outgoing one is written, so a save that fails there has moved
        // no stock in the ledger.
        UpdateAvailInv(cmbFrom->text(), part, CInt(quantity(row) * -1));
        UpdateAvailInv(cmbTo->text(), part, CInt(quantity(row)));
    }
    details.Close();
}
