#pragma once

#include "inventory/stockform.h"

/// Moves stock between two warehouses. A transfer is a header that names two adjustments of equal lines: the
/// outgoing half holds the quantities negated, the incoming half as typed.
class frmTransfer : public StockForm
{
    Q_OBJECT
public:
    frmTransfer();

private:
    /// The two halves' adjustment numbers as text.
    struct Halves
    {
        QString FromID, ToID;
    };

    void fillWarehouses() override;
    void cmbFrom_LostFocus();
    void cmbTo_LostFocus();
    void txtID_LostFocus() override;
    void btnSave_Click() override;

    void showHalves(qint16 FromID, const Value &ToID);
    Halves editHeaders();
    Halves addHeaders();
    void saveFromLines(const QString &FromID);
    void saveToLines(const QString &ToID);
    void assignHeader(Recordset &header, const ComboBox *warehouse);

    ComboBox *cmbFrom, *cmbTo;
};
